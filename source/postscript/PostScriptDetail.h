// What CSurfacePSPrinter does beside the operations that its header names, on the page that it is made for.
//
// Made where it is called, and gone with the call. Writing in several steps is the business of Change
// (PostScriptChange.h).
#pragma once

#include <string_view>

#include "hidden.h"
#include "surfacePSPrinter.h"

class SURFACE_HIDDEN CSurfacePSPrinter::Detail {
public:
    // Procedures that the page text calls, as bits of m_proceduresUsed.
    enum ProcedureBits : unsigned int {
        RightShowUsed = 0x1,
        MiddleShowUsed = 0x2,
        FrameRectUsed = 0x100,
        FocusRectUsed = 0x200,
        SolidRectUsed = 0x400,
        EllipseUsed = 0x1000,
        PieUsed = 0x2000,
        ChordUsed = 0x4000,
        HatchUsed = 0x10000,
        RotatedShowUsed = 0x20000,
        TransparentImageUsed = 0x40000
    };

    // What makes an interpreter stop at a document, although it is written as it has to be; as bits of m_toldTraps.
    enum class Trap : unsigned int {
        ZeroScale,
        ZeroFont,
        FontName,
        RoundedCorners,
        FlatTransform,
        LineWithoutFont,
        EmptyRunWithWidth
    };

    struct ArcOperands;
    class Change;

    explicit Detail(CSurfacePSPrinter& page) : m_page(page) {}

    void tellOfTrap(Trap trap);
    void tellOfRefusedImage(unsigned int id);
    void beginState();
    void endState();
    void noteFont();

    void appendHead(TovoTextString& s) const;
    void appendProcedures(TovoTextString& s) const;

    static void appendOpenPath(TovoTextString& s, const POINT* points, unsigned int count);
    void appendStroke(TovoTextString& s);
    void appendPlainColor(TovoTextString& s, unsigned long color);

    static ArcOperands arcOperands(RECT* rect, int x1, int y1, int x2, int y2);
    void drawSector(const ArcOperands& arc, std::string_view fill, std::string_view stroke,
                    ProcedureBits procedure);

    double unitsPerPoint() const;
    int baseLineBelow(int top) const;
    bool appendTextColor(TovoTextString& s);
    void appendChunk(TovoTextString& s, const CSurfaceTextChunk& chunk);

    static void appendImageDictionary(TovoTextString& s, int width, int height);
    // Null for an id without an image.
    CPostScriptImage* imageAt(unsigned int id) const;

    bool isPatternDefined(int picture) const;
    void usePattern(int picture);
    void definePattern(int picture, int width, int height, const TovoTextString& samples);
    void defineMissingPatterns();
    void setPatternDefined(int picture, bool defined);
    void appendPatternDefs(TovoTextString& front) const;
    void forgetPatternDefs();
    void settlePatternDefs();

private:
    CSurfacePSPrinter& m_page;
};
