// A page that cairo writes or paints: of a PDF document, or a smooth picture.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "CairoRelease.h"
#include "VectorPage.h"

namespace wingdi {

class CairoPage : public VectorPage {
public:
    // `scale`: units of the surface for one of the device. Width and height are device units. The page is painted white:
    // blends need something to meet.
    CairoPage(cairo_surface_t* surface, double scale, double width, double height);

    void setClip(const VectorClip& clip) override;
    void fill(const Outline& area, int fillMode, const VectorPaint& paint) override;
    void stroke(const Outline& lines, const PenLook& pen, const VectorPaint& paint) override;
    void picture(const std::shared_ptr<const VectorPicture>& picture, const Mapping& toPage, bool smooth,
                 Blend blend) override;
    void text(const TextOutput& output, COLORREF color) override;
    bool finish() override;

private:
    using Surface = std::unique_ptr<cairo_surface_t, CairoRelease>;
    struct HatchKey {
        DWORD hatch;
        COLORREF color;
        std::optional<COLORREF> gaps;
        bool operator<(const HatchKey& other) const
        {
            return std::tie(hatch, color, gaps) < std::tie(other.hatch, other.color, other.gaps);
        }
    };

    // Cairo gives up all further drawing when one call goes wrong; the page goes on with a new context.
    void recover();
    void begin();
    bool isDocument() const;
    void write(const Outline& lines, const PenLook& pen, bool dashed);
    void paintStroke(const Outline& lines, const PenLook& pen, Blend blend);
    // False for a paint that can't be made.
    bool setSource(const VectorPaint& paint);
    // A picture as the page may hold it once more.
    Surface again(Surface picture, int width, int height, bool smooth) const;
    cairo_surface_t* hatchTile(const HatchKey& key);
    RECT visibleBox() const;

    std::unique_ptr<cairo_t, CairoRelease> m_cairo;
    double m_scale;
    double m_width;
    double m_height;
    VectorClip m_clip;
    std::map<HatchKey, Surface> m_hatches;
    std::set<std::string> m_shown; // pictures
};

} // namespace wingdi
