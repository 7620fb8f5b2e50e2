// Fonts, clips and transforms: groups that stay open, and what closes them. The writer keeps no stack, so
// the sequences pin which end tag each call writes; the last ones of a page come from closing it.
#include "support/SvgPage.h"

#include <cfloat>
#include <cmath>
#include <map>

namespace {

enum FontFlags { Bold = 1, Italic = 2, Strikethru = 4, Underline = 8 };
void useFont(CSurfaceSVG& s, std::string face, float size, int flags)
{
    s.setFont(face.data(), size, flags & Bold, flags & Italic, flags & Strikethru, flags & Underline);
}

// One letter is one call, and one letter of the page is one line of it. A and B are fonts.
void perform(CSurfaceSVG& s, char call)
{
    if (call == 'c' || call == 'u') {
        s.setClippingRegion(call == 'c' ? in({0, 0, 0, 0}) : nullptr);
    } else if (call == 't') {
        s.setTransform(1, 0, 0, 1, 5, 6);
    } else if (call == 'n') {
        s.clearTransform();
    } else if (call == '-') {
        s.drawLine(1, 2, 3, 4);
    } else {
        useFont(s, std::string(1, call), 10, 0);
    }
}

const std::map<char, std::string> LineOf = {
    {'c', "<defs>\n<clipPath id='clip1'><path  d='M0 0L0 0L0 0L0 0z' /></clipPath>\n"},
    {'d', "<clipPath id='clip2'><path  d='M0 0L0 0L0 0L0 0z' /></clipPath>\n"},
    {'.', "\n</defs>\n\n"},
    {'A', "<g font-family='A' font-size='10.00pt' font-style='normal' font-weight='normal'>\n"},
    {'B', "<g font-family='B' font-size='10.00pt' font-style='normal' font-weight='normal'>\n"},
    {'1', "<g clip-path='url(#clip1)'>\n"},
    {'2', "<g clip-path='url(#clip2)'>\n"},
    {'t', "<g transform='matrix(1.00,0.00,0.00,1.00,5.00,6.00)'>\n"},
    {'-', "<line x1='1' y1='2' x2='3' y2='4'" + FreshPen + " />\n"},
    {'/', "</g>\n"},
};

DrawnCase sequence(const char* name, const std::string& calls, const std::string& lines)
{
    const auto draw = [calls](CSurfaceSVG& s) {
        for (const char call : calls) {
            perform(s, call);
        }
    };
    std::string page;
    for (const char line : lines) {
        page += LineOf.at(line);
    }
    return {name, draw, page};
}

DrawnCase font(const char* name, const char* face, float size, int flags, const std::string& attributes)
{
    return {name, [=](CSurfaceSVG& s) { useFont(s, face, size, flags); },
            "<g font-family=" + attributes + ">\n</g>\n"};
}

DrawnCase transform(const char* name, float a, float b, float c, const std::string& numbers)
{
    return {name, [=](CSurfaceSVG& s) { s.setTransform(a, b, c, a, b, c); },
            "<g transform='matrix(" + numbers + "," + numbers + ")'>\n</g>\n"};
}

const DrawnCase Cases[] = {
    sequence("ClipAfterClip", "c-c-u-", "cd.1-/2-/-"),
    sequence("TransformAfterTransform", "t-t-n-", "t-/t-/-"),
    sequence("FirstFontInAClip", "c-A-u-", "c.1-/A1-/-/"),
    sequence("SecondFontInAClip", "Ac-B-", "c.A1-//B1-//"),
    sequence("ThreeLevelsLeftOpen", "Act-", "c.A1t-///"),
    sequence("FontInAClipInATransform", "tcA-n-", "c.t1/A1-/-//"),
    sequence("ClipInATransform", "ct-c-", "cd.1t-/2-//"),
    font("AllFlags", "'O'Hara & <Sons>'", 10.125F, Bold | Italic | Strikethru | Underline,
         "'OHara & <Sons>' font-size='10.12pt' font-style='italic' font-weight='bold' "
         "text-decoration='underline line-through'"),
    font("Underline", "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN", 0, Bold | Underline,
         "'abcdefghijklmnopqrstuvwxyzABCDE' font-size='0.00pt' font-style='normal' font-weight='bold' "
         "text-decoration='underline'"),
    font("Strikethru", "", FLT_MAX, Italic | Strikethru,
         "'' font-size='340282346638528859811704183484516925440.00pt' font-style='italic' "
         "font-weight='normal' text-decoration='line-through'"),
    // Each number has room for twelve bytes, its terminator included.
    transform("Ties", 0.125F, 0.375F, -0.001F, "0.12,0.38,-0.00"),
    transform("NumbersThatFit", std::nanf(""), 99999992.0F, -9999999.0F, "0.00,99999992.00,-9999999.00"),
    transform("NumbersThatDoNot", 1e8F, -1e7F, HUGE_VALF, "99999999.99,-9999999.99,99999999.99"),
};

INSTANTIATE_TEST_SUITE_P(Groups, SvgPage, testing::ValuesIn(Cases), nameOf);

} // namespace
