// Definitions that later elements refer to by number, and the symbols that <use> draws.
#include "PlayedPage.h"

namespace {

std::string clip(const char* id, int edge)
{
    const std::string e = std::to_string(edge);
    return "<clipPath id='" + std::string(id) + "'><path  d='M0 0L" + e + " 0L" + e + " " + e + "L0 " + e +
           "z' /></clipPath>\n";
}

std::string hatch(const std::string& id, const std::string& name)
{
    return "<pattern id='" + id + "' stroke='rgb(1,2,3)' xlink:href='#" + name + "'></pattern>\n";
}

std::string defs(const std::string& content)
{
    return "<defs>\n" + content + "</defs>\n\n";
}

std::string filled(const std::string& number)
{
    return "<ellipse cx='0' cy='0' rx='1' ry='1' fill='url(#pattern" + number + ")' />\n";
}

std::vector<std::string> hatched(std::initializer_list<int> styles)
{
    std::vector<std::string> calls;
    for (const int style : styles) {
        calls.push_back("setBrush rgb(1,2,3) style " + std::to_string(style) + " picture 0");
        calls.emplace_back(plainPen);
        calls.emplace_back("ellipse (-1, -1, 1, 1)");
    }
    return calls;
}

const std::string clipGroups = "<g clip-path='url(#clip1)'><g clip-path='url(#clip2)'>";
const std::string sixHatches = hatch("pattern1", "HatchHorizontal") + hatch("pattern2", "HatchVertical") +
                               hatch("pattern3", "HatchFDiagonal") + hatch("pattern4", "HatchBDiagonal") +
                               hatch("pattern5", "HatchCross") + hatch("pattern6", "HatchDiagCross");

const PageCase definitions[] = {
    // Only the next free number is taken.
    {"ClipNumbers",
     defs(clip("clip2", 1) + clip("clip0", 2) + clip("clip1", 3) + clip("clip1", 4) +
          clip("clip2147483647", 5) + clip("clip2", 6)) +
         clipGroups,
     {"setClippingRegion (0, 0, 3, 3)", "setClippingRegion (0, 0, 6, 6)"}},
    {"UnreadableClipIsEmpty",
     defs("<clipPath id='clip1'><path  d='M0 0L5 x' /></clipPath>" + clip("clip2", 6)) + clipGroups,
     {"setClippingRegion (0, 0, 0, 0)", "setClippingRegion (0, 0, 6, 6)"}},
    {"MissingPathEndsTheSection",
     defs("<clipPath id='clip1'></clipPath>" + clip("clip1", 6) + hatch("pattern1", "HatchCross")) +
         clipGroups + filled("1") + mark(1),
     {marked(1)}},
    {"MissingNumberEndsTheSection", defs("<clipPath id='a'></clipPath>" + clip("clip1", 6)) + clipGroups, {}},
    {"OtherElementsAreReported",
     defs("<rect x='0' /><!-- --><symbol id='a'><line /></symbol><path d='M' />" + clip("clip1", 6)) +
         "<g clip-path='url(#clip1)'>",
     {"setClippingRegion (0, 0, 6, 6)"},
     2},
    {"SixHatches",
     defs(sixHatches) + filled("1") + filled("2") + filled("3") + filled("4") + filled("5") + filled("6"),
     hatched({2, 3, 4, 5, 6, 7})},
    {"HatchNamesByPrefix",
     defs(hatch("pattern1", "HatchCrossing") + hatch("pattern2", "Hatch")) + filled("1") + filled("2"),
     hatched({6, 2})},
    // Octal and hexadecimal where it is defined, decimal where it is used.
    {"PatternNumbers",
     defs(sixHatches + hatch("pattern07", "HatchVertical") + hatch("pattern08", "HatchCross") +
          hatch("pattern010", "HatchCross") + hatch("pattern0x9", "HatchDiagCross")) +
         filled("07") + filled("8") + filled("010") + filled("9"),
     hatched({3, 6, 7})},
    // The shared patterns have names for ids; "id" is found inside "width" as well.
    {"PatternsThatAreNotFiled",
     defs(hatch("HatchCross", "a") + "<pattern></pattern><pattern width='9' id='pattern1'></pattern>") +
         filled("1") + filled("0") + filled("-1") + filled("") +
         "<rect x='0' y='0' width='1' height='1' fill='url(#a)'/>",
     {}},
    {"PatternWithNothingInIt",
     defs("<pattern id = \"pattern1\"></pattern>") + filled("1"),
     {"setBrush rgb(0,0,0) style 2 picture 0", plainPen, "ellipse (-1, -1, 1, 1)"}},
    {"OtherFillsAreHollow",
     "<ellipse cx='0' cy='0' rx='1' ry='1' fill='red' />",
     {plainBrush, plainPen, "ellipse (-1, -1, 1, 1)"}},
};

const std::string place = "<use x='1' y='2' width='3' height='4' ";

const PageCase uses[] = {
    {"Symbols",
     place + "xlink:href='#SolidRect' fill='rgb(1,2,3)'/>" + place +
         "xlink:href='#FrameRect' stroke='rgb(4,5,6)'/>" + place + "xlink:href='#FocusRect'/>",
     {"drawSolidRectangle (1, 2, 4, 6) rgb(1,2,3)", "frameRect (1, 2, 4, 6) rgb(4,5,6)",
      "drawFocusRect (1, 2, 4, 6)"}},
    {"LooseForm", "<use  x='7'\ty='8' xlink:href = \"#FocusRect\" />", {"drawFocusRect (7, 8, 7, 8)"}},
    {"Wraps",
     "<use x='2147483647' y='99999999999' width='1' height='2' xlink:href='#FocusRect'/>",
     {"drawFocusRect (2147483647, 2147483647, -2147483648, -2147483647)"}},
    {"OtherNames",
     place + "xlink:href='#FrameRect2' stroke='rgb(1,2,3)'/>" + place + "xlink:href='#focusRect'/>" + place +
         "xlink:href=''/>",
     {}},
    {"ColourMissing",
     place + "xlink:href='#FrameRect'/>" + place + "xlink:href='#FrameRect' stroke='red'/>" + place +
         "fill='rgb(1,2,3)' xlink:href='#SolidRect'/>" + place + "xlink:href='#SolidRect' fill='rgb(1,2'/>",
     {}},
    {"AttributeMissing",
     "<use y='2' xlink:href='#FocusRect'/><use x='1' xlink:href='#FocusRect'/><use x='1' y='2' />"
     "<use xlink:href='#FocusRect' x='1' y='2' /><use x='1' y='2' xlink:href />",
     {}},
};

INSTANTIATE_TEST_SUITE_P(Definitions, PageContent, testing::ValuesIn(definitions), nameOf);
INSTANTIATE_TEST_SUITE_P(Uses, PageContent, testing::ValuesIn(uses), nameOf);

} // namespace
