// Loads FreeImage, once for each place that it is set to.
#include "ImageLibrary.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <type_traits>
#include <vector>

#include <cinttypes>
#include <cwchar>

#include "AtModuleEnd.h"
#include "LoadedLibrary.h"
#include "sys/krnos.h"

using namespace krnos;
using namespace krnutil;

// FreeImage's header declares Windows types under their own names, so it gets a namespace to do that in. The
// system headers that it asks for are above and are not read again.
#if !defined(_WIN32)
#undef _WINDOWS_ // it shall declare the types itself, to be compared
#endif
namespace freeImage {
#include <FreeImage.h>
} // namespace freeImage

#if !defined(_WIN32) // where it takes the system's own types
static_assert(sizeof(::BITMAPINFO) == sizeof(freeImage::BITMAPINFO));
static_assert(offsetof(::BITMAPINFO, bmiColors) == offsetof(freeImage::BITMAPINFO, bmiColors));
static_assert(offsetof(::BITMAPINFOHEADER, biBitCount) == offsetof(freeImage::BITMAPINFOHEADER, biBitCount));
static_assert(offsetof(::BITMAPINFOHEADER, biClrUsed) == offsetof(freeImage::BITMAPINFOHEADER, biClrUsed));
static_assert(offsetof(::RGBQUAD, rgbRed) == offsetof(freeImage::RGBQUAD, rgbRed));
#endif
static_assert(int{::FIF_UNKNOWN} == int{freeImage::FIF_UNKNOWN} && int{::FIF_BMP} == int{freeImage::FIF_BMP});
static_assert(int{::FIF_ICO} == int{freeImage::FIF_ICO} && int{::FIF_JPEG} == int{freeImage::FIF_JPEG});
static_assert(int{::FIF_PNG} == int{freeImage::FIF_PNG} && int{::FIF_TIFF} == int{freeImage::FIF_TIFF});
static_assert(int{::FIF_GIF} == int{freeImage::FIF_GIF} && LoadNoPixels == FIF_LOAD_NOPIXELS);
static_assert(sizeof(krnutil::ImageReaderFunctions) == sizeof(freeImage::FreeImageIO));
static_assert(offsetof(krnutil::ImageReaderFunctions, read) == offsetof(freeImage::FreeImageIO, read_proc));
static_assert(offsetof(krnutil::ImageReaderFunctions, seek) == offsetof(freeImage::FreeImageIO, seek_proc));
static_assert(offsetof(krnutil::ImageReaderFunctions, tell) == offsetof(freeImage::FreeImageIO, tell_proc));
static_assert(int{freeImage::FIT_BITMAP} == static_cast<int>(PixelKind::Standard));
static_assert(int{freeImage::FIT_UINT16} == static_cast<int>(PixelKind::Uint16));
static_assert(int{freeImage::FIT_RGB16} == static_cast<int>(PixelKind::Rgb16));
static_assert(int{freeImage::FIT_RGBA16} == static_cast<int>(PixelKind::Rgba16));
static_assert(int{freeImage::FIT_RGBF} == static_cast<int>(PixelKind::RgbFloat));
static_assert(int{freeImage::FIT_RGBAF} == static_cast<int>(PixelKind::RgbaFloat));

