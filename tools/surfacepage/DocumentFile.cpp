#include "DocumentFile.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <utility>

#include "gdidevice.h"
#include "surfaceHdc.h"

namespace pagetool {

namespace {

namespace fs = std::filesystem;

constexpr double HundredthsPerMillimetre = 100;

int rounded(double value)
{
    constexpr double Farthest = 1e9;
    return static_cast<int>(std::lround(std::clamp(value, -Farthest, Farthest)));
}

// The last part of the name, as readers show it.
std::string outlineTitle(const std::string& file)
{
    return fs::path(file).stem().string();
}

} // namespace

int ownDotsPerInch(const Sheet& sheet)
{
    constexpr double HundredthsPerInch = 2540;
    constexpr double Least = 24;
    constexpr double Most = 2400;
    const double own = sheet.devicePixels * HundredthsPerInch / static_cast<double>(sheet.width);
    return own >= Least && own <= Most ? static_cast<int>(std::lround(own)) : 600;
}

bool playOver(HDC device, PlayedPage& page, const PictureSize* part)
{
    int width = GetDeviceCaps(device, HORZRES);
    int height = GetDeviceCaps(device, VERTRES);
    const int saved = SaveDC(device);
    if (part != nullptr) {
        // The whole page goes on, with the part that is shown over the device.
        const auto& [left, top, right, bottom] = part->shown;
        const double across = static_cast<double>(width) / (right - left);
        const double down = static_cast<double>(height) / (bottom - top);
        width = rounded(part->pixels.cx * across);
        height = rounded(part->pixels.cy * down);
        SetViewportOrgEx(device, rounded(-left * across), rounded(-top * down), nullptr);
    }
    bool played = false;
    {
        CSurfaceHdc surface(device);
        played = page.play(surface, width, height);
        surface.closeSurface();
    }
    RestoreDC(device, saved);
    return played;
}

DocumentFile::DocumentFile(std::string path, DocumentTexts texts, const OverwriteRule& rule)
    : m_path(std::move(path)), m_texts(std::move(texts)), m_rule(rule)
{
}

DocumentFile::~DocumentFile()
{
    if (m_device != nullptr) {
        DeleteDC(m_device);
    }
}

std::string DocumentFile::open()
{
    if (std::string objection = m_rule.objectionTo(m_path); !objection.empty()) {
        return objection;
    }
    std::error_code error;
    const fs::path place = fs::weakly_canonical(m_path, error);
    if (error || (fs::exists(place, error) && !fs::is_regular_file(place, error))) {
        return "it is no regular file";
    }
    const std::string file = place.string();
    GdiDocumentOptions options;
    options.path = file.c_str();
    options.title = m_texts.title.c_str();
    options.author = m_texts.author.c_str();
    m_device = gdiCreateDocument(&options);
    if (m_device == nullptr) {
        return GetLastError() == ERROR_NOT_SUPPORTED ? "PDF is not made on this system"
                                                     : "there is not enough memory";
    }
    DOCINFOA info{};
    info.cbSize = sizeof(info);
    errno = 0;
    if (StartDocA(m_device, &info) <= 0) {
        return errno != 0 ? std::strerror(errno) : "the document can't be begun";
    }
    return {};
}

Outcome DocumentFile::add(FileJob& job, PlayedPage& page)
{
    if (m_device == nullptr && m_problem.empty()) {
        m_problem = open();
        if (!m_problem.empty()) {
            job.complain(std::string("can't write ").append(m_path).append(": ").append(m_problem));
        }
    }
    if (!m_problem.empty()) {
        return Outcome::Failed;
    }
    const Sheet& sheet = page.sheet();
    if (!gdiSetPageSize(m_device, static_cast<double>(sheet.width) / HundredthsPerMillimetre,
                        static_cast<double>(sheet.height) / HundredthsPerMillimetre, ownDotsPerInch(sheet))) {
        return job.fail("is larger than a page of a PDF can be");
    }
    if (StartPage(m_device) <= 0) {
        m_problem = "the page can't be begun";
        return job.fail(m_problem);
    }
    gdiAddOutline(m_device, outlineTitle(job.file()).c_str());
    const bool played = playOver(m_device, page);
    if (EndPage(m_device) <= 0) {
        m_problem = "the document can't be written";
        return job.fail(m_problem);
    }
    return played ? Outcome::Done : job.fail("can't be played: the page is damaged");
}

std::string DocumentFile::finish()
{
    if (m_device == nullptr || !m_problem.empty()) {
        return {};
    }
    const bool done = EndDoc(m_device) > 0;
    DeleteDC(std::exchange(m_device, nullptr));
    return done ? std::string() : std::string("can't write ").append(m_path);
}

} // namespace pagetool
