#include "PageFields.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "RecordWalk.h"

namespace pagetool {

namespace {

#if defined(_WIN32)
constexpr int OpenMode = O_WRONLY | O_BINARY | O_NOINHERIT;
#else
constexpr int OpenMode = O_WRONLY | O_CLOEXEC;
#endif

class OpenFile {
public:
    explicit OpenFile(const std::string& file) : m_descriptor(open(file.c_str(), OpenMode)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { close(); }

    bool isOpen() const { return m_descriptor >= 0; }
    bool hasLength(std::size_t length) const
    {
        struct stat known {};
        return fstat(m_descriptor, &known) == 0 && known.st_size >= 0 &&
               static_cast<std::size_t>(known.st_size) == length;
    }
    bool write(std::size_t at, std::span<const unsigned char> bytes) const
    {
        if (lseek(m_descriptor, static_cast<off_t>(at), SEEK_SET) < 0) {
            return false;
        }
        const auto written = ::write(m_descriptor, bytes.data(), static_cast<unsigned int>(bytes.size()));
        errno = written >= 0 ? ENOSPC : errno;
        return written >= 0 && static_cast<std::size_t>(written) == bytes.size();
    }
    bool close()
    {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int m_descriptor;
};

// The part of a piece that differs is a field.
void addChanged(std::span<const unsigned char> now, std::span<const unsigned char> before, PageField piece,
                std::vector<PageField>& fields)
{
    while (piece.begin < piece.end && now[piece.begin] == before[piece.begin]) {
        ++piece.begin;
    }
    while (piece.end > piece.begin && now[piece.end - 1] == before[piece.end - 1]) {
        --piece.end;
    }
    if (piece.begin < piece.end) {
        fields.push_back(piece);
    }
}

} // namespace

std::vector<PageField> changedFields(const StoredPage& page, std::span<const unsigned char> before)
{
    std::vector<PageField> fields;
    if (page.isMetafile()) {
        walkRecords(page.bytes, [&](const metafile::Record& record) {
            addChanged(page.bytes, before, {record.position, record.position + record.bytes.size()}, fields);
        });
        return fields;
    }
    const std::string_view text = page.text();
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('<', begin), text.size());
        addChanged(page.bytes, before, {begin, end}, fields);
        begin = end == text.size() ? end : std::min(text.find('>', end), text.size() - 1) + 1;
    }
    return fields;
}

std::string writeFields(const std::string& file, std::span<const unsigned char> bytes,
                        std::span<const PageField> fields)
{
    OpenFile target(file);
    if (!target.isOpen()) {
        return std::string("can't be written: ").append(std::strerror(errno));
    }
    if (!target.hasLength(bytes.size())) {
        return "has changed since it was read, so nothing was stamped";
    }
    for (const PageField& field : fields) {
        if (!target.write(field.begin, bytes.subspan(field.begin, field.end - field.begin))) {
            return std::string("can't be written: ").append(std::strerror(errno));
        }
    }
    return target.close() ? std::string() : std::string("can't be written: ").append(std::strerror(errno));
}

} // namespace pagetool
