#include "OutputFile.h"

#include <fcntl.h>
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

#if defined(_WIN32)
constexpr int ForThisProcess = O_NOINHERIT;
#else
constexpr int ForThisProcess = O_CLOEXEC;
#endif

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

OutputFile::OutputFile(FileJob& job, const std::string& path, const OverwriteRule& rule)
    : m_job(job), m_rule(rule), m_path(path)
{
}

OutputFile::~OutputFile()
{
    if (!m_temporary.empty()) {
        unlink(m_temporary.c_str());
    }
}

const std::string& OutputFile::create()
{
    std::error_code error;
    fs::path place = fs::weakly_canonical(m_path, error);
    if (error) {
        failOfSystem(error.value());
        return m_temporary;
    }
    const fs::file_status status = fs::status(place, error);
    const bool exists = fs::exists(status);
    const bool danglingLink = !exists && fs::is_symlink(m_path, error);
    if (danglingLink || (exists && !fs::is_regular_file(status))) {
        m_job.complain(std::string("can't write ").append(m_path).append(": it is no regular file"));
        return m_temporary;
    }
    if (const std::string objection = m_rule.objectionTo(m_path); !objection.empty()) {
        m_job.complain(std::string("can't write ").append(m_path).append(": ").append(objection));
        return m_temporary;
    }
    const std::string temporary = temporaryBeside(place);
    const int descriptor =
        open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | ForThisProcess, exists ? 0600 : 0666);
    if (descriptor < 0) {
        failOfSystem(errno);
        return m_temporary;
    }
    close(descriptor);
    if (exists) {
        // Best effort: on file systems without permissions there is nothing to keep.
        constexpr fs::perms Kept = fs::perms::owner_all | fs::perms::group_all | fs::perms::others_all;
        fs::permissions(temporary, status.permissions() & Kept, error);
    }
    m_place = place.string();
    m_temporary = temporary;
    return m_temporary;
}

Outcome OutputFile::commit()
{
    std::error_code error;
    fs::rename(m_temporary, m_place, error);
    if (error) {
        return failOfSystem(error.value());
    }
    m_temporary.clear();
    return Outcome::Done;
}

Outcome OutputFile::write(std::span<const unsigned char> bytes)
{
    if (create().empty()) {
        return Outcome::Failed;
    }
    std::FILE* const file = std::fopen(m_temporary.c_str(), "wb");
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
    return m_job.fail(std::string("can't write ").append(m_path).append(": ").append(std::strerror(error)));
}

} // namespace pagetool
