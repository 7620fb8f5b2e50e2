// How a line of text lies on the device: where it runs, where its letters stand up, and how large logical units are
// along and across it. Made by frameOfText() of the selected font's
// angles and the context's mapping.
//
// Text stands upright on the device however the page's axes point (MM_LOMETRIC grows upward, say), and angles are
// counter-clockwise as seen. The world transform turns, scales and mirrors text like everything else.
#pragma once

namespace wingdi {

// A direction; y grows downward on the device.
struct TextVector {
    double x;
    double y;
};

struct TextFrame {
    double along;  // device units of one logical unit in the direction of the line, above 0
    double across; // the same from one line to the next
    // Unit vectors on the device: along the base line, and down from it.
    TextVector right;
    TextVector down;
    // The same for each letter, which may be turned in its line by the font's orientation.
    TextVector glyphRight;
    TextVector glyphDown;
    // Along the base line in logical units, of length 1.
    TextVector logicalRight;
    // -1 where logical axes point to the left or upward on the page.
    int signX;
    int signY;
};

} // namespace wingdi
