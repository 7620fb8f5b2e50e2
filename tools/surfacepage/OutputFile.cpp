#include "OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

namespace pagetool {

namespace {

namespace fs = std::filesystem;

// No two of one run; left-overs of other runs are stepped over.
std::string temporaryBeside(const fs::path& place)
{
    static std::atomic<unsigned int> count = 0;
    std::string name(".");
    name.append(place.filename().string()).append(".").append(std::to_string(getpid()));
    name.append("-").append(std::to_string(++count)).append(".tmp");
    return (place.parent_path() / name).string();
}

} // namespace

OutputFile::OutputFile(FileJob& job, const std::string& path) : _job(job), _path(path) {}

OutputFile::~OutputFile()
{
    if (!_temporary.empty()) {
        unlink(_temporary.c_str());
    }
}

const std::string& OutputFile::create()
{
    std::error_code error;
    fs::path place = fs::weakly_canonical(_path, error);
    if (error) {
        failOfSystem(error.value());
        return _temporary;
    }
    struct stat status {};
    const bool exists = stat(place.c_str(), &status) == 0;
    const bool danglingLink = !exists && fs::is_symlink(_path, error);
    if (danglingLink || (exists && !S_ISREG(status.st_mode))) {
        _job.complain(std::string("can't write ").append(_path).append(": it is no regular file"));
        return _temporary;
    }
    const std::string temporary = temporaryBeside(place);
    const int descriptor =
        open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, exists ? 0600 : 0666);
    if (descriptor < 0) {
        failOfSystem(errno);
        return _temporary;
    }
    if (exists) {
        // Best effort: on file systems without permissions there is nothing to keep.
        [[maybe_unused]] const int kept = fchmod(descriptor, status.st_mode & 0777);
    }
    close(descriptor);
    _place = place.string();
    _temporary = temporary;
    return _temporary;
}

Outcome OutputFile::commit()
{
    if (std::rename(_temporary.c_str(), _place.c_str()) != 0) {
        return failOfSystem(errno);
    }
    _temporary.clear();
    return Outcome::Done;
}

Outcome OutputFile::write(std::span<const unsigned char> bytes)
{
    if (create().empty()) {
        return Outcome::Failed;
    }
    std::FILE* const file = std::fopen(_temporary.c_str(), "wb");
    if (file == nullptr) {
        return failOfSystem(errno);
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    const int error = errno;
    if (std::fclose(file) != 0 || !written) {
        return failOfSystem(written ? errno : error);
    }
    return commit();
}

Outcome OutputFile::failOfSystem(int error)
{
    return _job.fail(std::string("can't write ").append(_path).append(": ").append(std::strerror(error)));
}

} // namespace pagetool
