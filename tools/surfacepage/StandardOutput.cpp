#include "StandardOutput.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

namespace pagetool {

namespace fs = std::filesystem;

StandardOutput::~StandardOutput()
{
    if (!m_folder.empty()) {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
}

const std::string& StandardOutput::begin(const std::string& ending)
{
    constexpr int Attempts = 100;
    std::error_code error;
    const fs::path place = fs::temp_directory_path(error);
    std::random_device random;
    for (int i = 0; !error && i < Attempts && m_folder.empty(); ++i) {
        const fs::path folder = place / ("surfacepage-" + std::to_string(random()));
        if (fs::create_directory(folder, error)) { // which nobody else has made
            fs::permissions(folder, fs::perms::owner_all, error);
            m_folder = folder.string();
            m_file = (folder / ("page." + ending)).string();
        }
    }
    return m_file;
}

std::string StandardOutput::send() const
{
    std::ifstream file(m_file, std::ios::binary);
    if (!file.is_open()) {
        return {}; // nothing was made, which has been said
    }
    // From here on a reader that goes away leaves nothing behind; where open files can't be removed, the end does it.
    std::error_code stillOpen;
    fs::remove_all(m_folder, stillOpen);
#if defined(_WIN32)
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    std::array<char, 1 << 16> bytes{};
    errno = 0;
    for (bool goesOn = true; goesOn;) {
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        const auto count = static_cast<std::size_t>(file.gcount());
        goesOn = count != 0;
        if (std::fwrite(bytes.data(), 1, count, stdout) != count) {
            break;
        }
    }
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0
               ? std::string()
               : std::string("standard output can't be written: ").append(std::strerror(errno));
}

} // namespace pagetool
