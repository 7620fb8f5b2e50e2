// The reporter of the benchmarks: shows the median of each one's repetitions as it comes, and at the end the
// rates and the ratios that matter, beside their limits. One noisy run moves neither.
#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

// The benchmarks' names; each runs with the number of rows as its argument.
inline constexpr const char* floorName = "floor";
inline constexpr const char* surfaceName = "surface";
inline constexpr const char* freshSurfaceName = "surface_fresh";
inline constexpr const char* cairoName = "cairo";
inline constexpr const char* replayName = "replay";
inline constexpr const char* parseName = "parse";

// The same of the text page.
inline constexpr const char* textFloorName = "text_floor";
inline constexpr const char* textSurfaceName = "text_surface";
inline constexpr const char* textCairoName = "text_cairo";
inline constexpr const char* textReplayName = "text_replay";
inline constexpr const char* textParseName = "text_parse";

// Both pages as PostScript.
inline constexpr const char* psFloorName = "ps_floor";
inline constexpr const char* psSurfaceName = "ps_surface";
inline constexpr const char* psCairoName = "ps_cairo";
inline constexpr const char* psTextFloorName = "ps_text_floor";
inline constexpr const char* psTextSurfaceName = "ps_text_surface";
inline constexpr const char* psTextCairoName = "ps_text_cairo";

inline constexpr const char* stampName = "stamp";
inline constexpr const char* copiesName = "stamp_copies";

inline constexpr const char* plainMissName = "find_missing";
inline constexpr const char* plainHitName = "find_closing";
inline constexpr const char* wordMissName = "word_missing";
inline constexpr const char* wordHitName = "word_closing";
inline constexpr const char* scanMissName = "scan_missing";
inline constexpr const char* scanHitName = "scan_closing";

// The page operations on a metafile, with the number of its text records as their argument.
inline constexpr const char* metafileCopyName = "emf_copy";
inline constexpr const char* metafileStampName = "emf_stamp";
inline constexpr const char* metafileMissName = "emf_find_missing";
inline constexpr const char* metafileHitName = "emf_find_closing";
inline constexpr const char* metafileWordMissName = "emf_word_missing";
inline constexpr const char* metafileWordHitName = "emf_word_closing";

// The table recorded as a metafile, and drawn as pixels.
inline constexpr const char* recordName = "emf_surface";
inline constexpr const char* recordPeerName = "emf_libemf";
inline constexpr const char* pixelsName = "pixels_surface";
inline constexpr const char* pixelsCairoName = "pixels_cairo";
inline constexpr const char* pixelsSmoothName = "pixels_cairo_smooth";

// These run with the side of the image as their argument.
inline constexpr const char* pngName = "png_surface";
inline constexpr const char* pngCairoName = "png_cairo";
inline constexpr const char* bitmapName = "bmp_surface";
inline constexpr const char* bitmapCairoName = "bmp_cairo";
inline constexpr const char* psPngName = "ps_png_surface";
inline constexpr const char* psBitmapName = "ps_bmp_surface";
inline constexpr const char* psImageCairoName = "ps_image_cairo";
inline constexpr const char* psDecodeName = "ps_decode";
inline constexpr const char* psEncodeName = "ps_encode";
inline constexpr const char* psDigitsName = "ps_digits";

inline constexpr int smallTable = 50;
inline constexpr int largeTable = 5000;

// Counter of each benchmark: calls per second; drawing calls, or the texts of the page that is worked on.
inline constexpr const char* callsCounter = "calls";
// And the bytes of the page that is written or worked on.
inline constexpr const char* pageCounter = "page";

class Summary : public benchmark::ConsoleReporter {
public:
    Summary() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override;

    // A ratio of what a filter left out shows as a dash. A limit that is not kept is reported, and changes nothing
    // else.
    void print(std::ostream& out) const;

private:
    struct Median {
        std::string key;  // name and argument
        double calls = 0; // per second
        double bytes = 0; // per second
        double page = 0;  // bytes
    };

    // Zeroes when it was not measured.
    Median medianOf(const std::string& key) const;
    void printRates(std::ostream& out) const;
    void printRatios(std::ostream& out) const;
    void printRatio(std::ostream& out, const std::string& key, const std::string& baseKey,
                    double limit) const;
    void printBytes(std::ostream& out, const std::string& key, const std::string& baseKey) const;

    std::map<std::pair<std::int64_t, std::int64_t>, Median> m_medians; // in the order of registration
};
