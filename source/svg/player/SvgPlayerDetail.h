// What CMetaFilePlayerSVG does beside the operations that its header names, in the walk of the player that it is made for.
//
// Made where it is called, and gone with the call. Handlers give 0 for done and -1 for an element they could not use.
#pragma once

#include "hidden.h"
#include "metaFilePlayerSVG.h"

class SURFACE_HIDDEN CMetaFilePlayerSVG::Detail {
public:
    struct TextElement;
    class ElementWalk;

    explicit Detail(CMetaFilePlayerSVG& player) : m_player(player) {}

    int processElement(char* element, int type);
    static void reportUnexpectedElement(int line);

    int processClipGroup(char* element);
    int processTransformGroup(char* element);
    int processFontGroup(char* element);

    int processRectStyle(char* text, CSurfacePen* pen, CSurfaceBrush* brush);
    int drawPlainText(TextElement& text, char* body);
    int drawRuns(TextElement& text, char* body);

    int processClipDefinition(char* element);
    int processPatternDefinition(char* element);
    int processImageDefinition(char* element);
    int usePattern(int number, CSurfaceBrush* brush);
    int processImageUse(char* element, const char* name, int x, int y);

    // Null for a number without a clip.
    RECT* clipOfNumber(int number) const;

private:
    CMetaFilePlayerSVG& m_player;
};
