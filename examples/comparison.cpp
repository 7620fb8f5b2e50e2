// Whether a replay is the page that was drawn; see comparison.h.
#include "comparison.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "RecordingSurface.h"

namespace {

// What a replay writes otherwise, by the mark that a page with such a thing carries. The calls stay the same,
// but for clips of the whole page: a player ends a clip by one, which the replay keeps. With a page count go
// the blanks after it too.
struct Difference {
    const char* mark;
    const char* said;
};
constexpr const char* ClipMark = "<g clip-path='";
constexpr Difference Differences[] = {
    {ClipMark, "clips of the whole page are left out"},
    {" class='nofm'", "the page count has lost its mark"},
};

bool has(const Page& page, const char* mark)
{
    return std::string_view(reinterpret_cast<const char*>(page.data()), page.size()).find(mark) !=
           std::string_view::npos;
}

Calls withoutWholePageClips(Calls calls)
{
    RecordingSurface surface;
    RECT whole = wholePage();
    surface.setClippingRegion(&whole);
    std::erase(calls, surface.calls().back());
    return calls;
}

void showDifference(const Calls& drawn, const Calls& replay)
{
    constexpr int ShownAtMost = 3;
    int shown = 0;
    for (std::size_t i = 0; i < std::max(drawn.size(), replay.size()) && shown < ShownAtMost; ++i) {
        const std::string_view first = i < drawn.size() ? std::string_view(drawn[i]) : "(no more calls)";
        const std::string_view second = i < replay.size() ? std::string_view(replay[i]) : "(no more calls)";
        if (first != second) {
            ++shown;
            std::printf("  call %zu\n    drawn     %.*s\n    replayed  %.*s\n", i + 1,
                        static_cast<int>(first.size()), first.data(), static_cast<int>(second.size()),
                        second.data());
        }
    }
}

// Why the bytes differ, for the table; empty when it knows no reason.
std::string reasonsFor(const Page& drawn)
{
    std::string reasons;
    for (const Difference& difference : Differences) {
        if (has(drawn, difference.mark)) {
            reasons.append(reasons.empty() ? "" : "; ").append(difference.said);
        }
    }
    return reasons;
}

} // namespace

Calls callsOf(Page& page)
{
    RecordingSurface surface;
    return playOn(surface, page) ? surface.calls() : Calls();
}

Comparison compareReplay(Page& drawn, Page& replay)
{
    const Calls drawnCalls = withoutWholePageClips(callsOf(drawn));
    const Calls replayCalls = withoutWholePageClips(callsOf(replay));
    if (drawnCalls.empty() || drawnCalls != replayCalls) {
        showDifference(drawnCalls, replayCalls);
        return {false, "The replay differs."};
    }
    // A replay of the replay can differ by clips alone.
    if (!has(replay, ClipMark) && replayed(replay) != replay) {
        return {false, "The calls agree, the replay of the replay has other bytes."};
    }
    if (drawn == replay) {
        return {true, "The replay is the same page, byte for byte."};
    }
    const std::string reasons = reasonsFor(drawn);
    return reasons.empty() ? Comparison{false, "The calls agree, the bytes differ."}
                           : Comparison{true, "The calls agree; " + reasons + "."};
}
