// The device of a document: pages one after the other, as PDF, or one as a smooth picture or as SVG for viewers. Made by gdiCreateDocument.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ByteSink.h"
#include "CairoPage.h"
#include "CairoRelease.h"
#include "VectorDevice.h"
#include "gdidevice.h"

namespace wingdi {

class DocumentDevice : public VectorDevice {
public:
    // The texts of the options are copied.
    explicit DocumentDevice(const GdiDocumentOptions& options);
    ~DocumentDevice() override;

    // Each false when it is not its turn, or failed; `name` may be null, and so may `output`, a path that takes the place
    // of the one in the options.
    bool startDocument(const char* name, const char* output);
    bool startPage();
    bool endPage();
    bool endDocument();
    bool abortDocument();

    // Of pages that begin from now on; 0: the resolution stays. False for what the form can't have.
    bool setNextPage(double width, double height, int dotsPerInch);
    bool addOutline(const char* title);

private:
    enum class State : unsigned char { Idle, Document, Page };

    bool openSurface();
    bool writeDocument();
    bool isPicture() const;
    double pictureDotsPerInch() const;
    void setMetadata(const char* name);
    void enterTitles(bool pageIsThere);
    bool isSound() const;
    void close();
    static int writeBytes(void* device, const unsigned char* bytes, unsigned int length); // cairo's status

    GdiDocumentKind m_kind;
    std::optional<std::string> m_path;
    GdiDocumentOptions m_options; // its texts are those below
    std::string m_texts[4];       // title, author, subject, keywords
    double m_pageWidth;           // millimetres
    double m_pageHeight;
    int m_pageDotsPerInch;

    State m_state = State::Idle;
    std::unique_ptr<ByteSink> m_sink;
    bool m_lost = false; // bytes that the sink did not take
    int m_pages = 0;
    std::vector<std::string> m_titles; // that lead to the page that is open
    std::unique_ptr<cairo_surface_t, CairoRelease> m_surface;
    std::unique_ptr<VectorPage> m_page;
    std::string m_svg; // the page that is done
};

} // namespace wingdi
