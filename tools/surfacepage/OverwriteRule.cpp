#include "OverwriteRule.h"

#include <cstdio>
#include <memory>
#include <vector>

#include "metaFilePlayer.h"

namespace pagetool {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

bool isStoredPage(const std::string& file)
{
    constexpr std::size_t Enough = std::size_t{1} << 16; // bytes, to tell a format by
    const std::unique_ptr<std::FILE, CloseFile> stream(std::fopen(file.c_str(), "rb"));
    if (stream == nullptr) {
        return false;
    }
    std::vector<unsigned char> head(Enough);
    const std::size_t length = std::fread(head.data(), 1, head.size(), stream.get());
    return CMetaFilePlayer::getMetaFileFormat(head.data(), static_cast<unsigned int>(length)) != 0;
}

} // namespace

std::string OverwriteRule::objectionTo(const std::string& output) const
{
    if (inputs.contains(output)) {
        return "it is one of the pages that are read";
    }
    if (!force && isStoredPage(output)) {
        return "a stored page is there, which --force overwrites";
    }
    return {};
}

} // namespace pagetool
