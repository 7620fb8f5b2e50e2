// Keeps cairo, and with it FreeType and fontconfig, in the process when this module is unloaded: they have caches that
// nobody empties, and each reload would begin with new ones.
#include <dlfcn.h>

#include <cairo.h>

namespace {

// By an address in it, whatever the file of the library is called.
bool keepLoaded(void* inside) noexcept
{
    Dl_info info{};
    if (dladdr(inside, &info) == 0 || info.dli_fname == nullptr) {
        return false;
    }
    void* const library = dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
    if (library != nullptr) {
        dlclose(library); // the flag stays
    }
    return library != nullptr;
}

[[maybe_unused]] const bool CairoStays = keepLoaded(reinterpret_cast<void*>(&cairo_version));

} // namespace
