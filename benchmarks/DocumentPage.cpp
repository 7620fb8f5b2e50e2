#include "DocumentPage.h"

#include <iostream>
#include <stdexcept>

#include <gdidevice.h>
#include <malloc.h>

#include "ImagePage.h"
#include "TablePage.h"
#include "TextPage.h"
#include "surfaceHdc.h"

namespace {

// A logical unit is a point, as on cairo's page, and ten of the units that the document's context counts in.
constexpr double MillimetersPerPoint = 25.4 / 72;
constexpr int DotsPerInch = 720;
constexpr int DotsPerUnit = 10;

bool append(const unsigned char* bytes, std::size_t count, void* document)
{
    if (document != nullptr) {
        static_cast<std::string*>(document)->append(reinterpret_cast<const char*>(bytes), count);
    }
    return true;
}

class Document {
public:
    // Without a text to append to, its bytes are thrown away.
    Document(const RECT& bounds, std::string* document)
    {
        GdiDocumentOptions options;
        options.write = append;
        options.context = document;
        options.pageWidth = bounds.right * MillimetersPerPoint;
        options.pageHeight = bounds.bottom * MillimetersPerPoint;
        options.dpi = DotsPerInch;
        m_context = gdiCreateDocument(&options);
        DOCINFOA info{};
        info.cbSize = sizeof(info);
        require(StartDocA(m_context, &info) > 0);
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document() { DeleteDC(m_context); }

    template <class Draw>
    void add(Draw draw)
    {
        require(StartPage(m_context) > 0);
        {
            CSurfaceHdc surface(m_context, {DotsPerUnit, DotsPerUnit}, {1, 1});
            surface.setMapMode(MM_ANISOTROPIC);
            draw(surface);
            surface.closeSurface();
        }
        require(EndPage(m_context) > 0);
    }

    void end() { require(EndDoc(m_context) > 0); }

private:
    static void require(bool done)
    {
        if (!done) {
            throw std::runtime_error("the document was not written");
        }
    }

    HDC m_context;
};

template <class Draw>
void makeOnePage(const RECT& bounds, std::string& bytes, Draw draw)
{
    bytes.clear();
    Document document(bounds, &bytes);
    document.add(draw);
    document.end();
}

void addPage(Document& document, int page)
{
    document.add([page](CSurfaceHdc& surface) {
        if (page % 2 == 0) {
            drawTable(surface, RowsOfManyPages);
        } else {
            drawSurfaceText(surface, RowsOfManyPages);
        }
    });
}

} // namespace

void makeDocumentTable(int rows, std::string& document)
{
    makeOnePage(tableBounds(rows), document, [rows](CSurfaceHdc& surface) { drawTable(surface, rows); });
}

void makeDocumentText(int rows, std::string& document)
{
    makeOnePage(textBounds(rows), document, [rows](CSurfaceHdc& surface) { drawSurfaceText(surface, rows); });
}

void makeDocumentImage(std::string& image, int pictureType, std::string& document)
{
    makeOnePage({0, 0, ImageSide, ImageSide}, document,
                [&](CSurfaceHdc& surface) { drawImageOn(surface, image, pictureType); });
}

void makeDocument(int pages, std::string& bytes)
{
    bytes.clear();
    Document document(textBounds(RowsOfManyPages), &bytes);
    for (int page = 0; page < pages; ++page) {
        addPage(document, page);
    }
    document.end();
}

void makeCairoDocument(int pages, std::string& bytes)
{
    writeCairoPage(PageFormat::Pdf, textBounds(RowsOfManyPages), bytes, [pages](cairo_t* cairo) {
        for (int page = 0; page < pages; ++page) {
            cairo_save(cairo);
            if (page % 2 == 0) {
                drawCairoTable(cairo, RowsOfManyPages);
            } else {
                drawCairoText(cairo, RowsOfManyPages);
            }
            cairo_restore(cairo);
            cairo_show_page(cairo);
        }
    });
}

bool documentsStream()
{
    constexpr int FirstPages = 100; // faces are loaded, lists have their first room
    constexpr int Pages = 1000;
    constexpr std::size_t MostBytesPerPage = 2048;
    Document document(textBounds(RowsOfManyPages), nullptr);
    std::size_t before = 0;
    for (int page = 0; page < FirstPages + Pages; ++page) {
        if (page == FirstPages) {
            before = mallinfo2().uordblks + mallinfo2().hblkhd;
        }
        addPage(document, page);
    }
    const std::size_t after = mallinfo2().uordblks + mallinfo2().hblkhd;
    document.end();
    const std::size_t perPage = after > before ? (after - before) / Pages : 0;
    if (perPage > MostBytesPerPage) {
        std::cerr << "a document grows by " << perPage << " bytes of memory a page\n";
    }
    return perPage <= MostBytesPerPage;
}
