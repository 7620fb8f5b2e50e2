#include "ByteSink.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <utility>

namespace wingdi {

namespace {

std::string besides(const std::string& path)
{
    static std::atomic<unsigned int> count = 0;
    return path + "." + std::to_string(getpid()) + "-" + std::to_string(++count) + ".tmp";
}

// A file that nobody else has.
std::FILE* openNew(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    std::FILE* const file = descriptor >= 0 ? fdopen(descriptor, "wb") : nullptr;
    if (file == nullptr && descriptor >= 0) {
        close(descriptor);
        unlink(path.c_str());
    }
    return file;
}

} // namespace

FileSink::FileSink(std::string path)
    : m_path(std::move(path)), m_temporary(besides(m_path)), m_file(openNew(m_temporary))
{
}

FileSink::~FileSink()
{
    if (m_file != nullptr) {
        std::fclose(m_file);
        unlink(m_temporary.c_str());
    }
}

bool FileSink::write(std::span<const unsigned char> bytes)
{
    return m_file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), m_file) == bytes.size();
}

bool FileSink::commit()
{
    if (m_file == nullptr) {
        return false;
    }
    const bool closed = std::fclose(std::exchange(m_file, nullptr)) == 0;
    if (closed && std::rename(m_temporary.c_str(), m_path.c_str()) == 0) {
        return true;
    }
    unlink(m_temporary.c_str());
    return false;
}

} // namespace wingdi
