// The attributes that a context has when it is new, for files that take them for granted.
#pragma once

#include <windows.h>

namespace wingdi {

struct ContextState;

// Gives the context the pen, brush, font, colours, modes, brush origin and current position of a fresh one; mapping,
// clip and graphics mode stay. Sets what differs only, since each setting is a record on a recording context. `state` is
// the context's own and changes with it. False when a stock object could not be had.
bool setFreshAttributes(HDC context, const ContextState& state);

} // namespace wingdi
