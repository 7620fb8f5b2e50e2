// Documents: contexts whose pages are written one after the other.
#include <memory>

#include "DeviceContext.h"
#include "DocumentDevice.h"
#include "failWith.h"
#include "gdidevice.h"

using namespace wingdi;

namespace {

template <class Step>
bool onDocument(HDC handle, const char* function, const Step& step)
{
    return onContext(handle, function, false, [&](DeviceContext& context) {
        if (context.contextKind() != ContextKind::Document) {
            return failWith(ERROR_INVALID_HANDLE, false);
        }
        return step(static_cast<DocumentDevice&>(context.device()));
    });
}

template <class Step>
int numberOf(HDC handle, const char* function, const Step& step)
{
    return onDocument(handle, function, step) ? 1 : SP_ERROR;
}

} // namespace

HDC gdiCreateDocument(const GdiDocumentOptions* options)
{
    return guarded<HDC>(nullptr, [&]() -> HDC {
        const GdiDocumentOptions wanted = options != nullptr ? *options : GdiDocumentOptions{};
        auto device = std::make_unique<DocumentDevice>(wanted);
        if (wanted.dpi < 1 || !device->setNextPage(wanted.pageWidth, wanted.pageHeight, wanted.dpi)) {
            return failWith(ERROR_INVALID_PARAMETER, nullptr);
        }
        return addContext(std::make_shared<DeviceContext>(ContextKind::Document, std::move(device)));
    });
}

bool gdiSetPageSize(HDC document, double width, double height, int dpi)
{
    return onDocument(document, "gdiSetPageSize",
                      [=](DocumentDevice& device) { return device.setNextPage(width, height, dpi); });
}

bool gdiAddOutline(HDC document, const char* title)
{
    return onDocument(document, "gdiAddOutline",
                      [=](DocumentDevice& device) { return device.addOutline(title); });
}

int gdiApproximations(HDC document)
{
    int count = 0;
    onDocument(document, "gdiApproximations", [&count](DocumentDevice& device) {
        count = device.approximations();
        return true;
    });
    return count;
}

int StartDocA(HDC context, const DOCINFOA* info)
{
    return numberOf(context, "StartDocA", [info](DocumentDevice& device) {
        return info != nullptr ? device.startDocument(info->lpszDocName, info->lpszOutput)
                               : failWith(ERROR_INVALID_PARAMETER, false);
    });
}

int StartPage(HDC context)
{
    return numberOf(context, "StartPage", [](DocumentDevice& device) { return device.startPage(); });
}

int EndPage(HDC context)
{
    return numberOf(context, "EndPage", [](DocumentDevice& device) { return device.endPage(); });
}

int EndDoc(HDC context)
{
    return numberOf(context, "EndDoc", [](DocumentDevice& device) { return device.endDocument(); });
}

int AbortDoc(HDC context)
{
    return numberOf(context, "AbortDoc", [](DocumentDevice& device) { return device.abortDocument(); });
}
