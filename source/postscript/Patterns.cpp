// Images as patterns, for tiles and picture brushes.
//
// A definition comes before all drawing, whenever it was written, and the newest comes first. They are
// gathered and go in front of the page's text together, once somebody looks at it: a page of many tiles is not
// moved for each of them.
#include "surfacePSPrinter.h"

#include <algorithm>

#include "PostScriptDetail.h"
#include "PostScriptPieces.h"
#include "PostScriptSamples.h"
#include "imageNumbers.h"
#include "putByNumber.h"
#include "putInFront.h"
#include "undo.h"

using namespace drawing;
using namespace postscript;

namespace {

std::string_view viewOf(const TovoBinaryString& bytes)
{
    return std::string_view(bytes.data(), bytes.length());
}

// In each row, the mask comes before the samples. A stream that breaks off ends there.
void dropMasks(TovoBinaryString& out, std::string_view stream, int width)
{
    const std::size_t maskSize = static_cast<std::size_t>(std::max(width, 0));
    out.empty();
    while (stream.size() > maskSize) {
        const std::string_view row = stream.substr(maskSize, maskSize * 3);
        out.append(row.data(), static_cast<unsigned int>(row.size()));
        stream.remove_prefix(maskSize + row.size());
    }
}

// The samples alone, as a pattern's image reads them.
TovoTextString plainSamples(const CPostScriptImage& image)
{
    const bool masked = image.m_bitsPerPixel == WithTransparency;
    if (!image.m_compressed && !masked) {
        return image.m_data;
    }
    TovoBinaryString stream;
    TovoBinaryString decoded;
    decodeHexadecimal(stream, std::string_view(image.m_data.text(), image.m_data.length()));
    if (image.m_compressed) {
        decodeRunLengths(decoded, viewOf(stream));
        stream = std::move(decoded);
    }
    if (masked) {
        dropMasks(decoded, viewOf(stream), image.m_width);
        stream = std::move(decoded);
    }
    TovoTextString samples;
    appendHexadecimal(samples, viewOf(stream));
    return samples;
}

// Units of a pattern's side. A picture that could not be decoded may be stated as having no size, or one that
// interpreters refuse; it paints nothing either way.
int extentOf(int stated, const TovoTextString& samples)
{
    constexpr int Greatest = 32767;
    return samples.isEmpty() && (stated < 1 || stated > Greatest) ? 1 : stated;
}

} // namespace

bool CSurfacePSPrinter::Detail::isPatternDefined(int picture) const
{
    const bool* const defined = m_page.m_definedPatterns.atGet(static_cast<unsigned int>(picture));
    return defined != nullptr && *defined;
}

// Of an image that was not included as a tile, the pattern is defined when it is used first. The picture of a
// brush can be any number, and its image can come later or never: the end of the page sees to those.
void CSurfacePSPrinter::Detail::usePattern(int picture)
{
    if (isPatternDefined(picture)) {
        return;
    }
    if (const CPostScriptImage* const image = imageAt(static_cast<unsigned int>(picture))) {
        definePattern(picture, image->m_width, image->m_height, plainSamples(*image));
    } else {
        m_page.m_missingPictures.add(picture);
    }
}

void CSurfacePSPrinter::Detail::definePattern(int picture, int width, int height,
                                              const TovoTextString& samples)
{
    const int w = extentOf(width, samples);
    const int h = extentOf(height, samples);
    TovoTextString text(TextRoom{300});
    appendPieces(text, "<<\n /PaintType 1 /PatternType 1 /TilingType 1 /BBox[0 0 ", w, " ", h, "] /XStep ", w,
                 " /YStep ", h, " /PaintProc {\n  pop\n  ", w, " ", h,
                 "  scale\n  /DeviceRGB setcolorspace\n  ");
    appendImageDictionary(text, w, h);
    appendPieces(text, "\n   <");
    text.append(samples);
    appendPieces(text, ">\n  >>image\n }\n>> matrix makepattern /Pattern", picture, " exch def\n");
    if (picture >= 0 && picture <= GreatestImageId) {
        putByNumber(m_page.m_definedPatterns, static_cast<unsigned int>(picture), false); // room
    }
    m_page.m_patternDefs.add(
        {picture, lengthIn32Bits(std::uint64_t{m_page.m_patternTexts.length()} + text.length())});
    doOrUndo([&] { m_page.m_patternTexts.append(text); },
             [&] { m_page.m_patternDefs.cutTo(m_page.m_patternDefs.size() - 1); });
    setPatternDefined(picture, true);
}

// Numbers of no image have no place in the table, which has room for all others that were defined.
void CSurfacePSPrinter::Detail::setPatternDefined(int picture, bool defined)
{
    if (static_cast<unsigned int>(picture) < m_page.m_definedPatterns.size()) {
        m_page.m_definedPatterns[static_cast<unsigned int>(picture)] = defined;
    }
}

// A name that nobody defines would end the document: what is painted with an image that never came paints
// nothing.
void CSurfacePSPrinter::Detail::defineMissingPatterns()
{
    int* const first = m_page.m_missingPictures.atGet(0); // null when there is none
    std::sort(first, first + m_page.m_missingPictures.size());
    const int* const end = std::unique(first, first + m_page.m_missingPictures.size());
    for (const int* picture = first; picture != end; ++picture) {
        if (imageAt(static_cast<unsigned int>(*picture)) != nullptr) {
            usePattern(*picture);
        } else {
            definePattern(*picture, 1, 1, TovoTextString());
        }
    }
}

void CSurfacePSPrinter::Detail::appendPatternDefs(TovoTextString& front) const
{
    front.reserve(lengthIn32Bits(std::uint64_t{front.length()} + m_page.m_patternTexts.length()));
    for (unsigned int i = m_page.m_patternDefs.size(); i > 0; --i) {
        const unsigned int begin = i > 1 ? m_page.m_patternDefs[i - 2].end : 0;
        front.append(m_page.m_patternTexts.text() + begin, m_page.m_patternDefs[i - 1].end - begin);
    }
}

// They are part of the page's text from now on.
void CSurfacePSPrinter::Detail::forgetPatternDefs()
{
    m_page.m_patternTexts.empty();
    m_page.m_patternDefs.cutTo(0);
}

void CSurfacePSPrinter::Detail::settlePatternDefs()
{
    if (!m_page.m_patternTexts.isEmpty()) {
        TovoTextString front;
        appendPatternDefs(front);
        putInFront(m_page.m_body, front);
        forgetPatternDefs();
    }
}
