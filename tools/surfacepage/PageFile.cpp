#include "PageFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

#include "FileLists.h"
#include "metaFilePlayer.h"

namespace pagetool {

namespace {

// The page operations take a length as an int.
constexpr std::size_t LongestPage = std::numeric_limits<int>::max();
constexpr std::size_t Step = std::size_t{1} << 20;

struct CloseFile {
    void operator()(std::FILE* file) const
    {
        if (file != stdin) {
            std::fclose(file);
        }
    }
};

// Null, and errno, when there is none.
std::FILE* opened(const std::string& name)
{
    if (name != StandardStream) {
        return std::fopen(name.c_str(), "rb");
    }
#if defined(_WIN32)
    _setmode(_fileno(stdin), _O_BINARY);
#endif
    return stdin;
}

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
    const std::unique_ptr<std::FILE, CloseFile> file(opened(job.file()));
    if (file == nullptr) {
        return failOfSystem(job, errno);
    }
    std::error_code noSize;
    const std::uintmax_t size = std::filesystem::file_size(job.file(), noSize);
    const std::uintmax_t expected = noSize ? 0 : size;
    if (expected > LongestPage) {
        return failOfLength(job);
    }
    std::size_t length = 0;
    for (bytes.resize(static_cast<std::size_t>(expected) + 1);;) {
        length += std::fread(bytes.data() + length, 1, bytes.size() - length, file.get());
        if (std::ferror(file.get()) != 0) {
            return failOfSystem(job, errno);
        }
        if (length < bytes.size()) {
            bytes.resize(length);
            return true;
        }
        if (length > LongestPage) {
            return failOfLength(job);
        }
        bytes.resize(std::min(length + std::max(length / 2, Step), LongestPage + 1));
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
