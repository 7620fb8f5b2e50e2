// The count behind gdiUnplayedRecords().
#pragma once

#include <windows.h>

// Tells that a record of this type was passed over although it would draw something.
void countUnplayed(DWORD type) noexcept;
