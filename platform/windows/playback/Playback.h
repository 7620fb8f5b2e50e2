// A metafile while it plays on a context: the two contexts involved, how the file's units become the target's, the
// objects the file has made. Record handlers work on it through the functions of <windows.h>.
//
// The file's logical units become pixels of its reference device by world transform, window and viewport of the file;
// these are kept in a context of that device, where the mapping records go. Its pixels lie on the target's device as
// the frame lies on the rectangle asked for. Both together are the target's world transform: the target's own page
// mapping is out of force meanwhile, and the graphics mode is the advanced one.
//
// A file takes the attributes of a fresh context for granted, so it gets them: pen, brush, font, colours, modes, brush
// origin, current position. Of the target's own state only its mapping and its clip show in what is played. All of it
// comes back when playback ends, however it ends; on a recording target both ways are records.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "DeviceContext.h"
#include "PlayedObjects.h"
#include "ReferenceDevice.h"

namespace wingdi {

class Playback {
public:
    // Saves the target's state.
    Playback(HDC target, DeviceContext& context, const ReferenceDevice& device, const RECT& rect);
    Playback(const Playback&) = delete;
    Playback& operator=(const Playback&) = delete;
    // Gives the target its state back.
    ~Playback();

    // Sets the target up for the first record; false when that, or saving its state, failed.
    bool begin();

    HDC target() const noexcept { return m_target; }
    DeviceContext& context() const noexcept { return m_context; }
    PlayedObjects& objects() noexcept { return m_objects; }

    // The context of the reference device; whoever changes its mapping calls mappingChanged().
    HDC reference() const noexcept { return m_reference; }
    void mappingChanged() noexcept { m_mappingApplies = false; }
    // From the file's logical units, and the same without its world transform, to pixels of the reference device.
    Mapping fileMapping() const noexcept { return m_referenceContext->mapping(); }
    Mapping filePageMapping() const noexcept { return m_referenceContext->pageMapping(); }
    // From pixels of the reference device to those of the target.
    const Mapping& deviceMapping() const noexcept { return m_deviceMapping; }

    // Brings the target up to the file's mapping. Called before each record that draws.
    void applyMapping();
    // Draws one record by another mapping from its units to pixels of the reference device.
    void applyMappingOnce(const Mapping& toReference);

    // The file's SaveDC and RestoreDC: it gets no deeper than a limit, and never back beyond where playback began.
    void saveState();
    void restoreState(LONG level);

    // Selects, combines or (null region, RGN_COPY) gives back the clip that the file may change. Device units.
    void selectClip(HRGN region, int mode);
    // The same with the target's path.
    void selectClipPath(int mode);
    // From now on nothing gives back what the present clip cuts off.
    void keepClip();

    // True while the file is between BeginPath and EndPath.
    bool pathIsOpen() const noexcept { return m_pathIsOpen; }
    void setPathOpen(bool open) noexcept { m_pathIsOpen = open; }

    // Pixels of run-length bitmaps cost a file next to nothing, so all of one file may take only so many bytes.
    bool spendDecodedBytes(std::size_t bytes) noexcept;

private:
    // True when what the file selects must be cut to the clip that stays, record by record.
    bool confinesClip() const noexcept;
    void restoreTarget();
    void setTransform(const Mapping& toDevice);

    HDC m_target;
    DeviceContext& m_context;
    HDC m_reference = nullptr;
    std::shared_ptr<DeviceContext> m_referenceContext;
    Mapping m_deviceMapping;
    int m_savedLevel = 0;
    bool m_mappingApplies = false;
    bool m_pathIsOpen = false;
    std::vector<std::size_t> m_saved; // for each SaveDC of the file: the rectangles of its clip
    std::size_t m_savedRectangles = 0;
    std::size_t m_decodedBytes = 0;
    PlayedObjects m_objects;
};

} // namespace wingdi
