// Flags and special lengths of drawn text. The flags are those of DrawText, which pages keep as numbers.
#pragma once

namespace drawing {

inline constexpr unsigned int CentreFlag = 0x1;
inline constexpr unsigned int RightFlag = 0x2;
inline constexpr unsigned int NoClipFlag = 0x100;

inline constexpr int WholeText = -1;    // as a length of text
inline constexpr int NoTextLength = -1; // as a width to fit a run to

} // namespace drawing
