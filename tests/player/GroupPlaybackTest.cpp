// Groups change the surface's clip, transform or font; ends of groups undo by the present state, not by pairs.
#include "PlayedPage.h"

namespace {

// Clip 1 lies across the page's edge, clip 2 beside the page.
const std::string clips =
    "<defs>\n<clipPath id='clip1'><path  d='M-5 20L50 20L50 60L-5 60z' /></clipPath>\n"
    "<clipPath id='clip2'><path  d='M100 0L150 0L150 60L100 60z' /></clipPath>\n</defs>";
const std::string clip1 = "<g clip-path='url(#clip1)'>";
constexpr const char* clipped = "setClippingRegion (0, 20, 50, 60)";
const std::string transform = "<g transform='matrix(1.00,0.50,-0.50,1.00,10.25,-20.00)'>";
constexpr const char* transformed = "setTransform 1 0.5 -0.5 1 10.25 -20";

std::string font(const std::string& attributes)
{
    return "<g font-family='Arial' " + attributes + ">";
}

const PageCase groups[] = {
    {"Clip", clips + clip1 + "</g></g>", {clipped, frameClip}},
    {"ClipTwice", clips + clip1 + "</g>" + clip1, {clipped, frameClip, clipped}},
    {"ClipBesideThePage", clips + "<g clip-path='url(#clip2)'>", {"setClippingRegion (0, 0, 0, 0)"}},
    {"ClipWithoutEntry",
     clips + "<g clip-path='url(#clip3)'></g><g clip-path='url(#clip0)'></g><g clip-path='url(#clip-1)'></g>"
             "<g clip-path='url(#clip4294967297)'></g><g clip-path='none'></g>",
     {}},
    {"ClipGoesBeforeTransform",
     clips + "<g transform='matrix(1.00,0.00,0.00,1.00,0.00,0.00)' clip-path='url(#clip1)'></g>",
     {clipped, frameClip}},
    {"ClipGoesBeforeFont",
     clips + font("font-size='10.00pt' font-style='normal' font-weight='bold' clip-path='url(#clip1)'"),
     {clipped}},
    {"Transform", transform + transform + "</g></g>", {transformed, transformed, "clearTransform"}},
    {"TransformEndsBeforeTheClip",
     clips + transform + clip1 + "</g>" + mark(1) + "</g>",
     {transformed, clipped, "clearTransform", marked(1), frameClip}},
    // Behind the first number the comma is sought four characters on: short numbers lose their neighbours.
    {"ShortFirstNumber", "<g transform='matrix(1,0,0,1,5,6,7,8)'>", {"setTransform 1 1 5 6 7 8"}},
    {"TooFewNumbers", "<g transform='matrix(1,0,0,1,5,6)'></g>", {}},
    {"NoMatrix", "<g transform='scale(2.00,2.00,2.00,2.00,2.00,2.00)'></g>", {}},
    {"Font",
     font("font-size='10.50pt' font-style='italic' font-weight='bold' text-decoration='underline "
          "line-through'") +
         "</g>",
     {"setFont \"Arial\" 10.5 bold italic underline strikethru"}},
    {"FontWordsInsideTheirValues",
     font("font-size='8.00pt' font-style='not italic' font-weight='semibold' text-decoration='line-through'"),
     {"setFont \"Arial\" 8 bold italic strikethru"}},
    // What stands behind a value no longer counts for it.
    {"FontWordsBehindTheirValues",
     font("font-size='8.00pt' font-style='normal' font-weight='normal' a='bold italic underline'"),
     {"setFont \"Arial\" 8"}},
    {"FontDecorationTooEarly",
     font("font-size='8.00pt' text-decoration='underline' font-style='normal' font-weight='normal'"),
     {"setFont \"Arial\" 8"}},
    {"FontKeysOutOfOrder", font("font-style='normal' font-size='8.00pt' font-weight='bold'"), {}},
    {"FontKeyMissing", clips + clip1 + font("font-size='8.00pt'") + "</g>", {clipped, frameClip}},
    {"FontOfALongName",
     "<g font-family='" + std::string(40, 'a') + "' font-size='8.00pt' font-style='' font-weight=''>",
     {"setFont \"" + std::string(31, 'a') + "\" 8"}},
    {"FontWithoutItsLastQuote",
     font("font-size='8.00pt' font-style='normal' font-weight='bold"),
     {"setFont \"Arial\" 8 bold"}},
    {"FontNameWithoutQuote", "<g font-family='Arial>" + mark(1), {marked(1)}},
    {"FontNameOfATransform",
     "<g font-family='transform' font-size='8.00pt' font-style='normal' font-weight='bold'>",
     {}},
    {"NoKey", clips + clip1 + "<g id='a'></g>", {clipped, frameClip}},
};

INSTANTIATE_TEST_SUITE_P(Groups, PageContent, testing::ValuesIn(groups), nameOf);

} // namespace
