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
inline constexpr const char* FloorName = "floor";
inline constexpr const char* SurfaceName = "surface";
inline constexpr const char* FreshSurfaceName = "surface_fresh";
inline constexpr const char* CairoName = "cairo";
inline constexpr const char* ReplayName = "replay";
inline constexpr const char* ParseName = "parse";

// The same of the text page.
inline constexpr const char* TextFloorName = "text_floor";
inline constexpr const char* TextSurfaceName = "text_surface";
inline constexpr const char* TextCairoName = "text_cairo";
inline constexpr const char* TextReplayName = "text_replay";
inline constexpr const char* TextParseName = "text_parse";

// Both pages as PostScript.
inline constexpr const char* PsFloorName = "ps_floor";
inline constexpr const char* PsSurfaceName = "ps_surface";
inline constexpr const char* PsCairoName = "ps_cairo";
inline constexpr const char* PsTextFloorName = "ps_text_floor";
inline constexpr const char* PsTextSurfaceName = "ps_text_surface";
inline constexpr const char* PsTextCairoName = "ps_text_cairo";

inline constexpr const char* StampName = "stamp";
inline constexpr const char* CopiesName = "stamp_copies";

inline constexpr const char* PlainMissName = "find_missing";
inline constexpr const char* PlainHitName = "find_closing";
inline constexpr const char* WordMissName = "word_missing";
inline constexpr const char* WordHitName = "word_closing";
inline constexpr const char* ScanMissName = "scan_missing";
inline constexpr const char* ScanHitName = "scan_closing";

// The page operations on a metafile, with the number of its text records as their argument.
inline constexpr const char* MetafileCopyName = "emf_copy";
inline constexpr const char* MetafileStampName = "emf_stamp";
inline constexpr const char* MetafileMissName = "emf_find_missing";
inline constexpr const char* MetafileHitName = "emf_find_closing";
inline constexpr const char* MetafileWordMissName = "emf_word_missing";
inline constexpr const char* MetafileWordHitName = "emf_word_closing";

// The table recorded as a metafile, and drawn as pixels.
inline constexpr const char* RecordName = "emf_surface";
inline constexpr const char* RecordPeerName = "emf_libemf";
inline constexpr const char* PixelsName = "pixels_surface";
inline constexpr const char* PixelsCairoName = "pixels_cairo";
inline constexpr const char* PixelsSmoothName = "pixels_cairo_smooth";

// These run with the side of the image as their argument.
inline constexpr const char* PngName = "png_surface";
inline constexpr const char* PngCairoName = "png_cairo";
inline constexpr const char* BitmapName = "bmp_surface";
inline constexpr const char* BitmapCairoName = "bmp_cairo";
inline constexpr const char* PsPngName = "ps_png_surface";
inline constexpr const char* PsBitmapName = "ps_bmp_surface";
inline constexpr const char* PsImageCairoName = "ps_image_cairo";
inline constexpr const char* PsDecodeName = "ps_decode";
inline constexpr const char* PsEncodeName = "ps_encode";
inline constexpr const char* PsDigitsName = "ps_digits";

// Both pages and the image as PDF; the last two with the number of their pages as argument.
inline constexpr const char* PdfName = "pdf_surface";
inline constexpr const char* PdfCairoName = "pdf_cairo";
inline constexpr const char* PdfTextName = "pdf_text_surface";
inline constexpr const char* PdfTextCairoName = "pdf_text_cairo";
inline constexpr const char* PdfImageName = "pdf_bmp_surface";
inline constexpr const char* PdfImageCairoName = "pdf_bmp_cairo";
inline constexpr const char* PdfPagesName = "pdf_pages_surface";
inline constexpr const char* PdfPagesCairoName = "pdf_pages_cairo";
inline constexpr int ManyPages = 1000;

inline constexpr int SmallTable = 50;
inline constexpr int LargeTable = 5000;

// Counter of each benchmark: calls per second; drawing calls, or the texts of the page that is worked on.
inline constexpr const char* CallsCounter = "calls";
// And the bytes of the page that is written or worked on.
inline constexpr const char* PageCounter = "page";

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
    void printBytes(std::ostream& out, const std::string& key, const std::string& baseKey,
                    double limit) const;
    static void printAgainstLimit(std::ostream& out, const std::string& key, const std::string& baseKey,
                                  double value, double limit);

    std::map<std::pair<std::int64_t, std::int64_t>, Median> m_medians; // in the order of registration
};
