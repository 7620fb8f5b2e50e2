// Text tools of the report's pages; see lettering.h.
#include "lettering.h"

#include <string>

#include "surfacePages.h"

void chooseFace(CSurface& surface, const Face& face)
{
    pages::setFont(surface, face.name, face.size, {face.bold, face.italic, face.strikethru, face.underline});
}

void drawCaption(CSurface& surface, const Caption& caption)
{
    POINT place = {caption.x, caption.y};
    surface.drawTextAt(caption.text, &place, LeftAligned);
}

void drawCaptions(CSurface& surface, unsigned long colour, std::initializer_list<Caption> captions)
{
    surface.setTextColor(colour);
    for (const Caption& caption : captions) {
        drawCaption(surface, caption);
    }
}

void drawCell(CSurface& surface, RECT cell, const char* text, int flags)
{
    surface.drawText(text, &cell, static_cast<unsigned int>(flags));
}

void labelValues(CSurface& surface, const Plot& plot, int rows)
{
    for (int row = 0; row <= rows; ++row) {
        const int value = plot.top * row / rows;
        std::string label = std::to_string(value);
        const int width = static_cast<int>(label.size()) * 6;
        surface.drawTextOnBaseLine(plot.area.left - 4 - width, plot.y(value) + 3, 0, nullptr, label.data(),
                                   -1);
    }
}

void labelSlots(CSurface& surface, const Plot& plot, int step)
{
    // The options clip to a box that is as wide as a step.
    constexpr unsigned int Clipped = 4;
    for (int slot = 0; slot <= plot.slots; slot += step) {
        std::string label = std::to_string(slot);
        const int left = plot.x(slot) - static_cast<int>(label.size()) * 3;
        RECT box = {left, plot.area.bottom + 4, plot.x(slot + step) - 4, plot.area.bottom + 22};
        surface.drawTextOnBaseLine(left, plot.area.bottom + 15, Clipped, &box, label.data(), -1);
    }
}

Runs& Runs::at(LONG x, LONG y, const char* text, RunLook look)
{
    return add({x, y}, false, text, look);
}

Runs& Runs::then(const char* text, RunLook look)
{
    return add({0, 0}, true, text, look);
}

Runs& Runs::add(POINT place, bool follows, const char* text, RunLook look)
{
    TovoTextString content(text);
    CSurfaceTextChunk& run = m_runs.emplace_back();
    run.create(&content, false, place, follows, look.width, look.underlined);
    m_order.add(&run);
    return *this;
}

void Runs::draw(CSurface& surface, RECT box, int flags)
{
    surface.drawString(&m_order, &box, flags);
}

void Runs::drawUpright(CSurface& surface, RECT box, int flags)
{
    surface.drawString(&m_order, &box, flags, 0, 0);
}
