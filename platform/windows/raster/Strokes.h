// Lines with a pen, painted on pixels.
#pragma once

#include "CairoPainter.h"
#include "Ink.h"
#include "Outline.h"
#include "PenLook.h"

namespace wingdi {

void strokeThin(Canvas& canvas, const Outline& outline, const PenLook& pen, const Ink& ink);
void strokeWide(CairoPainter& painter, Canvas& canvas, const Outline& outline, const PenLook& pen,
                const Ink& ink);

} // namespace wingdi
