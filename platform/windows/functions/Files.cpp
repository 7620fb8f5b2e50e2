// Files and their read-only mappings, by the calls of POSIX.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "AtModuleEnd.h"
#include "DeviceContext.h"
#include "failWith.h"

using namespace krnos;
using namespace wingdi;

namespace {

// A file of the system, which is closed with it.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor) noexcept : m_descriptor(descriptor) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    FileDescriptor(FileDescriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&&) = delete;
    ~FileDescriptor()
    {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }
    int get() const noexcept { return m_descriptor; }

private:
    int m_descriptor;
};

// A file, or a mapping of its first bytes, which keeps the file open.
struct OpenFile {
    std::shared_ptr<FileDescriptor> descriptor;
    std::uint64_t size = 0;
    bool isMapping = false;
};

// Handles count up and are never given out again. Views are known by their address.
class OpenFiles {
public:
    static OpenFiles& instance()
    {
        static OpenFiles& files = *new OpenFiles; // for every thread until the module ends
        static const AtModuleEnd End([] { delete &files; });
        return files;
    }

    HANDLE add(OpenFile file)
    {
        const std::lock_guard lock(m_mutex);
        m_next += 4;
        m_files.emplace(m_next, std::move(file));
        return std::bit_cast<HANDLE>(m_next);
    }

    // An OpenFile without a descriptor for a handle that names none.
    OpenFile find(HANDLE handle, bool isMapping)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_files.find(std::bit_cast<ULONG_PTR>(handle));
        return found != m_files.end() && found->second.isMapping == isMapping ? found->second : OpenFile{};
    }

    bool remove(HANDLE handle)
    {
        const std::lock_guard lock(m_mutex);
        return m_files.erase(std::bit_cast<ULONG_PTR>(handle)) != 0;
    }

    void addView(void* address, std::size_t size)
    {
        const std::lock_guard lock(m_mutex);
        m_views.emplace(address, size);
    }

    // The size of the view; 0 for an address where none begins.
    std::size_t removeView(const void* address)
    {
        const std::lock_guard lock(m_mutex);
        const auto view = m_views.extract(address);
        return view.empty() ? 0 : view.mapped();
    }

private:
    std::mutex m_mutex;
    std::map<ULONG_PTR, OpenFile> m_files;
    std::map<const void*, std::size_t> m_views;
    ULONG_PTR m_next = 0x10000;
};

DWORD openError() noexcept
{
    return errno == ENOENT || errno == ENOTDIR ? ERROR_FILE_NOT_FOUND : ERROR_ACCESS_DENIED;
}

std::uint64_t joined(DWORD high, DWORD low) noexcept
{
    return (std::uint64_t{high} << 32) | low;
}

// Views begin at multiples of this, and in a file at multiples of the memory page, which divides it.
constexpr std::uint64_t ViewGranularity = 65536;

} // namespace

// A pipe or a device is refused, and must not make the caller wait before that.
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD /*share*/, void* /*security*/, DWORD disposition,
                   DWORD /*attributes*/, HANDLE /*model*/)
{
    if (path == nullptr || access != GENERIC_READ || disposition != OPEN_EXISTING) {
        return failWith(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    }
    return guarded<HANDLE>(INVALID_HANDLE_VALUE, [&] {
        FileDescriptor opened(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)); // NOLINT(*-vararg)
        if (opened.get() < 0) {
            return failWith(openError(), INVALID_HANDLE_VALUE);
        }
        struct stat status {};
        if (fstat(opened.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
            return failWith(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE);
        }
        OpenFile file{std::make_shared<FileDescriptor>(std::move(opened))};
        file.size = static_cast<std::uint64_t>(status.st_size);
        return OpenFiles::instance().add(std::move(file));
    });
}

BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size)
{
    return guarded(FALSE, [&] {
        const OpenFile found = OpenFiles::instance().find(file, false);
        if (!found.descriptor || size == nullptr) {
            return failWith(ERROR_INVALID_HANDLE, FALSE);
        }
        size->QuadPart = static_cast<std::int64_t>(found.size);
        return TRUE;
    });
}

HANDLE CreateFileMappingA(HANDLE file, void* /*security*/, DWORD protection, DWORD sizeHigh, DWORD sizeLow,
                          LPCSTR name)
{
    return guarded<HANDLE>(nullptr, [&]() -> HANDLE {
        OpenFile found = OpenFiles::instance().find(file, false);
        if (!found.descriptor) {
            return failWith(ERROR_INVALID_HANDLE, nullptr);
        }
        const std::uint64_t size = joined(sizeHigh, sizeLow);
        if (protection != PAGE_READONLY || name != nullptr || size > found.size) {
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
        if (found.size == 0) {
            return failWith(ERROR_FILE_INVALID, nullptr);
        }
        found.size = size != 0 ? size : found.size;
        found.isMapping = true;
        return OpenFiles::instance().add(std::move(found));
    });
}

void* MapViewOfFile(HANDLE mapping, DWORD access, DWORD offsetHigh, DWORD offsetLow, std::size_t size)
{
    return guarded<void*>(nullptr, [&]() -> void* {
        const OpenFile found = OpenFiles::instance().find(mapping, true);
        if (!found.descriptor) {
            return failWith(ERROR_INVALID_HANDLE, nullptr);
        }
        const std::uint64_t offset = joined(offsetHigh, offsetLow);
        if (access != FILE_MAP_READ || offset % ViewGranularity != 0 || offset >= found.size ||
            size > found.size - offset) {
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
        const std::uint64_t wanted = size != 0 ? size : found.size - offset;
        if (wanted > std::numeric_limits<std::size_t>::max()) {
            return failWith(ERROR_NOT_ENOUGH_MEMORY, nullptr);
        }
        const auto length = static_cast<std::size_t>(wanted);
        void* view = mmap(nullptr, length, PROT_READ, MAP_PRIVATE, found.descriptor->get(),
                          static_cast<off_t>(offset));
        if (view == MAP_FAILED) { // NOLINT(*-cstyle-cast,performance-no-int-to-ptr): the system's macro
            return failWith(ERROR_NOT_ENOUGH_MEMORY, nullptr);
        }
        try {
            OpenFiles::instance().addView(view, length);
        } catch (...) {
            munmap(view, length);
            throw;
        }
        return view;
    });
}

BOOL UnmapViewOfFile(const void* view)
{
    return guarded(FALSE, [&] {
        const std::size_t size = OpenFiles::instance().removeView(view);
        if (size == 0) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        munmap(const_cast<void*>(view), size); // NOLINT(*-const-cast): the system's parameter type
        return TRUE;
    });
}

BOOL CloseHandle(HANDLE handle)
{
    return guarded(FALSE, [&] {
        return OpenFiles::instance().remove(handle) ? TRUE : failWith(ERROR_INVALID_HANDLE, FALSE);
    });
}
