// The words of the page format that its writer and its player share.
//
// The writer puts these texts into a page, and player and search look for them literally, so each is named once. Keys
// of attributes hold the opening quote: the value begins right after them. Attributes of SVG that hold plain numbers
// (x, y, width and the like) are written out where they are used.
#pragma once

namespace svg {

// Tags, as the player looks for them: most without their end, so that a longer name begins with a shorter one.
inline constexpr char TextTag[] = "<text ";
inline constexpr char TextEnd[] = "</text";
inline constexpr char TextEndTag[] = "</text>";
inline constexpr char TextPathTag[] = "<textPath";
inline constexpr char TextPathEndTag[] = "</textPath>";
inline constexpr char SpanTag[] = "<tspan";
inline constexpr char SpanEnd[] = "</tspan";
inline constexpr char SpanEndTag[] = "</tspan>";
inline constexpr char SvgTag[] = "<svg";
inline constexpr char SvgEnd[] = "</svg";
inline constexpr char SvgEndTag[] = "</svg>";
inline constexpr char DefsTag[] = "<defs>";
inline constexpr char DefsStart[] = "<defs";
inline constexpr char DefsEndTag[] = "</defs>";
inline constexpr char GroupTag[] = "<g ";
inline constexpr char GroupEnd[] = "</g";
inline constexpr char SymbolTag[] = "<symbol";
inline constexpr char SymbolEndTag[] = "</symbol>";
inline constexpr char PatternTag[] = "<pattern";
inline constexpr char PatternEndTag[] = "</pattern>";
inline constexpr char ClipPathTag[] = "<clipPath";
inline constexpr char ClipPathEndTag[] = "</clipPath>";
inline constexpr char ImageTag[] = "<image";
inline constexpr char UseTag[] = "<use";
inline constexpr char PathTag[] = "<path";
inline constexpr char RectTag[] = "<rect";
inline constexpr char EllipseTag[] = "<ellipse";
inline constexpr char LineTag[] = "<line";
inline constexpr char PolygonTag[] = "<polygon";
inline constexpr char PolylineTag[] = "<polyline";
inline constexpr char CommentStart[] = "<!--";
inline constexpr char PrologStart[] = "<?xml";
inline constexpr char DoctypeStart[] = "<!DOCTYPE svg";

// Symbols that a <use> names in its xlink:href, after "#".
inline constexpr char FrameRectSymbol[] = "FrameRect";
inline constexpr char FocusRectSymbol[] = "FocusRect";
inline constexpr char SolidRectSymbol[] = "SolidRect";
inline constexpr char TiledImageSymbol[] = "TiledImage";

// Ids of numbered definitions: the word and a number from 1 on; images have the caller's number.
inline constexpr char ClipId[] = "clip";
inline constexpr char PatternId[] = "pattern";
inline constexpr char ImageId[] = "image";

// The first two, as other elements refer to them.
inline constexpr char ClipReference[] = "#clip";
inline constexpr char PatternReference[] = "#pattern";

inline constexpr char ClipPathKey[] = "clip-path='";
inline constexpr char FillKey[] = "fill='";
inline constexpr char HrefKey[] = "xlink:href='";
inline constexpr char PointsKey[] = "points='";
inline constexpr char StrokeKey[] = "stroke='";
inline constexpr char StrokeWidthKey[] = "stroke-width='";
inline constexpr char ViewBoxKey[] = "viewBox='";

// The pen's whole style word, of which SVG's own attributes are a consequence.
inline constexpr char PenStyleKey[] = "tovo:penStyle='";

// The arguments of an arc call are in an attribute of this prefix and one of these names.
inline constexpr char TovoPrefix[] = "tovo:";
inline constexpr char ArcName[] = "arc";
inline constexpr char ChordName[] = "chord";
inline constexpr char PieName[] = "pie";

// The caller's picture type of an image, also when the page holds other bytes than the caller gave.
inline constexpr char PictureTypeKey[] = "tovo:picType='";

// Text: the flags and the rectangle of the call, its rotation, and the classes of its special forms.
inline constexpr char TextRectKey[] = "tovo:textRect='";
inline constexpr char DrawOptionsKey[] = "tovo:drawOptions='";
inline constexpr char TextFlagsKey[] = "TovoFlags:";
inline constexpr char CharAngleKey[] = "tovo:charAngle='";
inline constexpr char TextAngleKey[] = "tovo:textAngle='";
inline constexpr char TextLengthKey[] = "textLength='";
inline constexpr char BaseLineClass[] = "BLT";
inline constexpr char PageCountClass[] = "nofm";

// What a search marks in its copy of a page: start and length of the found part of a run.
inline constexpr char FindKey[] = "tovo:find=";

// Paths that rotated text runs along, numbered from 1 on.
inline constexpr char TextPathId[] = "textPath";

inline constexpr char TransformWord[] = "transform";
inline constexpr char MatrixWord[] = "matrix(";

inline constexpr char FontFamilyKey[] = "font-family='";
inline constexpr char FontSizeKey[] = "font-size='";
inline constexpr char FontStyleKey[] = "font-style='";
inline constexpr char FontWeightKey[] = "font-weight='";
inline constexpr char TextDecorationKey[] = "text-decoration='";
inline constexpr char BoldWord[] = "bold";
inline constexpr char ItalicWord[] = "italic";
inline constexpr char UnderlineWord[] = "underline";
inline constexpr char LineThroughWord[] = "line-through";

// The shared hatch patterns in the order of the brush styles from FirstHatchBrush on, each with the lines of
// its 9 by 9 tile.
struct SvgHatch {
    const char* name;
    const char* tile;
};

inline constexpr SvgHatch SvgHatches[] = {
    {"HatchHorizontal", "\t<line x1='0' y1='4' x2='9' y2='4'/>"},
    {"HatchVertical", "\t<line x1='4' y1='0' x2='4' y2='9'/>"},
    {"HatchFDiagonal", "\t<line x1='0' y1='0' x2='9' y2='9'/>"},
    {"HatchBDiagonal", "\t<line x1='9' y1='0' x2='0' y2='9'/>"},
    {"HatchCross", "\t<line x1='0' y1='4' x2='9' y2='4'/>\t<line x1='4' y1='0' x2='4' y2='9'/>"},
    {"HatchDiagCross", "\t<line x1='0' y1='0' x2='9' y2='9'/>\t<line x1='9' y1='0' x2='0' y2='9'/>"},
};
inline constexpr int SvgHatchCount = static_cast<int>(sizeof(SvgHatches) / sizeof(SvgHatches[0]));
static_assert(SvgHatchCount == 6, "one hatch for each of the brush styles 2 to 7");

} // namespace svg
