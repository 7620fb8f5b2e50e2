#include "DocumentDevice.h"

#include <cairo-pdf.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <utility>

#include "JpegPicture.h"
#include "SvgPage.h"

namespace wingdi {

namespace {

constexpr double PointsPerInch = 72;
constexpr double MillimetersPerInch = 25.4;
constexpr double LargestPage = 5080;            // millimetres: 200 inches, the most that readers of PDF take
constexpr double MostPixels = double{64 << 20}; // of a picture: 256 MiB

// To a thousandth: what was meant as whole points stays that. Cairo cuts pages off at whole points.
double points(double millimeters)
{
    constexpr double Parts = 1000;
    return std::round(millimeters * PointsPerInch / MillimetersPerInch * Parts) / Parts;
}

const char* orNull(const std::string& text)
{
    return text.empty() ? nullptr : text.c_str();
}

// The time that SOURCE_DATE_EPOCH gives, so that the same calls make the same bytes; without it a document has none.
std::string creationDate()
{
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (epoch == nullptr || *epoch == '\0') {
        return {};
    }
    char* end = nullptr;
    const std::time_t seconds = static_cast<std::time_t>(std::strtoll(epoch, &end, 10));
    std::tm parts{};
    char text[32];
    if (*end != '\0' || gmtime_r(&seconds, &parts) == nullptr ||
        std::strftime(text, sizeof(text), "%Y-%m-%dT%H:%M:%SZ", &parts) == 0) {
        return {};
    }
    return text;
}

} // namespace

DocumentDevice::DocumentDevice(const GdiDocumentOptions& options)
    : m_kind(options.kind), m_options(options), m_pageWidth(options.pageWidth),
      m_pageHeight(options.pageHeight), m_pageDotsPerInch(options.dpi)
{
    if (options.path != nullptr) {
        m_path = options.path;
    }
    m_options.path = nullptr; // of the caller, and so are the texts
    const char* const texts[] = {options.title, options.author, options.subject, options.keywords};
    std::transform(std::begin(texts), std::end(texts), m_texts,
                   [](const char* text) { return std::string(text != nullptr ? text : ""); });
}

DocumentDevice::~DocumentDevice()
{
    abortDocument();
}

int DocumentDevice::writeBytes(void* device, const unsigned char* bytes, unsigned int length)
{
    auto& document = *static_cast<DocumentDevice*>(device);
    document.m_lost = document.m_lost || !document.m_sink || !document.m_sink->write({bytes, length});
    return document.m_lost ? CAIRO_STATUS_WRITE_ERROR : CAIRO_STATUS_SUCCESS;
}

bool DocumentDevice::startDocument(const char* name, const char* output)
{
    if (m_state != State::Idle) {
        return false;
    }
    const char* const path = output != nullptr ? output : m_path ? m_path->c_str() : nullptr;
    if (path != nullptr) {
        auto file = std::make_unique<FileSink>(path);
        m_sink = file->isOpen() ? std::move(file) : nullptr;
    } else if (m_options.write != nullptr) {
        m_sink = std::make_unique<HostSink>(m_options.write, m_options.context);
    }
    m_lost = false;
    m_pages = 0;
    if (!m_sink || (m_kind == GdiDocumentKind::Pdf && !openSurface())) {
        close();
        return false;
    }
    setMetadata(name);
    m_state = State::Document;
    return true;
}

// Of a document, or of the one page of a picture.
bool DocumentDevice::openSurface()
{
    if (m_kind == GdiDocumentKind::Pdf) {
        m_surface.reset(cairo_pdf_surface_create_for_stream(
            [](void* device, const unsigned char* bytes, unsigned int length) {
                return static_cast<cairo_status_t>(writeBytes(device, bytes, length));
            },
            this, points(m_pageWidth), points(m_pageHeight)));
    } else {
        const auto pixels = [this](double millimeters) {
            return static_cast<int>(std::lround(millimeters * pictureDotsPerInch() / MillimetersPerInch));
        };
        m_surface.reset(
            cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(m_pageWidth), pixels(m_pageHeight)));
    }
    return isSound();
}

void DocumentDevice::setMetadata(const char* name)
{
    if (m_kind != GdiDocumentKind::Pdf) {
        return;
    }
    const std::pair<cairo_pdf_metadata_t, const char*> entries[] = {
        {CAIRO_PDF_METADATA_TITLE, m_texts[0].empty() ? name : m_texts[0].c_str()},
        {CAIRO_PDF_METADATA_AUTHOR, orNull(m_texts[1])},
        {CAIRO_PDF_METADATA_SUBJECT, orNull(m_texts[2])},
        {CAIRO_PDF_METADATA_KEYWORDS, orNull(m_texts[3])},
    };
    for (const auto& [key, text] : entries) {
        if (text != nullptr) {
            cairo_pdf_surface_set_metadata(m_surface.get(), key, text);
        }
    }
    cairo_pdf_surface_set_metadata(m_surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, creationDate().c_str());
}

bool DocumentDevice::isSound() const
{
    if (m_kind == GdiDocumentKind::Svg) {
        return !m_lost;
    }
    return !m_lost && m_surface && cairo_surface_status(m_surface.get()) == CAIRO_STATUS_SUCCESS;
}