namespace {

template <typename Ours, typename Theirs>
constexpr bool PassedAlike = std::is_pointer_v<Ours> ==
                                 std::is_pointer_v<Theirs>&& std::is_floating_point_v<Ours> ==
                                 std::is_floating_point_v<Theirs> &&
                             sizeof(Ours) == sizeof(Theirs);
template <>
constexpr bool PassedAlike<void, void> = true;

template <typename Ours, typename Theirs>
constexpr bool CalledAlike = false;
template <typename OurResult, typename... Ours, typename TheirResult, typename... Theirs>
requires(sizeof...(Ours) == sizeof...(Theirs)) constexpr bool CalledAlike<
    OurResult(WINAPI*)(Ours...), TheirResult(WINAPI*)(Theirs...)> = PassedAlike<OurResult, TheirResult> &&
                                                                    (PassedAlike<Ours, Theirs> && ...);

// Declared is the function as FreeImage's header has it. On Windows of 32 bits its name may be decorated: an underscore in
// front, and after it the bytes of the arguments.
template <typename Declared, typename Result, typename... Arguments>
bool find(void* handle, const char* name, Result(WINAPI*& function)(Arguments...)) noexcept
{
    using Function = Result(WINAPI*)(Arguments...);
    static_assert(CalledAlike<Function, Declared*>);
    function = reinterpret_cast<Function>(findFunction(handle, name));
#if defined(_WIN32) && !defined(_WIN64)
    if (function == nullptr) {
        constexpr std::size_t Bytes = (0 + ... + ((sizeof(Arguments) + 3) / 4 * 4));
        char decorated[64];
        std::snprintf(decorated, sizeof(decorated), "_%s@%u", name, static_cast<unsigned int>(Bytes));
        function = reinterpret_cast<Function>(findFunction(handle, decorated));
    }
#endif
    return function != nullptr;
}

bool findStreams(void* handle, ImageLibrary& library) noexcept
{
    using namespace freeImage;
    return find<decltype(FreeImage_OpenMemory)>(handle, "FreeImage_OpenMemory", library.openMemory) &&
           find<decltype(FreeImage_CloseMemory)>(handle, "FreeImage_CloseMemory", library.closeMemory) &&
           find<decltype(FreeImage_AcquireMemory)>(handle, "FreeImage_AcquireMemory",
                                                   library.acquireMemory) &&
           find<decltype(FreeImage_GetFileTypeFromMemory)>(handle, "FreeImage_GetFileTypeFromMemory",
                                                           library.getFileTypeFromMemory) &&
           find<decltype(FreeImage_SaveToMemory)>(handle, "FreeImage_SaveToMemory", library.saveToMemory) &&
           find<decltype(FreeImage_GetFileTypeFromHandle)>(handle, "FreeImage_GetFileTypeFromHandle",
                                                           library.getFileTypeFromHandle) &&
           find<decltype(FreeImage_ValidateFromHandle)>(handle, "FreeImage_ValidateFromHandle",
                                                        library.validateFromHandle) &&
           find<decltype(FreeImage_LoadFromHandle)>(handle, "FreeImage_LoadFromHandle",
                                                    library.loadFromHandle) &&
           find<decltype(FreeImage_FIFSupportsNoPixels)>(handle, "FreeImage_FIFSupportsNoPixels",
                                                         library.fifSupportsNoPixels) &&
           find<decltype(FreeImage_FIFSupportsExportBPP)>(handle, "FreeImage_FIFSupportsExportBPP",
                                                          library.fifSupportsExportBPP) &&
           find<decltype(FreeImage_GetFIFCount)>(handle, "FreeImage_GetFIFCount", library.getFIFCount);
}

bool findBitmaps(void* handle, ImageLibrary& library) noexcept
{
    using namespace freeImage;
    return find<decltype(FreeImage_Unload)>(handle, "FreeImage_Unload", library.unload) &&
           find<decltype(FreeImage_GetInfo)>(handle, "FreeImage_GetInfo", library.getInfo) &&
           find<decltype(FreeImage_GetBits)>(handle, "FreeImage_GetBits", library.getBits) &&
           find<decltype(FreeImage_GetImageType)>(handle, "FreeImage_GetImageType", library.getImageType) &&
           find<decltype(FreeImage_ConvertTo8Bits)>(handle, "FreeImage_ConvertTo8Bits",
                                                    library.convertTo8Bits) &&
           find<decltype(FreeImage_ConvertTo24Bits)>(handle, "FreeImage_ConvertTo24Bits",
                                                     library.convertTo24Bits) &&
           find<decltype(FreeImage_ConvertTo32Bits)>(handle, "FreeImage_ConvertTo32Bits",
                                                     library.convertTo32Bits) &&
           find<decltype(FreeImage_ConvertToStandardType)>(handle, "FreeImage_ConvertToStandardType",
                                                           library.convertToStandardType) &&
           find<decltype(FreeImage_ToneMapping)>(handle, "FreeImage_ToneMapping", library.toneMapping);
}

// Damaged images are a matter of course here and nothing for the process's standard error. The library itself
// is silent when nobody listens to it, which a null handler says without leaving a pointer into this module
// behind; the TIFF library under it speaks up unless it is told not to.
void silence(void* handle) noexcept
{
    using TiffHandler = void(const char* module, const char* format, std::va_list arguments);
    using SetTiffHandler = TiffHandler*(TiffHandler*);
    void(WINAPI * setOutputMessage)(freeImage::FreeImage_OutputMessageFunction) = nullptr;
    if (find<decltype(freeImage::FreeImage_SetOutputMessage)>(handle, "FreeImage_SetOutputMessage",
                                                              setOutputMessage)) {
        setOutputMessage(nullptr);
    }
    for (const char* const name : {"TIFFSetErrorHandler", "TIFFSetWarningHandler"}) {
        if (auto* const setHandler = reinterpret_cast<SetTiffHandler*>(findFunction(handle, name))) {
            setHandler(nullptr);
        }
    }
}

class ImageLibraries {
public:
    void setPath(const char* path)
    {
        std::string copy = path != nullptr ? path : DefaultName;
        const std::lock_guard lock(m_mutex);
        m_path = std::move(copy);
        m_tried = false;
    }

    const ImageLibrary* current()
    {
        const std::lock_guard lock(m_mutex);
        if (!m_tried) {
            m_current = load(m_path.c_str());
            m_tried = true;
        }
        return m_current;
    }

private:
    struct Loaded {
        void* handle;
        std::unique_ptr<const ImageLibrary> library;
    };

    const ImageLibrary* load(const char* path)
    {
        // What needs memory comes first, so that a library which was opened is never lost.
        auto library = std::make_unique<ImageLibrary>();
        m_loaded.reserve(m_loaded.size() + 1);
        void* const handle = openLibrary(path);
        if (handle == nullptr) {
            return nullptr;
        }
        for (const Loaded& loaded : m_loaded) {
            if (loaded.handle == handle) {
                closeLibrary(handle);
                return loaded.library.get();
            }
        }
        if (!findStreams(handle, *library) || !findBitmaps(handle, *library)) {
            closeLibrary(handle);
            return nullptr;
        }
        silence(handle);
        return m_loaded.emplace_back(Loaded{handle, std::move(library)}).library.get();
    }

#if defined(_WIN32)
    static constexpr char DefaultName[] = "FreeImage.dll";
#else
    static constexpr char DefaultName[] = "libfreeimage.so.3";
#endif

    std::mutex m_mutex;
    std::string m_path = DefaultName;
    bool m_tried = false;
    const ImageLibrary* m_current = nullptr;
    std::vector<Loaded> m_loaded;
};

// Ends last, since static objects may hold a bitmap to the end. The libraries themselves stay loaded.
ImageLibraries& imageLibraries()
{
    static ImageLibraries* const Libraries = new ImageLibraries;
    static const AtModuleEnd End([] { delete Libraries; });
    return *Libraries;
}

} // namespace

const ImageLibrary* currentImageLibrary()
{
    try {
        return imageLibraries().current();
    } catch (const std::bad_alloc&) {
        krnOutOfMemory();
    }
}

void krnSetImageLibrary(const char* path)
{
    try {
        imageLibraries().setPath(path);
    } catch (const std::bad_alloc&) {
        krnOutOfMemory();
    }
}
