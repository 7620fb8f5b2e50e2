// Where the bytes of a document go: to the host, or into a file that is there whole or not at all.
#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace wingdi {

class ByteSink {
public:
    virtual ~ByteSink() = default;

    // False when they are lost; so is all that follows.
    virtual bool write(std::span<const unsigned char> bytes) = 0;
    // All bytes were written. Without this none stay, where that can be.
    virtual bool commit() { return true; }
};

class HostSink : public ByteSink {
public:
    using Write = bool (*)(const unsigned char* bytes, std::size_t count, void* context);
    HostSink(Write host, void* context) : m_write(host), m_context(context) {}

    bool write(std::span<const unsigned char> bytes) override
    {
        return m_write(bytes.data(), bytes.size(), m_context);
    }

private:
    Write m_write;
    void* m_context;
};

// Writes beside the place, and takes the place at the end.
class FileSink : public ByteSink {
public:
    explicit FileSink(std::string path);
    FileSink(const FileSink&) = delete;
    FileSink& operator=(const FileSink&) = delete;
    ~FileSink() override;

    bool isOpen() const { return m_file != nullptr; }
    bool write(std::span<const unsigned char> bytes) override;
    bool commit() override;

private:
    std::string m_path;
    std::string m_temporary;
    std::FILE* m_file;
};

} // namespace wingdi
