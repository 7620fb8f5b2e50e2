// Metafiles of other programs, whole and damaged, through all page operations.
#include "MetafileBuilder.h"
#include "metaFilePlayerEMF.h"
#include "svgpages/SearchedPage.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

const std::filesystem::path corpus = std::filesystem::path(SURFACE_CORPUS) / "emf";

std::string pageOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string page{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    page.shrink_to_fit();
    return page;
}

// How many hits there are; the marked pages must tell their own size and number of records.
int countHits(const std::string& page, PageSearch search, bool whole)
{
    int hits = 0;
    for (std::string marked = search.next(page); !marked.empty(); marked = search.next(page), ++hits) {
        EXPECT_EQ(numberAt(marked, 48), marked.size());
        if (whole) {
            EXPECT_EQ(numberAt(marked, 52), recordsOf(marked).size());
        }
    }
    return hits;
}

TEST(MetafileCorpus, HoldsTheWordsItIsKnownFor)
{
    const struct {
        const char* file;
        const char* text;
        int hits;
        int wordHits;
    } cases[] = {
        {"test_mm_text_ref.emf", "ul", 1, 1},       {"py-test-drawing1.emf", "arial", 2, 2},
        {"py-test-paths1.emf", "StrokePath", 3, 3}, {"py-test-worldtransform1.emf", "rotate 45 deg", 1, 1},
        {"lib-check1.emf", "A larger font", 1, 1},  {"w2s-fulltest.emf", "overview", 1, 1},
        {"test-156.emf", "milwaukee", 1, 1},        {"EA-test-file-001.emf", "Zonal Identifier", 1, 0},
        {"test-022.emf", "M\xE9th. de Ward", 1, 1}, {"test-183.emf", "Hebrew text below", 1, 1},
        {"fh-TestText2D.emf", "Graphics", 24, 0},   {"test_libuemf_ref.emf", "STRETCHDI", 5, 0},
    };
    if (!std::filesystem::exists(corpus)) {
        GTEST_SKIP() << "no corpus";
    }
    for (const auto& [file, text, hits, wordHits] : cases) {
        const std::string page = pageOf(corpus / file);
        EXPECT_EQ(countHits(page, {text}, true), hits) << file;
        EXPECT_EQ(countHits(page, {text, false, true}, true), wordHits) << file;
    }
}

// Nothing is expected of the damaged ones but that each operation ends and keeps to its bytes.
TEST(MetafileCorpus, IsGoneThroughToItsEnd)
{
    if (!std::filesystem::exists(corpus)) {
        GTEST_SKIP() << "no corpus";
    }
    const std::string marker =
        recordOf(EMR_GDICOMMENT, bytesOf(DWORD{11}) + "TPC" + bytesOf(POINTL{-9, 9000}));
    for (const auto& file : std::filesystem::recursive_directory_iterator(corpus)) {
        if (file.path().extension() != ".emf") {
            continue;
        }
        std::string page = pageOf(file.path());
        for (const char* const text : {"a", "e ", "o a", "1 1"}) {
            countHits(page, {text}, false);
            countHits(page, {text, true, true}, false);
        }
        // Behind the header, so that a text of the page is the placeholder.
        page.insert(std::min<std::size_t>(numberAt(page, 4), page.size()), marker);
        page.shrink_to_fit();
        const std::size_t size = page.size();
        CMetaFilePlayer::insertPageCount(reinterpret_cast<unsigned char*>(page.data()),
                                         static_cast<int>(size), 1, 2);
        EXPECT_EQ(page.size(), size);
    }
}

} // namespace
