// The functions of <windows.h> that begin, end and keep enhanced metafiles, playback apart.
#include <windows.h>

#include <cstring>
#include <memory>
#include <optional>

#include "DeviceContext.h"
#include "HandleTable.h"
#include "MetafileDevice.h"
#include "failWith.h"

using namespace wingdi;

namespace {

// The oldest of the three headers ends before the pixel format.
constexpr DWORD ShortestHeader = offsetof(ENHMETAHEADER, cbPixelFormat);
static_assert(ShortestHeader == 88);

bool beginsMetafile(const BYTE* bytes, UINT size)
{
    if (bytes == nullptr || size < ShortestHeader) {
        return false;
    }
    ENHMETAHEADER header{};
    std::memcpy(&header, bytes, ShortestHeader);
    return header.iType == EMR_HEADER && header.dSignature == ENHMETA_SIGNATURE && header.nSize % 4 == 0 &&
           header.nSize >= ShortestHeader && header.nSize <= size && header.nBytes >= header.nSize &&
           header.nBytes <= size;
}

HENHMETAFILE addMetafile(std::vector<BYTE> bytes)
{
    auto metafile = std::make_shared<MetafileObject>();
    metafile->bytes = std::move(bytes);
    return static_cast<HENHMETAFILE>(HandleTable::instance().add(std::move(metafile)));
}

std::shared_ptr<MetafileObject> findMetafile(HENHMETAFILE metafile)
{
    auto found = HandleTable::instance().find<MetafileObject>(metafile, ObjectKind::Metafile);
    if (!found) {
        SetLastError(ERROR_INVALID_HANDLE);
    }
    return found;
}

} // namespace

HDC CreateEnhMetaFileA(HDC reference, LPCSTR file, const RECT* frame, LPCSTR description)
{
    return guarded<HDC>(nullptr, [&]() -> HDC {
        if (reference != nullptr || file != nullptr || description != nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
        return addContext(
            std::make_shared<DeviceContext>(ContextKind::Metafile, std::make_unique<MetafileDevice>(frame)));
    });
}

HENHMETAFILE CloseEnhMetaFile(HDC context)
{
    return onContext<HENHMETAFILE>(context, "CloseEnhMetaFile", nullptr,
                                   [&](DeviceContext& recording) -> HENHMETAFILE {
                                       if (recording.contextKind() != ContextKind::Metafile) {
                                           return failWith(ERROR_INVALID_HANDLE, nullptr);
                                       }
                                       // The context is gone whatever comes of the recording.
                                       HandleTable::instance().remove(context);
                                       std::optional<std::vector<BYTE>> bytes =
                                           static_cast<MetafileDevice&>(recording.device()).finish();
                                       if (!bytes) {
                                           return failWith(ERROR_NOT_ENOUGH_MEMORY, nullptr);
                                       }
                                       return addMetafile(*std::move(bytes));
                                   });
}

UINT GetEnhMetaFileBits(HENHMETAFILE metafile, UINT size, BYTE* buffer)
{
    return guarded<UINT>(0, [&]() -> UINT {
        const std::shared_ptr<MetafileObject> found = findMetafile(metafile);
        if (!found) {
            return 0;
        }
        const auto length = static_cast<UINT>(found->bytes.size());
        if (buffer == nullptr) {
            return length;
        }
        if (size < length) {
            return failWith(ERROR_INSUFFICIENT_BUFFER, 0U);
        }
        std::memcpy(buffer, found->bytes.data(), length);
        return length;
    });
}

HENHMETAFILE SetEnhMetaFileBits(UINT size, const BYTE* bytes)
{
    return guarded<HENHMETAFILE>(nullptr, [&]() -> HENHMETAFILE {
        if (!beginsMetafile(bytes, size)) {
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
        return addMetafile({bytes, bytes + size});
    });
}

BOOL DeleteEnhMetaFile(HENHMETAFILE metafile)
{
    return guarded<BOOL>(FALSE, [&]() -> BOOL {
        return findMetafile(metafile) && HandleTable::instance().remove(metafile) ? TRUE : FALSE;
    });
}

BOOL GdiComment(HDC context, UINT size, const BYTE* data)
{
    return onContext<BOOL>(context, "GdiComment", FALSE, [&](DeviceContext& target) -> BOOL {
        if (data == nullptr && size != 0) {
            return failWith(ERROR_INVALID_PARAMETER, FALSE);
        }
        return target.device().comment(target, {data, size}) ? TRUE : FALSE;
    });
}
