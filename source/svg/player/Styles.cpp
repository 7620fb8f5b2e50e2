// Stroke, fill and style attributes of shapes.
#include "metaFilePlayerSVG.h"

#include "PageCursor.h"
#include "SvgColor.h"
#include "SvgDialect.h"
#include "SvgPlayerDetail.h"
#include "WalkMemory.h"
#include "brushStyles.h"
#include "penStyles.h"
#include "surfaceAttributes.h"

using namespace drawing;
using namespace svg;

int CMetaFilePlayerSVG::processStrokeAttribute(char* text, CSurfacePen* pen)
{
    int style = 0;
    if (const char* const stroke = findAfter(text, StrokeKey)) {
        unsigned long color = 0;
        if (!beginsWith(stroke, RgbWord)) {
            style = PenWithoutLine;
        } else if (readColor(stroke, color)) {
            pen->setColor(color);
        } else {
            return -1;
        }
    }
    int width = pen->getWidth();
    if (const char* const attribute = findAfter(text, StrokeWidthKey)) {
        intlSscanNumeric(attribute, "%d", &width);
    }
    // The style word of the pen has the last say; the dashes, cap and join beside it follow from it.
    if (const char* const attribute = findAfter(text, PenStyleKey)) {
        intlSscanNumeric(attribute, "%d", &style);
    }
    pen->setWidth(width);
    pen->setStyle(style);
    return 0;
}

int CMetaFilePlayerSVG::processFillAttribute(char* text, CSurfaceBrush* brush)
{
    const char* const fill = findAfter(text, FillKey);
    if (fill == nullptr) {
        return 0;
    }
    if (beginsWith(fill, RgbWord)) {
        unsigned long color = 0;
        if (!readColor(fill, color)) {
            return -1;
        }
        brush->set(color, SolidBrush);
        return 0;
    }
    if (beginsWith(fill, "url")) {
        int number = 0;
        intlSscanNumeric(fill, "url(#pattern%d)", &number);
        return Detail(*this).usePattern(number, brush);
    }
    brush->set(0, HollowBrush);
    return 0;
}

int CMetaFilePlayerSVG::processStyleAttribute(char** value, RECT** clip, unsigned long* fillColor,
                                              unsigned long* strokeColor, bool* hasFill, bool* hasStroke)
{
    if (char* const number = findAfter(*value, ClipReference)) {
        *clip = Detail(*this).clipOfNumber(integerAt(number));
    }
    const char* const stroke = findAfter(*value, "stroke:");
    const char* const fill = findAfter(*value, "fill:");
    if (stroke == nullptr || fill == nullptr) {
        return -1;
    }
    *hasStroke = beginsWith(stroke, RgbWord);
    *hasFill = beginsWith(fill, RgbWord);
    if ((*hasStroke && !readColor(stroke, *strokeColor)) || (*hasFill && !readColor(fill, *fillColor))) {
        return -1;
    }
    *value = afterEnded(*value);
    return 0;
}
