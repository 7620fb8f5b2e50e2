// How a class or function becomes visible outside the module's shared library.
//
// Everything is hidden unless it is marked. A macro, because an attribute cannot be named any other way.
#pragma once

#if __cplusplus < 202002L
#error "surface needs C++20: compile with -std=c++20"
#include "the error above" // which ends the compilation here
#endif

#if defined(_WIN32) && defined(SURFACE_BUILDS_MODULE)
#define SURFACE_API __declspec(dllexport)
#elif defined(_WIN32)
#define SURFACE_API __declspec(dllimport)
#else
#define SURFACE_API __attribute__((visibility("default")))
#endif
