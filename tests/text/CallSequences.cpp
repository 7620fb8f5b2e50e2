// One walk over the list each, with the state that the page has at a call.
#include "CallSequences.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace {

const Names attributes = {"setPen", "setBrush", "setTextStyle", "setTextRotation", "setTextColor"};
const Names strings = {"drawString", "drawText", "drawRuns", "drawStraightRuns"};
const Names texts = {"drawText", "drawTextAt", "drawTextOnBaseLine", "drawRuns"};
const Names lines = {"drawLine", "polyline"};
const Names shapes = {"drawRectangle", "drawRoundedRectangle", "ellipse", "polygon", "drawArc", "drawChord",
                      "drawPie"};

Call renamed(Call call, std::string_view operation)
{
    call.operation = operation;
    return call;
}

} // namespace

bool isOneOf(const Names& names, const Call& call)
{
    return std::ranges::find(names, call.operation) != names.end();
}

Call callOf(std::string_view operation, RECT rect)
{
    Call call;
    call.operation = operation;
    call.rect = rect;
    return call;
}

void bindAttributes(Calls& calls)
{
    Call now;
    for (Call& call : calls) {
        if (call.is("setPen")) {
            now.pen = call.pen;
        } else if (call.is("setBrush")) {
            now.brush = call.brush;
        } else if (call.is("setTextStyle")) {
            now.style = call.style;
        } else if (call.is("setTextRotation")) {
            now.style.setRotation(call.style.getCharAngle(), call.style.getTextAngle());
        } else if (call.is("setTextColor")) {
            now.style = CTextStyle(call.color, 0, now.style.getCharAngle(), now.style.getTextAngle());
        } else {
            call.pen = now.pen;
            call.brush = now.brush;
            call.style = now.style;
        }
    }
    std::erase_if(calls, [](const Call& call) { return isOneOf(attributes, call); });
}

void setAttributes(Calls& calls)
{
    Calls list;
    CTextStyle turned;
    for (Call& call : calls) {
        const bool shape = isOneOf(shapes, call);
        const bool text = isOneOf(texts, call);
        const CTextStyle& style = call.style;
        const bool turns = call.is("drawRuns") && (style.getCharAngle() != turned.getCharAngle() ||
                                                   style.getTextAngle() != turned.getTextAngle());
        turned = turns ? style : turned;
        call.color = text ? style.getColor() : call.color;
        list.push_back(renamed(call, shape ? "setBrush" : ""));
        list.push_back(renamed(call, shape || isOneOf(lines, call) ? "setPen" : ""));
        list.push_back(renamed(call, text ? "setTextColor" : ""));
        list.push_back(renamed(call, turns ? "setTextRotation" : ""));
        list.push_back(call);
    }
    calls = std::move(list);
}

void bindPageCount(Calls& calls)
{
    bool marked = false;
    for (Call& call : calls) {
        marked = marked || call.is("printerNofMMarker");
        if (isOneOf(strings, call)) {
            call.pageCount = std::exchange(marked, false);
        }
    }
}

void loseUnknownImages(Calls& calls)
{
    std::set<unsigned int> known;
    for (Call& call : calls) {
        if (call.is("includeImage") && call.id < 65536) {
            known.insert(call.id);
        }
        if ((call.is("includeImage") || call.is("drawImage")) && !known.contains(call.id)) {
            call.operation = "";
        }
        if (call.brush.getStyle() == 99 &&
            !known.contains(static_cast<unsigned int>(call.brush.getPicture()))) {
            call.brush = CSurfaceBrush();
        }
    }
}

void unscaleNaturalSizes(Calls& calls)
{
    std::map<unsigned int, std::pair<int, int>> sizes;
    for (Call& call : calls) {
        const std::pair size(call.rect.right - call.rect.left, call.rect.bottom - call.rect.top);
        if (call.is("includeImage")) {
            sizes[call.id] = size;
        } else if (call.is("drawImage") && call.mode == 1 && sizes[call.id] == size) {
            call.mode = 0;
        }
    }
}

void endTransforms(Calls& calls)
{
    Calls list;
    bool open = false;
    for (Call& call : calls) {
        const bool begins = call.is("setTransform");
        if (open && begins) {
            list.push_back(callOf("clearTransform"));
        }
        if (open || !call.is("clearTransform")) {
            list.push_back(call);
        }
        open = begins || (open && !call.is("clearTransform"));
    }
    list.push_back(callOf(open ? "clearTransform" : ""));
    calls = std::move(list);
}

void endClips(Calls& calls)
{
    const Call end = callOf("setClippingRegion", {0, 0, pageWidth, pageHeight});
    Calls list;
    Call open;
    for (Call& call : calls) {
        const bool clip = call.is("setClippingRegion");
        if (clip || call.is("setFont")) {
            list.push_back(open.is("") ? open : end);
        }
        if (!clip || !call.nullRect) {
            list.push_back(call);
        }
        if (call.is("setFont")) {
            list.push_back(open);
        } else if (clip) {
            open = call.nullRect ? Call() : call;
        }
    }
    list.push_back(open.is("") ? open : end);
    calls = std::move(list);
}
