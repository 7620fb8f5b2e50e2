#include "FileIdentity.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/stat.h>
#endif

namespace pagetool {

#if defined(_WIN32)

std::optional<FileIdentity> identityOf(const std::string& file)
{
    constexpr DWORD Everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle = CreateFileA(file.c_str(), 0, Everybody, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    BY_HANDLE_FILE_INFORMATION known{};
    const bool found = GetFileInformationByHandle(handle, &known) != FALSE;
    CloseHandle(handle);
    if (!found) {
        return std::nullopt;
    }
    return FileIdentity{known.dwVolumeSerialNumber,
                        std::uint64_t{known.nFileIndexHigh} << 32 | known.nFileIndexLow};
}

#else

std::optional<FileIdentity> identityOf(const std::string& file)
{
    struct stat known {};
    if (stat(file.c_str(), &known) != 0) {
        return std::nullopt;
    }
    return FileIdentity{known.st_dev, known.st_ino};
}

#endif

FileSet::FileSet(const std::vector<std::string>& files)
{
    for (const std::string& file : files) {
        const std::optional<FileIdentity> identity = identityOf(file);
        if (!identity) {
            continue;
        }
        const auto [first, isNew] = m_names.emplace(*identity, file);
        if (!isNew && m_twice.first.empty()) {
            m_twice = {first->second, file};
        }
    }
}

bool FileSet::contains(const std::string& file) const
{
    const std::optional<FileIdentity> identity = identityOf(file);
    return identity && m_names.count(*identity) != 0;
}

} // namespace pagetool
