// Records of text.
#include <algorithm>

#include "RecordHandlers.h"

namespace wingdi {

namespace {

// How one piece of text lies among the file's units. Letters stand upright on the page also where the page's axes
// point to the left or up; the target has the whole mapping as its world transform, which would mirror them. So there
// the axes are turned over around the reference point: the text, and what is counted from that point, does not notice.
class UprightText {
public:
    UprightText(Playback& playback, POINT reference)
        : m_playback(playback), m_reference(currentReference(playback, reference))
    {
        const Mapping page = playback.filePageMapping();
        m_flipX = page.xx < 0;
        m_flipY = page.yy < 0;
        if (!m_flipX && !m_flipY) {
            playback.applyMapping(); // also after a text that was turned over
            return;
        }
        Mapping turn;
        if (m_flipX) {
            turn.xx = -1;
            turn.dx = 2.0 * m_reference.x;
        }
        if (m_flipY) {
            turn.yy = -1;
            turn.dy = 2.0 * m_reference.y;
        }
        playback.applyMappingOnce(turn.then(playback.fileMapping()));
    }
    UprightText(const UprightText&) = delete;
    UprightText& operator=(const UprightText&) = delete;
    // Text may have moved the current position.
    ~UprightText()
    {
        POINT position{};
        if ((m_flipX || m_flipY) && updatesPosition(m_playback) &&
            GetCurrentPositionEx(m_playback.target(), &position)) {
            position = turned(position);
            MoveToEx(m_playback.target(), position.x, position.y, nullptr);
        }
    }

    // A rectangle of the file in the units in force for the text.
    RECT turned(const RECTL& rect) const noexcept
    {
        const POINT first = turned(POINT{rect.left, rect.top});
        const POINT last = turned(POINT{rect.right, rect.bottom});
        return {std::min(first.x, last.x), std::min(first.y, last.y), std::max(first.x, last.x),
                std::max(first.y, last.y)};
    }

private:
    static bool updatesPosition(const Playback& playback)
    {
        return (GetTextAlign(playback.target()) & TA_UPDATECP) != 0;
    }
    static POINT currentReference(const Playback& playback, POINT reference)
    {
        if (updatesPosition(playback)) {
            GetCurrentPositionEx(playback.target(), &reference);
        }
        return reference;
    }
    POINT turned(POINT point) const noexcept
    {
        return {m_flipX ? toDeviceUnit(2.0 * m_reference.x - point.x) : point.x,
                m_flipY ? toDeviceUnit(2.0 * m_reference.y - point.y) : point.y};
    }

    Playback& m_playback;
    POINT m_reference;
    bool m_flipX = false;
    bool m_flipY = false;
};

BOOL draw(HDC target, POINT at, UINT options, const RECT* rect, const std::vector<CHAR>& text,
          const INT* advances)
{
    return ExtTextOutA(target, at.x, at.y, options, rect, text.data(), static_cast<UINT>(text.size()),
                       advances);
}

BOOL draw(HDC target, POINT at, UINT options, const RECT* rect, const std::vector<WCHAR>& text,
          const INT* advances)
{
    return ExtTextOutW(target, at.x, at.y, options, rect, text.data(), static_cast<UINT>(text.size()),
                       advances);
}

// The text's advances, of which there are two for a character with ETO_PDY. Without them in the file, and where they
// are not in the record, the font's own are used.
std::vector<INT> readAdvances(const metafile::Record& record, const EMRTEXT& text)
{
    const std::uint64_t count = std::uint64_t{text.nChars} * ((text.fOptions & ETO_PDY) != 0 ? 2 : 1);
    if (text.offDx == 0) {
        return {};
    }
    return record.values<INT>(text.offDx, count).value_or(std::vector<INT>{});
}

template <class Character>
bool playText(Playback& playback, const metafile::Record& record, const EMRTEXT& fields)
{
    // Glyph numbers have 16 bits in either form.
    const bool glyphs = (fields.fOptions & ETO_GLYPH_INDEX) != 0;
    if (sizeof(Character) < sizeof(WCHAR) && glyphs) {
        return playText<WCHAR>(playback, record, fields);
    }
    const auto text = record.values<Character>(fields.offString, fields.nChars);
    if (!text) {
        return false;
    }
    const std::vector<INT> advances = readAdvances(record, fields);
    const POINT at{fields.ptlReference.x, fields.ptlReference.y};
    const UprightText upright(playback, at);
    const RECT rect = upright.turned(fields.rcl);
    const bool hasRect =
        (fields.fOptions & (ETO_OPAQUE | ETO_CLIPPED)) != 0 && (fields.fOptions & ETO_NO_RECT) == 0;
    const UINT options =
        fields.fOptions & (ETO_OPAQUE | ETO_CLIPPED | ETO_GLYPH_INDEX | ETO_RTLREADING | ETO_PDY);
    draw(playback.target(), at, options, hasRect ? &rect : nullptr, *text,
         advances.empty() ? nullptr : advances.data());
    return true;
}

template <class Character>
bool textOut(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMREXTTEXTOUTW>(0);
    return fields && playText<Character>(playback, record, fields->emrtext);
}

template <class Character>
bool polyTextOut(Playback& playback, const metafile::Record& record)
{
    const auto count = record.field<DWORD>(offsetof(EMRPOLYTEXTOUTW, cStrings));
    const auto texts =
        count ? record.values<EMRTEXT>(offsetof(EMRPOLYTEXTOUTW, aemrtext), *count) : std::nullopt;
    if (!texts) {
        return false;
    }
    bool sound = true;
    for (const EMRTEXT& text : *texts) {
        sound = playText<Character>(playback, record, text) && sound;
    }
    return sound;
}

bool smallTextOut(Playback& playback, const metafile::Record& record)
{
    const auto fields = record.field<EMRSMALLTEXTOUT>(0);
    if (!fields) {
        return false;
    }
    const bool hasRect = (fields->fuOptions & ETO_NO_RECT) == 0;
    const auto rect = hasRect ? record.field<RECTL>(sizeof(*fields)) : RECTL{};
    const std::uint64_t offset = sizeof(*fields) + (hasRect ? sizeof(RECTL) : 0);
    std::optional<std::vector<WCHAR>> text;
    if ((fields->fuOptions & ETO_SMALL_CHARS) == 0) {
        text = record.values<WCHAR>(offset, fields->nChars);
    } else if (const auto bytes = record.piece(offset, fields->nChars)) {
        text.emplace(bytes->begin(), bytes->end());
    }
    if (!rect || !text) {
        return false;
    }
    const POINT at{fields->ptlReference.x, fields->ptlReference.y};
    const UprightText upright(playback, at);
    const RECT turned = upright.turned(*rect);
    const UINT options = fields->fuOptions & (ETO_OPAQUE | ETO_CLIPPED | ETO_GLYPH_INDEX | ETO_RTLREADING);
    draw(playback.target(), at, options, hasRect ? &turned : nullptr, *text, nullptr);
    return true;
}

constexpr RecordEntry Entries[] = {
    {EMR_EXTTEXTOUTA, textOut<CHAR>},      {EMR_EXTTEXTOUTW, textOut<WCHAR>},
    {EMR_POLYTEXTOUTA, polyTextOut<CHAR>}, {EMR_POLYTEXTOUTW, polyTextOut<WCHAR>},
    {EMR_SMALLTEXTOUT, smallTextOut},
};

} // namespace

std::span<const RecordEntry> textRecords() noexcept
{
    return Entries;
}

} // namespace wingdi