bool DocumentDevice::startPage()
{
    const bool isPicture = this->isPicture();
    if (m_state != State::Document || (m_kind != GdiDocumentKind::Pdf && m_pages > 0)) {
        return false;
    }
    setPageSize(m_pageWidth, m_pageHeight, m_pageDotsPerInch);
    if (isPicture && !openSurface()) {
        return false;
    }
    if (m_kind == GdiDocumentKind::Pdf) {
        cairo_pdf_surface_set_size(m_surface.get(), points(m_pageWidth), points(m_pageHeight));
    }
    const double width = capability(HORZRES);
    const double height = capability(VERTRES);
    if (m_kind == GdiDocumentKind::Svg) {
        m_page = std::make_unique<SvgPage>(m_pageWidth, m_pageHeight, width, height);
    } else {
        const double scale = (isPicture ? pictureDotsPerInch() : PointsPerInch) / m_pageDotsPerInch;
        m_page = std::make_unique<CairoPage>(m_surface.get(), scale, width, height);
    }
    setPage(m_page.get());
    m_state = State::Page;
    return isSound();
}

bool DocumentDevice::endPage()
{
    if (m_state != State::Page) {
        return false;
    }
    flush();
    setPage(nullptr);
    const bool painted = m_page->finish();
    if (m_kind == GdiDocumentKind::Svg) {
        m_svg = static_cast<const SvgPage&>(*m_page).bytes();
    }
    m_page.reset();
    ++m_pages;
    m_state = State::Document;
    enterTitles(painted && isSound());
    return painted && isSound();
}

// Once the page is there: cairo does not bear entries that lead to none.
void DocumentDevice::enterTitles(bool pageIsThere)
{
    const std::string place = "page=" + std::to_string(m_pages) + " pos=[0 0]";
    for (const std::string& title : m_titles) {
        if (pageIsThere) {
            cairo_pdf_surface_add_outline(m_surface.get(), CAIRO_PDF_OUTLINE_ROOT, title.c_str(),
                                          place.c_str(), CAIRO_PDF_OUTLINE_FLAG_OPEN);
        }
    }
    m_titles.clear();
}

// A document without a page is none.
bool DocumentDevice::endDocument()
{
    if (m_state == State::Page) {
        endPage();
    }
    if (m_state != State::Document) {
        return false;
    }
    const bool done = m_pages > 0 && isSound() && writeDocument() && isSound() && m_sink->commit();
    close();
    return done;
}

bool DocumentDevice::writeDocument()
{
    switch (m_kind) {
    case GdiDocumentKind::Pdf:
        cairo_surface_finish(m_surface.get());
        return true;
    case GdiDocumentKind::Picture:
        cairo_surface_write_to_png_stream(
            m_surface.get(),
            [](void* device, const unsigned char* bytes, unsigned int length) {
                return static_cast<cairo_status_t>(writeBytes(device, bytes, length));
            },
            this);
        return true;
    case GdiDocumentKind::Jpeg: {
        const JpegPicture picture(m_surface.get(), m_options.quality);
        return !picture.bytes().empty() && m_sink->write(picture.bytes());
    }
    case GdiDocumentKind::Svg:
        return m_sink->write({reinterpret_cast<const unsigned char*>(m_svg.data()), m_svg.size()});
    }
    return false;
}

bool DocumentDevice::abortDocument()
{
    if (m_state == State::Idle) {
        return false;
    }
    m_lost = true; // what the surface still writes goes nowhere
    close();
    return true;
}

void DocumentDevice::close()
{
    setPage(nullptr);
    m_page.reset();
    m_titles.clear();
    m_svg.clear();
    m_lost = true;
    m_surface.reset();
    m_sink.reset();
    m_state = State::Idle;
}

bool DocumentDevice::isPicture() const
{
    return m_kind == GdiDocumentKind::Picture || m_kind == GdiDocumentKind::Jpeg;
}

double DocumentDevice::pictureDotsPerInch() const
{
    return m_options.pictureDpi > 0 ? m_options.pictureDpi : m_pageDotsPerInch;
}

bool DocumentDevice::setNextPage(double width, double height, int dotsPerInch)
{
    constexpr int MostDotsPerInch = 9600;
    const auto isLength = [](double length) {
        return length > 0 && length <= LargestPage;
    };
    if (!isLength(width) || !isLength(height) || dotsPerInch < 0 || dotsPerInch > MostDotsPerInch ||
        m_options.pictureDpi < 0 || m_options.pictureDpi > MostDotsPerInch ||
        std::isnan(m_options.pictureDpi)) {
        return false;
    }
    const int seen = dotsPerInch > 0 ? dotsPerInch : m_pageDotsPerInch;
    const double units = seen / MillimetersPerInch;
    const double pixels = (m_options.pictureDpi > 0 ? m_options.pictureDpi : seen) / MillimetersPerInch;
    const double smallest = std::min(units, pixels) * std::min(width, height);
    if (smallest < 1 || (isPicture() && width * pixels * height * pixels > MostPixels) ||
        (m_kind == GdiDocumentKind::Jpeg && pixels * std::max(width, height) > JpegPicture::LongestSide)) {
        return false;
    }
    m_pageWidth = width;
    m_pageHeight = height;
    m_pageDotsPerInch = seen;
    if (m_state != State::Page) {
        setPageSize(width, height, seen);
    }
    return true;
}

bool DocumentDevice::addOutline(const char* title)
{
    if (m_kind != GdiDocumentKind::Pdf || m_state != State::Page || title == nullptr) {
        return false;
    }
    m_titles.emplace_back(title);
    return true;
}

} // namespace wingdi
