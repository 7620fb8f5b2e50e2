// The device that writes down what is drawn on it, as the records of an enhanced metafile ([MS-EMF]). To a context it
// looks like the screen, its reference device. EnhancedMetafiles.cpp makes it and ends it; what it records is played
// by PlayEnhMetaFile and by any other reader of the format.
//
// Once recording has stopped, for want of memory or at the limit of 1 GiB, every operation fails, and so does finish().
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "Device.h"
#include "DrawnBounds.h"
#include "GdiObject.h"
#include "PenReach.h"
#include "RecordBuffer.h"
#include "RecordedObjects.h"

namespace wingdi {

class MetafileDevice : public Device {
public:
    // The picture's frame in hundredths of a millimetre; null for the bounds of what is drawn.
    explicit MetafileDevice(const RECT* frame);

    // Ends the recording and gives the metafile; nothing when recording has stopped before.
    std::optional<std::vector<BYTE>> finish() noexcept;

    int capability(int index) const override;

    void stateChanged(DeviceContext& context, StateField field) override;
    void objectSelected(DeviceContext& context, const std::shared_ptr<GdiObject>& object) override;
    void objectDeleted(HGDIOBJ object) noexcept override { m_objects.objectDeleted(object); }
    void worldTransformModified(DeviceContext& context, const XFORM& transform, DWORD mode) override;
    void extentScaled(DeviceContext& context, bool window, const int (&factors)[4]) override;
    void clipSelected(DeviceContext& context, const Region* region, int mode) override;
    void clipRectCombined(DeviceContext& context, const RECT& rect, int mode) override;
    void clipOffset(DeviceContext& context, int x, int y) override;
    void stateSaved(DeviceContext& context) override;
    void stateRestored(DeviceContext& context, int levels) override;

    bool lineTo(DeviceContext& context, POINT from, POINT to) override;
    bool poly(DeviceContext& context, PolyShape shape, std::span<const POINT> points,
              std::span<const DWORD> counts) override;
    bool box(DeviceContext& context, BoxShape shape, const RECT& rect, SIZE corner) override;
    bool arc(DeviceContext& context, ArcShape shape, const RECT& rect, POINT start, POINT end) override;
    bool angleArc(DeviceContext& context, POINT center, DWORD radius, FLOAT startAngle,
                  FLOAT sweepAngle) override;
    bool path(DeviceContext& context, PathStep step) override;
    bool selectClipPath(DeviceContext& context, int mode) override;

    bool patternBlt(DeviceContext& context, std::span<const RECT> rects, const BrushObject& brush,
                    DWORD operation) override;
    bool fillRegion(DeviceContext& context, const Region& region,
                    const std::shared_ptr<BrushObject>& brush) override;
    bool floodFill(DeviceContext& context, POINT start, COLORREF color, UINT type) override;
    bool setPixel(DeviceContext& context, POINT point, COLORREF color) override;
    COLORREF pixel(DeviceContext& /*context*/, POINT /*point*/) override { return CLR_INVALID; }

    bool copy(DeviceContext& context, const RECT& target, DeviceContext& source, const SourceArea& area,
              DWORD operation, bool stretch) override;
    bool copyDib(DeviceContext& context, const RECT& target, const BITMAPINFO* info, const void* bits,
                 UINT usage, const SourceArea& area, DWORD operation) override;
    bool alphaBlend(DeviceContext& context, const RECT& target, DeviceContext& source, const SourceArea& area,
                    const AlphaShare& share) override;

    bool text(DeviceContext& context, const TextOutput& output) override;
    bool comment(DeviceContext& context, std::span<const BYTE> data) override;

private:
    enum class PathState : unsigned char { None, Open, Ended };

    bool recordCopy(DeviceContext& context, const RECT& target, DeviceContext& source, const SourceArea& area,
                    DWORD operation, DWORD type);

    // Appends a record, after those that deletions since the last one ask for. As RecordBuffer::append().
    template <class Record>
    BYTE* record(DWORD type, const Record& fields, std::uint64_t tailLength = 0) noexcept
    {
        if (m_objects.anyDeleted()) {
            recordDeletions();
        }
        return m_buffer.append(type, fields, tailLength);
    }
    void recordDeletions() noexcept;
    void recordSelection(DWORD entry);

    // The entry of an object, whose creation is recorded when it has none yet; a stock object's number with the top
    // bit set. 0 when recording has stopped or the object can't be recorded.
    DWORD entryOf(const GdiObject& object);
    bool recordCreation(const GdiObject& object, DWORD entry);
    bool recordBrush(const BrushObject& brush, DWORD entry);
    bool recordPen(const PenObject& pen, DWORD entry);

    // Counts pixels as drawn, as far as the clip shows them.
    void markDrawn(const DeviceContext& context, DrawnBounds bounds);
    // The same for lines through these pixels, or adds them to the path that is open. Gives what is in a record
    // of them: nothing in a path.
    RECTL markStroked(const DeviceContext& context, DrawnBounds bounds, Corners corners);
    // What is in a record that draws a path.
    RECTL markPath(const DeviceContext& context, bool stroked);

    RecordBuffer m_buffer;
    RecordedObjects m_objects;
    std::optional<RECT> m_frame;
    DrawnBounds m_drawn;
    PathState m_pathState = PathState::None;
    DrawnBounds m_path;
    DeletionWatch m_watch{*this};
};

// The data of a region ([MS-EMF] 2.2.24), as records carry it.
class RegionRecord {
public:
    explicit RegionRecord(const Region& region);

    DWORD length() const noexcept { return static_cast<DWORD>(m_length); }
    void write(BYTE* target) const noexcept;

private:
    std::vector<RECT> m_rectangles;
    RECT m_box;
    std::uint64_t m_length;
};

} // namespace wingdi
