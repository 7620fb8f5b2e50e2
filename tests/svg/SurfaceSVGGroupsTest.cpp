// Fonts, clips and transforms: groups that stay open, and what closes them. The writer keeps no stack, so the
// sequences show which end tag each call writes; those at the end of a page come from closing it.
#include "SvgPage.h"

#include <cfloat>
#include <cmath>

namespace {

const std::string fontA =
    "<g font-family='A' font-size='10.00pt' font-style='normal' font-weight='normal'>\n";
const std::string fontB =
    "<g font-family='B' font-size='10.00pt' font-style='normal' font-weight='normal'>\n";
const std::string clip1 = "<g clip-path='url(#clip1)'>\n";
const std::string clip2 = "<g clip-path='url(#clip2)'>\n";
const std::string shift1 = "<g transform='matrix(1.00,0.00,0.00,1.00,1.00,0.00)'>\n";
const std::string shift2 = "<g transform='matrix(1.00,0.00,0.00,1.00,2.00,0.00)'>\n";
const std::string end = "</g>\n";
const std::string line = "<line x1='1' y1='2' x2='3' y2='4'" + freshPen + " />\n";

std::string clipDefinition(int number)
{
    return "<clipPath id='clip" + std::to_string(number) + "'><path  d='M1 2L3 2L3 4L1 4z' /></clipPath>\n";
}
const std::string oneClip = definitions(clipDefinition(1) + "\n");
const std::string twoClips = definitions(clipDefinition(1) + clipDefinition(2) + "\n");

// Calls in short: A and B fonts, c clip, u end of the clip, 1 and 2 transforms, 0 none, l line.
DrawnCase sequence(std::string name, const std::string& calls, const std::string& page)
{
    const auto draw = [calls](CSurfaceSVG& s) {
        for (const char call : calls) {
            switch (call) {
            case 'c':
                s.setClippingRegion(in({1, 2, 3, 4}));
                break;
            case 'u':
                s.setClippingRegion(nullptr);
                break;
            case '0':
                s.clearTransform();
                break;
            case 'l':
                s.drawLine(1, 2, 3, 4);
                break;
            case 'A':
            case 'B':
                useFont(s, std::string(1, call));
                break;
            default:
                s.setTransform(1, 0, 0, 1, static_cast<float>(call - '0'), 0);
            }
        }
    };
    return {name, draw, page};
}

DrawnCase font(std::string name, const std::string& face, float size, const std::string& group)
{
    return {name, [=](CSurfaceSVG& s) { useFont(s, face, size); },
            "<g font-family=" + group + " font-style='normal' font-weight='normal'>\n" + end};
}

const std::vector<DrawnCase> cases = {
    sequence("EndsWithoutAGroup", "u0l", line),
    sequence("FontAfterFont", "AlBl", fontA + line + end + fontB + line + end),
    sequence("ClipAfterClip", "clclu", twoClips + clip1 + line + end + clip2 + line + end),
    sequence("ClipLeftOpen", "ccl", twoClips + clip1 + end + clip2 + line + end),
    sequence("TransformAfterTransform", "1l2l0l", shift1 + line + end + shift2 + line + end + line),
    sequence("FirstFontInAClip", "cAlul", oneClip + clip1 + end + fontA + clip1 + line + end + line + end),
    sequence("SecondFontInAClip", "AclBl",
             oneClip + fontA + clip1 + line + end + end + fontB + clip1 + line + end + end),
    sequence("ThreeLevelsLeftOpen", "Ac1l", oneClip + fontA + clip1 + shift1 + line + end + end + end),
    sequence("ThreeLevelsEnded", "Ac1l0ul", oneClip + fontA + clip1 + shift1 + line + end + end + line + end),
    // The font ends the transform's group in place of its own.
    sequence("FontInATransform", "A1B2l", fontA + shift1 + end + fontB + end + shift2 + line + end + end),
    sequence("FirstFontInATransform", "1Al", shift1 + fontA + line + end + end),
    sequence("FontInAClipInATransform", "1cA0l",
             oneClip + shift1 + clip1 + end + fontA + clip1 + end + line + end + end),
    sequence("ClipInATransform", "c1cl", twoClips + clip1 + shift1 + end + clip2 + line + end + end),
    // A rectangle of four zeros is a clip like any other.
    {"EmptyClip",
     [](CSurfaceSVG& s) {
         s.setClippingRegion(in({0, 0, 0, 0}));
     },
     definitions("<clipPath id='clip1'><path  d='M0 0L0 0L0 0L0 0z' /></clipPath>\n\n") + clip1 + end},
    {"FontFlags",
     [](CSurfaceSVG& s) {
         useFont(s, "A", 8, true, true, true, true);
         useFont(s, "A", 8, true, false, true, false);
         useFont(s, "A", 8, false, true, false, true);
     },
     "<g font-family='A' font-size='8.00pt' font-style='italic' font-weight='bold' "
     "text-decoration='underline line-through'>\n</g>\n"
     "<g font-family='A' font-size='8.00pt' font-style='normal' font-weight='bold' "
     "text-decoration='line-through'>\n</g>\n"
     "<g font-family='A' font-size='8.00pt' font-style='italic' font-weight='normal' "
     "text-decoration='underline'>\n</g>\n"},
    font("FaceWithApostrophes", "'O'Hara & <Sons>'", 10, "'OHara & <Sons>' font-size='10.00pt'"),
    font("FaceOf40Characters", "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN", 10,
         "'abcdefghijklmnopqrstuvwxyzABCDE' font-size='10.00pt'"),
    font("SizeOnATie", "A", 10.125F, "'A' font-size='10.12pt'"),
    font("LargestSize", "A", FLT_MAX, "'A' font-size='340282346638528859811704183484516925440.00pt'"),
    font("SizeThatIsNoNumber", "A", std::nanf(""), "'A' font-size='0.00pt'"),
    // Twelve bytes of room for each number, its terminator included.
    {"TransformNumbers",
     [](CSurfaceSVG& s) {
         s.setTransform(0.125F, 0.375F, -0.001F, std::nanf(""), 99999992.0F, -9999999.0F);
         s.setTransform(1e8F, -1e7F, FLT_MAX, -FLT_MAX, HUGE_VALF, -HUGE_VALF);
     },
     "<g transform='matrix(0.12,0.38,-0.00,0.00,99999992.00,-9999999.00)'>\n</g>\n"
     "<g transform='matrix(99999999.99,-9999999.99,99999999.99,-9999999.99,99999999.99,-9999999.99)'>\n"
     "</g>\n"},
};

INSTANTIATE_TEST_SUITE_P(Groups, SvgPage, testing::ValuesIn(cases), nameOf);

} // namespace
