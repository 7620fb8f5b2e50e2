// The walk over the elements of a piece of a page.
#pragma once

#include "ElementKind.h"
#include "SvgPlayerDetail.h"
#include "ValueDuring.h"
#include "WalkMemory.h"

class CMetaFilePlayerSVG::Detail::ElementWalk {
public:
    // From a place in the piece to the zero byte that ends it.
    ElementWalk(CMetaFilePlayerSVG& player, char* from, char* end)
        : m_player(player), m_next(from), m_withinPiece(player.m_memory->walkEnd, end)
    {
    }

    // Inside the element that was found last.
    static ElementWalk inside(CMetaFilePlayerSVG& player, char* from)
    {
        return ElementWalk(player, from, player.m_memory->elementEnd);
    }

    // Moves to the next element; false when there is none.
    bool next()
    {
        m_element = m_next;
        if (!m_player.getNextElement(&m_element, m_type)) {
            return false;
        }
        // Remembered now: handling the element writes further zero bytes into it.
        m_next = m_player.m_memory->elementEnd + 1;
        return true;
    }

    char* element() const { return m_element; }
    int type() const { return m_type; }

private:
    CMetaFilePlayerSVG& m_player;
    char* m_next;
    const svg::ValueDuring<char*> m_withinPiece;
    char* m_element = nullptr;
    int m_type = svg::RecordUnknown;
};
