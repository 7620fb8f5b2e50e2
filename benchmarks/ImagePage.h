// A page that holds one image, on CSurfaceSVG and on cairo's SVG surface, on CSurfacePSPrinter and on cairo's
// PostScript surface. In SVG a PNG stays as it is on both, and a Windows bitmap becomes a PNG; in PostScript both
// write samples.
#pragma once

#include <string>

#include "CairoWriter.h"

inline constexpr int ImageSide = 1000; // pixels

// Picture types of a surface.
inline constexpr int BitmapType = 1;
inline constexpr int PngType = 8;
inline constexpr int PlainSamplesType = 7; // JPEG; in PostScript its samples are written without run lengths

// Colour gradients under a thousand round spots: neither flat nor noise.
CairoSurface drawImage();
std::string pngOf(cairo_surface_t* image);
// 24 bits a pixel.
std::string bitmapOf(cairo_surface_t* image);

class CSurface;
void drawImageOn(CSurface& surface, std::string& image, int pictureType);
void makeSurfaceImage(std::string& image, int pictureType, std::string& page);
void makePostScriptImage(std::string& image, int pictureType, std::string& page);
// From now on cairo keeps these bytes when it writes the image; they stay the caller's.
void carryPng(cairo_surface_t* image, const std::string& png);
void makeCairoImage(PageFormat format, cairo_surface_t* image, std::string& page);
