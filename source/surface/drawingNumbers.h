// The numbers that callers' arguments are made of: brush styles, fields of a pen's style word, modes of
// drawImage, text flags, image ids, error numbers.
#pragma once

#include <cstddef>
#include <string_view>

inline constexpr int SolidBrush = 0;
inline constexpr int HollowBrush = 1;
inline constexpr int FirstHatchBrush = 2;
inline constexpr int PictureBrush = 99;

inline constexpr int PenLineMask = 0xF;
inline constexpr int PenWithoutLine = 5;
inline constexpr unsigned int PenCapBit = 8; // the first of the four bits of the field
inline constexpr unsigned int PenJoinBit = 12;

// The text for one four-bit field of a pen's style word; none for a value the table does not have.
template <std::size_t N>
constexpr std::string_view textOfField(const std::string_view (&texts)[N], int style, unsigned int firstBit)
{
    const std::size_t value = (static_cast<unsigned int>(style) >> firstBit) & 0xFU;
    return value < N ? texts[value] : std::string_view();
}

inline constexpr int NaturalMode = 0; // of drawImage
inline constexpr int ScaledMode = 1;
inline constexpr int TiledMode = 2;

inline constexpr int JpegPicture = 7; // types of includeImage
inline constexpr int TilePicture = 100;

inline constexpr int GreatestImageId = 65535; // a table by ids must not grow because a page says so

inline constexpr unsigned int CentreFlag = 0x1;
inline constexpr unsigned int RightFlag = 0x2;
inline constexpr unsigned int NoClipFlag = 0x100;

inline constexpr int WholeText = -1;    // as a length of text
inline constexpr int NoTextLength = -1; // as a width to fit a run to

// Numbers of the platform's message table.
inline constexpr int NoMemory = 14001;
inline constexpr int ImageNotConverted = 14015;
inline constexpr int ImageLibraryMissing = 14029;
