// A page that holds one image, on CSurfaceSVG and on cairo's SVG surface. A PNG stays as it is on both; a
// Windows bitmap becomes a PNG.
#pragma once

#include <string>

#include "CairoWriter.h"

inline constexpr int imageSide = 1000; // pixels

// Picture types of a surface.
inline constexpr int bitmapType = 1;
inline constexpr int pngType = 8;

// Colour gradients under a thousand round spots: neither flat nor noise.
CairoSurface drawImage();
std::string pngOf(cairo_surface_t* image);
// 24 bits a pixel.
std::string bitmapOf(cairo_surface_t* image);

void makeSurfaceImage(std::string& image, int pictureType, std::string& page);
// From now on cairo keeps these bytes when it writes the image; they stay the caller's.
void carryPng(cairo_surface_t* image, const std::string& png);
void makeCairoImage(cairo_surface_t* image, std::string& page);
