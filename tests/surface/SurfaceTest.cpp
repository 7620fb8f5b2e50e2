// What CSurface does by itself: the state it starts with and copies, the defaults that back ends inherit, and
// the operations that lead to a virtual one.
#include "RecordingSurface.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <sstream>

#include <gtest/gtest.h>

namespace {

// Built in used memory, where a field that is left out shows.
TEST(Surface, StartsWithDefaultsInEveryField)
{
    alignas(RecordingSurface) unsigned char memory[sizeof(RecordingSurface)];
    // Plain stores into memory where an object is about to begin may be dropped.
    std::fill_n<volatile unsigned char*>(memory, sizeof memory, std::uint8_t{0xAA});
    RecordingSurface* const s = ::new (memory) RecordingSurface;
    for (const LONG number : std::initializer_list<LONG>{
             s->m_width, s->m_height, s->m_pageWidth, s->m_pageHeight, s->m_outputWidth, s->m_outputHeight,
             s->m_drawMode, s->m_clipRegion.left, s->m_clipRegion.top, s->m_clipRegion.right,
             s->m_clipRegion.bottom, s->m_viewportOriginX, s->m_viewportOriginY}) {
        EXPECT_EQ(0, number);
    }
    EXPECT_EQ(6, std::ranges::count(s->m_transform, 0.0F));
    char noName[] = "";
    EXPECT_EQ(0UL, s->m_foreColor | s->m_backColor);
    EXPECT_EQ(CSurfaceBrush(0, 1), s->m_brush);
    EXPECT_EQ(CSurfacePen(0, 0, 1), s->m_pen);
    EXPECT_EQ(CSurfaceFont(noName, 0, false, false, false, false), s->m_font);
    EXPECT_EQ(CTextStyle(255, 0, 0, 0), s->m_textStyle);
    EXPECT_FALSE(s->m_hasTransform);
    EXPECT_EQ(0U, s->m_imageIds.size());
    std::destroy_at(s);
}

TEST(Surface, AnswersForBackEndsThatDoNotOverride)
{
    RecordingSurface surface;
    RECT rect{1, 2, 3, 4};
    Array<CSurfaceTextChunk, 2> chunks;
    EXPECT_TRUE(surface.getHDC() == nullptr && surface.getEMFPlayerDestination() == nullptr);
    EXPECT_FALSE(surface.canDrawFormattedText() || surface.drawString(&chunks, &rect, 0, 1.0F, 1.0F));
    EXPECT_EQ(7, surface.requiredPictureType(7));
    surface.setBackColor(~0UL);
    EXPECT_EQ(0xFFFFFFFFUL, surface.m_backColor);
    surface.setViewportOrigin(1, 2);
    surface.setTransform(1, 2, 3, 4, 5, 6);
    const RecordingSurface copy(surface);
    surface.clearTransform();
    EXPECT_TRUE(copy.m_hasTransform && !surface.m_hasTransform);
    EXPECT_TRUE(copy.m_transform[0] == 1 && copy.m_transform[5] == 6);
    EXPECT_TRUE(copy.m_viewportOriginX == 1 && copy.m_viewportOriginY == 2);
}

TEST(Surface, ShortFormsCallTheVirtualOnes)
{
    RecordingSurface surface;
    surface.m_brush.setPicture(5);
    surface.setBrush(~0UL, 2);
    surface.setPen(~0UL, 4, 5);
    char face[] = "Arial";
    surface.setFont(face, 10, false, true, true, false);
    surface.setTextColor(6);
    surface.setBrush(nullptr);
    surface.setPen(nullptr);
    surface.setFont(nullptr);
    surface.setTextStyle(nullptr);
    EXPECT_EQ("setBrush 0xffffffff style 2 picture 0\nsetPen 0xffffffff style 4 width 5\n"
              "setFont \"Arial\" 10 italic strikethru\nsetTextColor rgb(6,0,0)\nsetForeColor rgb(6,0,0)\n"
              "setBrush null\nsetPen null\nsetFont null\n",
              surface.text());
    EXPECT_EQ(CSurfaceBrush(0xFFFFFFFFUL, 2), surface.m_brush);
    EXPECT_EQ(CSurfacePen(0xFFFFFFFFUL, 4, 5), surface.m_pen);
    EXPECT_EQ(CSurfaceFont(face, 10, false, true, true, false), surface.m_font);
    EXPECT_EQ(CTextStyle(6, 0, 0, 0), surface.m_textStyle);
    surface.setForeColor(~0UL);
    EXPECT_EQ(0xFFFFFFFFUL, surface.getForeColor());
}

TEST(Surface, AnnouncesATextStyleBeforeItTakesItOver)
{
    struct : RecordingSurface {
        void newTextStyle(CTextStyle*) override { former = m_textStyle; }
        CTextStyle former{9, 9, 9, 9};
    } surface;
    CTextStyle style(1, 2, 3, 4);
    surface.setTextStyle(&style);
    EXPECT_EQ(CTextStyle(), surface.former);
    surface.setTextRotation(5, 6);
    EXPECT_EQ(CTextStyle(1, 2, 5, 6), surface.m_textStyle);
}

TEST(Surface, NumbersImagesFromOne)
{
    RecordingSurface surface;
    EXPECT_EQ(0xFFFFFFFFU, surface.getImageIndx(0));
    EXPECT_EQ(1U, surface.addImageIndx(70));
    EXPECT_EQ(2U, surface.addImageIndx(90));
    EXPECT_EQ(3U, surface.addImageIndx(90));
    EXPECT_EQ(2U, surface.getImageIndx(90));
    RecordingSurface copy(surface);
    surface.addImageIndx(50);
    EXPECT_EQ(0xFFFFFFFFU, copy.getImageIndx(50));
}

TEST(Surface, ReportsFailedAssertions)
{
    std::ostringstream report;
    kosSetAssertHandler(
        [](const char* caption, const char* expression, const char* module, const char* file, int line,
           void* context) {
            *static_cast<std::ostringstream*>(context)
                << caption << '|' << expression << '|' << module << '|' << file << '|' << line;
        },
        &report);
    RecordingSurface().AssertFailed("count > 0", "SurfacePage", 12);
    kosSetAssertHandler(nullptr, nullptr);
    EXPECT_EQ("Tovo.exe Assertion failed|count > 0|surface|SurfacePage|12", report.str());
}

} // namespace
