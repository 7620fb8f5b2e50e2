// A page as standard SVG, for browsers and other viewers: text stays text, lines stay lines, pictures are inside. It is no
// stored page: it has no DOCTYPE, so that no player takes it for one.
#pragma once

#include <windows.h>

#include <map>
#include <string>

#include "VectorPage.h"

namespace wingdi {

class SvgPage : public VectorPage {
public:
    // Millimetres of the paper, and its device units.
    SvgPage(double paperWidth, double paperHeight, double width, double height);

    void setClip(const VectorClip& clip) override;
    void fill(const Outline& area, int fillMode, const VectorPaint& paint) override;
    void stroke(const Outline& lines, const PenLook& pen, const VectorPaint& paint) override;
    void picture(const std::shared_ptr<const VectorPicture>& picture, const Mapping& toPage, bool smooth,
                 Blend blend) override;
    void text(const TextOutput& output, COLORREF color) override;
    bool finish() override;

    // After finish(): UTF-8.
    const std::string& bytes() const noexcept { return m_bytes; }

private:
    // A value of an attribute that paints; what it refers to is defined before.
    std::string paintValue(const VectorPaint& paint);
    std::string idOf(const VectorPicture& picture);
    RECT visibleBox() const;
    // Writes a definition once, and gives its id.
    std::string defined(const std::string& kind, const std::string& contents);

    double m_width;
    double m_height;
    int m_openGroups = 0;
    std::map<std::string, std::string> m_definitions; // ids by what they are
    std::map<std::string, std::string> m_pictures;    // ids
    std::size_t m_rememberedBytes = 0;
    int m_count = 0;
    std::string m_bytes;
};

} // namespace wingdi
