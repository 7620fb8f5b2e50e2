// The device of documents: turns calls into areas, lines, letters and pictures on a VectorPage, and touches no pixel.
//
// Pens of a device unit or less, hatches and picture brushes count in pixels of a screen of 96 dots per inch, whatever resolution programs see,
// so that paper shows what the screen showed. Nothing can be read back, nor flooded, as on a printer. Raster operations are
// those of BlendRule; what needs a pattern and a source together is a copy of the source, and counted.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "ShapeDevice.h"
#include "VectorPage.h"

namespace wingdi {

struct BlendRule;
struct BitmapView;
struct ColorRule;
struct CornerPair;

class VectorDevice : public ShapeDevice {
public:
    // Millimetres, and the resolution that programs see.
    void setPageSize(double width, double height, int dotsPerInch);
    // Where drawing goes from now on; null: no page is open, and nothing is drawn.
    void setPage(VectorPage* page);
    // What was kept back to see how it goes on.
    void flush();
    // How many operations were painted otherwise than they say.
    int approximations() const noexcept { return m_approximations; }

    int capability(int index) const override;

    bool selectClipPath(DeviceContext& context, int mode) override;
    bool patternBlt(DeviceContext& context, std::span<const RECT> rects, const BrushObject& brush,
                    DWORD operation) override;
    bool fillRegion(DeviceContext& context, const Region& region,
                    const std::shared_ptr<BrushObject>& brush) override;
    bool floodFill(DeviceContext& context, POINT start, COLORREF color, UINT type) override;
    bool setPixel(DeviceContext& context, POINT point, COLORREF color) override;
    COLORREF pixel(DeviceContext& context, POINT point) override;
    bool copy(DeviceContext& context, const RECT& target, DeviceContext& source, const SourceArea& area,
              DWORD operation, bool stretch) override;
    bool copyDib(DeviceContext& context, const RECT& target, const BITMAPINFO* info, const void* bits,
                 UINT usage, const SourceArea& area, DWORD operation) override;
    bool alphaBlend(DeviceContext& context, const RECT& target, DeviceContext& source, const SourceArea& area,
                    const AlphaShare& share) override;
    bool text(DeviceContext& context, const TextOutput& output) override;

protected:
    void drawShape(DeviceContext& context, const Outline& outline, bool isArea) override;
    void drawPath(DeviceContext& context, const DrawnPath& path) override;

private:
    // A picture on its way to the page.
    struct Placed {
        std::shared_ptr<const VectorPicture> picture;
        Mapping toPage;
        bool smooth;
    };
    // XOR with a picture and AND with a mask: the first two of the three steps that draw a picture with holes.
    struct MaskedSteps {
        Placed picture;
        std::optional<Placed> mask;
        VectorClip clip;
    };

    static VectorClip clipOf(const DeviceContext& context, const Region* within = nullptr);
    // False without a page; with one the context's clip is in force.
    bool begin(const DeviceContext& context, const Region* within = nullptr);
    // A clip whose rectangles and points the page still takes, else the box around it.
    VectorClip affordable(const VectorClip& clip);
    void fill(const Outline& area, int fillMode, const VectorPaint& paint, BYTE operation);
    void stroke(const DeviceContext& context, const Outline& lines);
    std::optional<VectorPaint> paintOf(const DeviceContext& context, const BrushObject& brush) const;
    std::optional<VectorPaint> paintOf(const DeviceContext& context, const PenObject& pen) const;
    PenLook lookOnPage(const DeviceContext& context) const;
    void place(const DeviceContext& context, const BitmapView& view, const CornerPair& corners,
               const RECT& target, const ColorRule& colors, DWORD operation, std::span<const BYTE> jpeg = {});
    // Takes one of the three steps; false when it is none.
    bool takeStep(const DeviceContext& context, const Placed& placed, BYTE operation);
    void put(const Placed& placed, const BlendRule& rule);
    double screenPixel() const noexcept { return m_dotsPerInch / 96.0; }

    int m_dotsPerInch = 96;
    double m_width = 210;
    double m_height = 297;
    VectorPage* m_page = nullptr;
    VectorClip m_clip; // in force on the page, as the context has it
    std::size_t m_clipBudget = 0;
    std::optional<MaskedSteps> m_steps;
    int m_approximations = 0;
};

} // namespace wingdi
