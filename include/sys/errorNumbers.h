// Numbers of the platform's message table that operations give back. Their texts: krnGetMessageText (krnos.h).
#pragma once

namespace krnError {

inline constexpr int NoMemory = 14001;
inline constexpr int NotConverted = 14015; // data that its reader makes nothing of
inline constexpr int ImageLibraryMissing = 14029;

} // namespace krnError
