// Metafiles of other programs, whole and damaged, through all page operations.
#include "MetafileBuilder.h"
#include "metaFilePlayerEMF.h"
#include "support/SearchedPage.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace {

const std::filesystem::path Corpus = std::filesystem::path(SURFACE_CORPUS) / "emf";

std::string pageOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

int countHits(const std::string& page, PageSearch search)
{
    int hits = 0;
    for (std::string marked; !(marked = search.next(page)).empty(); ++hits) {
        EXPECT_EQ(numberAt(marked, 48), marked.size());
    }
    return hits;
}

// The words are counted; of all files, the damaged ones too, it is expected that each operation ends and keeps to
// the bytes of the page.
TEST(MetafileCorpus, IsSearchedAndStampedToItsEnd)
{
    struct Known {
        const char* text;
        int hits;
        int wordHits;
    };
    const std::map<std::string, Known> words = {
        {"test_mm_text_ref", {"ul", 1, 1}},       {"py-test-drawing1", {"arial", 2, 2}},
        {"py-test-paths1", {"StrokePath", 3, 3}}, {"py-test-worldtransform1", {"rotate 45 deg", 1, 1}},
        {"w2s-fulltest", {"overview", 1, 1}},     {"EA-test-file-001", {"Zonal Identifier", 1, 0}},
        {"fh-TestText2D", {"Graphics", 24, 0}},   {"test-022", {"M\xE9th. de Ward", 1, 1}},
    };
    if (!std::filesystem::exists(Corpus)) {
        GTEST_SKIP() << "NOT TESTED: there is no " << Corpus;
    }
    for (const auto& file : std::filesystem::recursive_directory_iterator(Corpus)) {
        std::string page = file.path().extension() == ".emf" ? pageOf(file.path()) : metafileOf({});
        if (const auto known = words.find(file.path().stem().string()); known != words.end()) {
            EXPECT_EQ(countHits(page, {known->second.text}), known->second.hits) << file;
            EXPECT_EQ(countHits(page, {known->second.text, false, true}), known->second.wordHits) << file;
        }
        for (const char* const text : {"a", "o a"}) {
            countHits(page, {text});
            countHits(page, {text, true, true});
        }
        page.insert(std::min<std::size_t>(numberAt(page, 4), page.size()), markerRecord(-9, 9000));
        std::vector<unsigned char> bytes(page.begin(), page.end());
        CMetaFilePlayer::insertPageCount(bytes.data(), static_cast<int>(bytes.size()), 1, 2);
    }
}

} // namespace
