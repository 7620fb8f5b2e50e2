// One page of all operations, a step each, and the four kinds of page that it is drawn on.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "surface.h"

struct Step {
    const char* name;
    void (*run)(CSurface& surface);
};
extern const std::vector<Step> PageSteps;

// A surface to draw on, with what it needs around it.
class Sheet {
public:
    Sheet() = default;
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;
    virtual ~Sheet() = default;
    virtual CSurface& surface() = 0;
};

struct Target {
    const char* name;
    std::unique_ptr<Sheet> (*make)();
    // What is wrong with the bytes of a closed page; nothing when they are one.
    std::string (*faultOf)(const std::string& page);
    bool mayStop; // without memory on its device there is no page, and closeSurface says so
    bool exact;   // a page that lacks a call is, byte for byte, the one that was drawn without it
};
extern const Target SvgTarget;
extern const Target PostScriptTarget;
extern const Target MetafileTarget;
extern const Target PixelTarget;

// The bytes of a closed surface.
std::string bytesOf(CSurface& surface);

// The page with all steps; -1, or without one of them.
std::string drawnWithout(const Target& target, int left);
