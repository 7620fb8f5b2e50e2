// Changes to a list of calls that need to know what stands before a call: the attributes, images and groups
// in force. Rows of the table of the round trip; each works on the whole list.
#pragma once

#include "RandomPage.h"

#include <vector>

using Names = std::vector<std::string_view>;
bool isOneOf(const Names& names, const Call& call);

// A call of these arguments and nothing else.
Call callOf(std::string_view operation, RECT rect = {});

// What is drawn gets the attributes that were set last, whose own calls are dropped.
void bindAttributes(Calls& calls);
// The other way: each drawing call has those before it that it needs.
void setAttributes(Calls& calls);
// A string behind the mark of the page count carries its class.
void bindPageCount(Calls& calls);

// Drops the placements of images that the page does not have at that place, and picture brushes likewise.
void loseUnknownImages(Calls& calls);
// Images that are scaled to the size that they have at that place are not scaled.
void unscaleNaturalSizes(Calls& calls);

// Each transform ends before the next one and at the page's end, and only one that is open does.
void endTransforms(Calls& calls);
// So does each clip, by a clip of the whole page; a font ends it too, and it begins again behind the font.
void endClips(Calls& calls);
