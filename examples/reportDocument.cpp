// The report as documents; see reportDocument.h.
#include "reportDocument.h"

#include <string>

#include <gdidevice.h>

#include "reportPages.h"
#include "surfaceHdc.h"

namespace {

constexpr int UnitsPerInch = 96;

// A context for a document, begun.
class Document {
public:
    explicit Document(const GdiDocumentOptions& options) : m_context(gdiCreateDocument(&options))
    {
        DOCINFOA info{};
        info.cbSize = sizeof(info);
        m_good = StartDocA(m_context, &info) > 0;
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document() { DeleteDC(m_context); }

    void add(Page& page, const char* title)
    {
        m_good = m_good && StartPage(m_context) > 0;
        gdiAddOutline(m_context, title);
        CSurfaceHdc surface(m_context);
        m_good = m_good && playOn(surface, page);
        surface.closeSurface();
        m_good = EndPage(m_context) > 0 && m_good;
    }
    bool end() { return EndDoc(m_context) > 0 && m_good; }

private:
    HDC m_context;
    bool m_good;
};

GdiDocumentOptions optionsFor(const std::string& path)
{
    GdiDocumentOptions options;
    options.path = path.c_str();
    options.pageWidth = PageMillimetresWide;
    options.pageHeight = PageMillimetresHigh;
    options.dpi = UnitsPerInch;
    return options;
}

} // namespace

bool writeReport(std::vector<Page>& pages, const std::filesystem::path& file)
{
    const std::string path = file.string();
    GdiDocumentOptions options = optionsFor(path);
    options.title = "Energy report";
    options.author = "North site";
    Document document(options);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        document.add(pages[i], reportPages()[i].title);
    }
    return document.end();
}

bool paintSmoothly(Page& page, const std::filesystem::path& png, int dotsPerInch)
{
    const std::string path = png.string();
    GdiDocumentOptions options = optionsFor(path);
    options.kind = GdiDocumentKind::Picture;
    options.pictureDpi = dotsPerInch;
    Document document(options);
    document.add(page, "");
    return document.end();
}

Page forViewers(Page& page)
{
    Page made;
    GdiDocumentOptions options = optionsFor({});
    options.path = nullptr;
    options.kind = GdiDocumentKind::Svg;
    options.write = [](const unsigned char* bytes, std::size_t count, void* svg) {
        static_cast<Page*>(svg)->assign(bytes, bytes + count);
        return true;
    };
    options.context = &made;
    Document document(options);
    document.add(page, "");
    return document.end() ? made : Page();
}
