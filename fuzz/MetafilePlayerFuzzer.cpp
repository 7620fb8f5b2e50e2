// Plays any bytes as an enhanced metafile: on a page, on a page of a document, which must end well, and on a metafile, which
// must be one that plays again.
#include "gdidevice.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr RECT Target{0, 0, 64, 48};

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

void playOnDocument(HENHMETAFILE metafile)
{
    GdiDocumentOptions options;
    options.write = [](const unsigned char*, std::size_t, void*) {
        return true;
    };
    options.pageWidth = 16;
    options.pageHeight = 12;
    options.dpi = 100;
    const HDC document = gdiCreateDocument(&options);
    DOCINFOA info{};
    info.cbSize = sizeof(info);
    require(StartDocA(document, &info) > 0 && StartPage(document) > 0);
    PlayEnhMetaFile(document, metafile, &Target);
    require(EndPage(document) > 0 && EndDoc(document) > 0);
    DeleteDC(document);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // The length in the header is set right, or a changed file would not get past it.
    std::vector<BYTE> bytes(data, data + size);
    if (const auto length = static_cast<DWORD>(size); size >= sizeof(ENHMETAHEADER)) {
        std::memcpy(bytes.data() + offsetof(ENHMETAHEADER, nBytes), &length, sizeof(length));
    }
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const HENHMETAFILE metafile = SetEnhMetaFileBits(static_cast<UINT>(size), bytes.data());
    if (metafile == nullptr) {
        return 0;
    }
    GdiDeviceOptions options;
    options.width = Target.right;
    options.height = Target.bottom;
    const HDC page = gdiCreateDevice(&options);
    PlayEnhMetaFile(page, metafile, &Target);

    playOnDocument(metafile);

    const RECT frame{0, 0, 6400, 4800};
    const HDC recording = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
    PlayEnhMetaFile(recording, metafile, &Target);
    const HENHMETAFILE again = CloseEnhMetaFile(recording);
    require(again == nullptr || PlayEnhMetaFile(page, again, &Target) != FALSE);

    DeleteEnhMetaFile(again);
    DeleteEnhMetaFile(metafile);
    DeleteDC(page);
    require(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS) == before);
    return 0;
}
