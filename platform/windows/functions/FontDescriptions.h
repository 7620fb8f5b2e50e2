// The two forms of a font description, turned into each other. Faces are in code page 1252 in the narrow form.
#pragma once

#include <windows.h>

namespace wingdi {

LOGFONTW wideDescription(const LOGFONTA& font);
LOGFONTA narrowDescription(const LOGFONTW& font);

} // namespace wingdi
