#include "FileLists.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "FileOrder.h"

namespace pagetool {

namespace {

namespace fs = std::filesystem;

bool isPageName(const fs::path& path)
{
    std::string ending = path.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending == ".svg" || ending == ".emf";
}

std::vector<std::string> pagesBelow(const fs::path& folder)
{
    std::vector<std::string> pages;
    std::error_code error;
    constexpr auto Options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator at(folder, Options, error), end; !error && at != end;
         at.increment(error)) {
        std::error_code unknown;
        if (at->is_regular_file(unknown) && isPageName(at->path())) {
            pages.push_back(at->path().string());
        }
    }
    std::sort(pages.begin(), pages.end(), comesBefore);
    return pages;
}

} // namespace

std::vector<std::string> withFoldersOpened(const std::vector<std::string>& files)
{
    std::vector<std::string> pages;
    for (const std::string& file : files) {
        std::error_code unknown;
        if (fs::is_directory(file, unknown)) {
            const std::vector<std::string> below = pagesBelow(file);
            pages.insert(pages.end(), below.begin(), below.end());
        } else {
            pages.push_back(file);
        }
    }
    return pages;
}

bool readFileList(const std::string& list, bool zeroEnded, std::vector<std::string>& files,
                  std::string& problem)
{
    std::ifstream file;
    const bool isFile = list != StandardStream;
    errno = 0;
    if (isFile) {
        file.open(list, std::ios::binary);
    }
    std::istream& names = isFile ? file : std::cin;
    for (std::string name; names.good() && std::getline(names, name, zeroEnded ? '\0' : '\n');) {
        if (!zeroEnded && name.ends_with('\r')) {
            name.pop_back();
        }
        if (!name.empty()) {
            files.push_back(name);
        }
    }
    if (names.bad() || (isFile && !file.is_open())) {
        problem =
            std::string(list).append(" can't be read: ").append(std::strerror(errno != 0 ? errno : EIO));
        return false;
    }
    return true;
}

} // namespace pagetool
