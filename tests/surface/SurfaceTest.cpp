// What CSurface does by itself: the state it starts with and copies, the defaults that back ends inherit, and
// the operations that lead to a virtual one.
#include "surface.h"

#include <cstring>
#include <memory>
#include <new>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "support/RecordingSurface.h"

namespace {

std::string stateOf(CSurface& s)
{
    std::ostringstream out;
    out << s.m_width << ' ' << s.m_height << ' ' << s.m_pageWidth << ' ' << s.m_pageHeight << ' '
        << s.m_outputWidth << ' ' << s.m_outputHeight << ' ' << s.m_drawMode << ' ' << s.m_foreColor << ' '
        << s.m_backColor << " | " << s.m_brush.getColor() << ' ' << s.m_brush.getStyle() << ' '
        << s.m_brush.getPicture() << " | " << s.m_pen.getColor() << ' ' << s.m_pen.getStyle() << ' '
        << s.m_pen.getWidth() << " | " << s.m_font.getFaceName() << ' ' << s.m_font.getSize() << ' '
        << s.m_font.getBold() << s.m_font.getItalic() << s.m_font.getUnderline() << s.m_font.getStrikethru()
        << " | " << s.m_textStyle.getColor() << ' ' << s.m_textStyle.getStyle() << ' '
        << s.m_textStyle.getCharAngle() << ' ' << s.m_textStyle.getTextAngle() << " | " << s.m_clipRegion.left
        << ' ' << s.m_clipRegion.top << ' ' << s.m_clipRegion.right << ' ' << s.m_clipRegion.bottom << " | "
        << s.m_viewportOriginX << ' ' << s.m_viewportOriginY << " |";
    for (const float number : s.m_transform) {
        out << ' ' << number;
    }
    out << ' ' << s.m_hasTransform << " |";
    for (unsigned int index = 0; index < s.m_imageIds.size(); ++index) {
        out << ' ' << s.m_imageIds[index];
    }
    return out.str();
}

// Changes every field, each in its own way.
void fill(CSurface& surface)
{
    int number = 0;
    for (int* field : {&surface.m_width, &surface.m_height, &surface.m_pageWidth, &surface.m_pageHeight,
                       &surface.m_outputWidth, &surface.m_outputHeight, &surface.m_drawMode}) {
        *field = ++number;
    }
    surface.setTextColor(8);
    surface.setTextRotation(9, 10);
    surface.setForeColor(11);
    surface.setBackColor(~0UL);
    surface.m_brush.setPicture(12);
    surface.setPen(13, 14, 15);
    char face[] = "Arial";
    surface.setFont(face, 16, true, true, true, true);
    surface.m_clipRegion = {17, 18, 19, 20};
    surface.setViewportOrigin(21, 22);
    surface.setTransform(23, 24, 25, 26, 27, 28);
    surface.addImageIndx(29);
}

constexpr const char* freshState =
    "0 0 0 0 0 0 0 0 0 | 0 1 0 | 0 0 1 |  0 0000 | 255 0 0 0 | 0 0 0 0 | 0 0 | 0 0 0 0 0 0 0 |";
constexpr const char* filledState =
    "1 2 3 4 5 6 7 11 4294967295 | 0 99 12 | 13 14 15 | Arial 16 1111 | 8 0 9 10 "
    "| 17 18 19 20 | 21 22 | 23 24 25 26 27 28 1 | 29";

// Built in used memory: a field that is left out shows.
TEST(Surface, StartsWithDefaultsInEveryField)
{
    alignas(RecordingSurface) unsigned char memory[sizeof(RecordingSurface)];
    std::memset(memory, 0xAA, sizeof memory);
    RecordingSurface* const surface = ::new (memory) RecordingSurface;
    EXPECT_EQ(freshState, stateOf(*surface));
    std::destroy_at(surface);
}

TEST(Surface, CopiesEveryFieldAndSharesNone)
{
    RecordingSurface original;
    fill(original);
    RecordingSurface copy(original);
    RecordingSurface assigned;
    assigned = original;
    original.addImageIndx(30);
    original.clearTransform();
    EXPECT_EQ(filledState, stateOf(copy));
    EXPECT_EQ(filledState, stateOf(assigned));
}

TEST(Surface, AnswersForBackEndsThatDoNotOverride)
{
    RecordingSurface surface;
    RECT rect{1, 2, 3, 4};
    Array<CSurfaceTextChunk, 2> chunks;
    EXPECT_EQ(nullptr, surface.getHDC());
    EXPECT_EQ(nullptr, surface.getEMFPlayerDestination());
    EXPECT_FALSE(surface.canDrawFormattedText());
    EXPECT_FALSE(surface.drawString(&chunks, &rect, 0, 1.0F, 1.0F));
    EXPECT_EQ(7, surface.requiredPictureType(7));
    surface.drawStringRotated("text", &rect, 0, 30, 40);
    surface.prepareSurface();
    EXPECT_EQ(freshState, stateOf(surface));
}

TEST(Surface, IgnoresNullAttributes)
{
    RecordingSurface surface;
    surface.setBrush(nullptr);
    surface.setPen(nullptr);
    surface.setFont(nullptr);
    surface.setTextStyle(nullptr);
    EXPECT_EQ(freshState, stateOf(surface));
}

TEST(Surface, ShortFormsCallTheVirtualOnes)
{
    RecordingSurface surface;
    surface.m_brush.setPicture(5);
    surface.setBrush(1, 2);
    surface.setPen(3, 4, 5);
    char face[] = "Arial";
    surface.setFont(face, 10, false, true, true, false);
    surface.setTextColor(~0UL);
    EXPECT_EQ("setBrush rgb(1,0,0) style 2 picture 0\n"
              "setPen rgb(3,0,0) style 4 width 5\n"
              "setFont \"Arial\" 10 italic strikethru\n"
              "setTextColor 0x" +
                  std::string(2 * sizeof(unsigned long), 'f') + "\nsetForeColor 0xffffffff\n",
              surface.text());
    EXPECT_EQ(0xFFFFFFFFUL, surface.getForeColor());
    EXPECT_EQ(0xFFFFFFFFUL, surface.m_textStyle.getColor());
}

// Remembers the text style that stood when it was told of a new one.
class StyleWitness : public RecordingSurface {
public:
    void newTextStyle(CTextStyle* style) override
    {
        m_former = m_textStyle;
        RecordingSurface::newTextStyle(style);
    }
    CTextStyle m_former;
};

TEST(Surface, AnnouncesATextStyleBeforeItTakesItOver)
{
    StyleWitness surface;
    CTextStyle style(1, 2, 3, 4);
    surface.setTextStyle(&style);
    EXPECT_EQ(CTextStyle(), surface.m_former);
    EXPECT_EQ(style, surface.m_textStyle);
    surface.setTextStyle(&style);
    surface.setTextRotation(5, 6);
    EXPECT_EQ("newTextStyle rgb(1,0,0) style 2 angles 3 4\nsetTextRotation 5 6\n", surface.text());
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
    EXPECT_EQ(0xFFFFFFFFU, surface.getImageIndx(3));
}

TEST(Surface, ReportsFailedAssertions)
{
    std::string report;
    kosSetAssertHandler(
        [](const char* caption, const char* expression, const char* module, const char* file, int line,
           void* context) {
            *static_cast<std::string*>(context) = std::string(caption) + "|" + expression + "|" + module +
                                                  "|" + file + "|" + std::to_string(line);
        },
        &report);
    RecordingSurface().AssertFailed("count > 0", "SurfacePage", 12);
    kosSetAssertHandler(nullptr, nullptr);
    EXPECT_EQ("Tovo.exe Assertion failed|count > 0|surface|SurfacePage|12", report);
}

} // namespace
