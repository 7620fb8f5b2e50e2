// The count that gdiUnplayedRecords().
#pragma once

#include <windows.h>

namespace wingdi {

// Notes that a record of this type was passed over although it would draw something.
void countUnplayed(DWORD type) noexcept;

} // namespace wingdi
