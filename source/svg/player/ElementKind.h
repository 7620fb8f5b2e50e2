// Kinds of elements in a page, as the walks tell them apart.
#pragma once

namespace svg {

enum SvgRecordType {
    RecordUnknown = 0,
    RecordProlog = 1,
    RecordText = 2,
    RecordPath = 3,
    RecordGroup = 4,
    RecordRect = 5,
    RecordImage = 6,
    RecordUse = 7,
    RecordEllipse = 8,
    RecordLine = 9,
    RecordTSpan = 10,
    RecordPolygon = 11,
    RecordPolyline = 12,
    RecordTextPath = 91,
    RecordPattern = 92,
    RecordSymbol = 93,
    RecordClipPath = 94,
    RecordSvg = 95,
    RecordComment = 96,
    RecordGroupEnd = 97,
    RecordDefs = 99
};

} // namespace svg
