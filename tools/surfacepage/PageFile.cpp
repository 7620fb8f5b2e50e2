#include "PageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <string>

#include "metaFilePlayer.h"

namespace pagetool {

namespace {

// The page operations take a length as an int.
constexpr std::size_t LongestPage = std::numeric_limits<int>::max();
constexpr std::size_t Step = std::size_t{1} << 20;

struct OpenFile {
    explicit OpenFile(const char* path) : descriptor(open(path, O_RDONLY | O_CLOEXEC | O_NOCTTY)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile()
    {
        if (descriptor >= 0) {
            close(descriptor);
        }
    }
    const int descriptor;
};

bool failOfSystem(FileJob& job, int error)
{
    job.complain(std::string("can't be read: ").append(std::strerror(error)));
    return false;
}

bool failOfLength(FileJob& job)
{
    job.complain("is longer than 2 GiB - 1 byte, which no page is");
    return false;
}

// Pipes have no size to ask for, and a file may grow meanwhile: what counts is what comes.
bool readBytes(FileJob& job, std::vector<unsigned char>& bytes)
{
    const OpenFile file(job.file().c_str());
    struct stat status {};
    if (file.descriptor < 0 || fstat(file.descriptor, &status) != 0) {
        return failOfSystem(job, errno);
    }
    const auto expected = S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) : 0;
    if (expected > LongestPage) {
        return failOfLength(job);
    }
    std::size_t length = 0;
    for (bytes.resize(expected + 1);;) {
        const ssize_t count = read(file.descriptor, bytes.data() + length, bytes.size() - length);
        if (count < 0 && errno != EINTR) {
            return failOfSystem(job, errno);
        }
        if (count == 0) {
            bytes.resize(length);
            return true;
        }
        length += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        if (length > LongestPage) {
            return failOfLength(job);
        }
        if (length == bytes.size()) {
            bytes.resize(std::min(length + std::max(length / 2, Step), LongestPage + 1));
        }
    }
}

} // namespace

std::optional<StoredPage> readPage(FileJob& job)
{
    StoredPage page{{}, 0};
    if (!readBytes(job, page.bytes)) {
        return std::nullopt;
    }
    page.format = CMetaFilePlayer::getMetaFileFormat(page.data(), page.size());
    if (page.format == 0) {
        job.complain(page.bytes.empty() ? "is empty" : "is neither an SVG page nor an enhanced metafile");
        return std::nullopt;
    }
    return page;
}

} // namespace pagetool
