// What the samples of an image cost on their way into a PostScript document, decoding apart. SampleEncoding.cpp
// includes an image in CSurfacePSPrinter, decodes the same bytes without it, and has the floor of their
// hexadecimal digits.
#pragma once

#include <string>
#include <string_view>

// Seconds of processor time. What the second takes, the first takes as well: their difference is the cost of
// samples, run lengths and digits.
double timeOfIncluding(std::string& image, int pictureType);
double timeOfDecoding(std::string& image);

// The digits that stand for the image in a document of makePostScriptImage, and what they are digits of.
std::string_view samplesIn(std::string_view page);
std::string bytesOf(std::string_view digits);

// The digits of the bytes, by nothing but a table: two for each byte, a line feed after every 150th.
void makeFloorSamples(std::string_view bytes, std::string& digits);
