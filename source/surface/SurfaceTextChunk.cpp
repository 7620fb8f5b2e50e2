#include "surfaceTextChunk.h"

#include "moduleObjects.h"

using namespace drawing;

CSurfaceTextChunk::CSurfaceTextChunk()
    : m_isNewLine(false), m_position{}, m_followsPrevious(false), m_textLength(-1),
      m_underline(false), m_findPosition{}
{
}

CSurfaceTextChunk::~CSurfaceTextChunk() = default;

void CSurfaceTextChunk::create(TovoTextString* text, bool isNewLine, POINT position, bool followsPrevious,
                               int textLength, bool underline)
{
    m_text = text != nullptr ? *text : TovoTextString();
    m_isNewLine = isNewLine;
    m_position = position;
    m_followsPrevious = followsPrevious;
    m_textLength = textLength;
    m_underline = underline;
}

bool CSurfaceTextChunk::isStartOfAnotherLine(CSurfaceTextChunk* previous) const
{
    if (m_isNewLine) {
        return true;
    }
    if (m_followsPrevious || previous == nullptr) {
        return false;
    }
    return m_position.y > previous->m_position.y;
}
