// How a type nested in a class of the interface stays inside the module: without a word it would be as visible as its
// class.
//
// A macro, because an attribute cannot be named any other way. Windows exports no nested type and knows no such attribute.
#pragma once

#if defined(_WIN32)
#define SURFACE_HIDDEN
#else
#define SURFACE_HIDDEN __attribute__((visibility("hidden")))
#endif
