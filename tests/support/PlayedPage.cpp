#include "support/PlayedPage.h"

#include "metaFilePlayerSVG.h"

CaughtReports::CaughtReports()
{
    krnSetLogSink(
        [](const char* line, void* reports) { static_cast<CaughtReports*>(reports)->log.emplace_back(line); },
        this);
    kosSetAssertHandler(
        [](const char* caption, const char* expression, const char* module, const char* file, int line,
           void* reports) {
            const std::string text = std::string(caption) + ": " + expression + ", " + module + ", " + file;
            static_cast<CaughtReports*>(reports)->assertions.push_back(text + (line > 0 ? "" : ", no line"));
        },
        this);
}

CaughtReports::~CaughtReports()
{
    krnSetLogSink(nullptr, nullptr);
    kosSetAssertHandler(nullptr, nullptr);
}

int playOn(CSurface& surface, const std::string& page)
{
    std::vector<unsigned char> bytes(page.begin(), page.end());
    CMetaFilePlayerSVG player(bytes.data(), static_cast<unsigned int>(bytes.size()));
    RECT rect{5, 6, 50, 60};
    return player.play(&surface, &rect);
}

PlayedPage playPage(const std::string& page)
{
    const CaughtReports reports;
    RecordingSurface surface;
    EXPECT_EQ(playOn(surface, page), 1);
    std::string calls;
    for (const std::string& call : surface.calls()) {
        calls.append(calls.empty() ? "" : "; ").append(call);
    }
    return {calls, reports.log, reports.assertions};
}

std::string framed(const std::string& content)
{
    return "<svg width='210mm' height='297mm' viewBox='0 0 100 200'>\n" + content + "</svg>\n";
}

std::string mark(int number)
{
    const std::string start = "<use x='";
    return start + std::to_string(number) + "' y='0' xlink:href='#FocusRect'/>\n";
}
