// Text of a page as one line of plain ASCII: "in quotes", everything else, quotes and backslashes too, as \xNN.
#pragma once

#include <string>
#include <string_view>

std::string quotedText(std::string_view text);
