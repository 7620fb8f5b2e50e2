// An operation that happens wholly or not at all.
#pragma once

#include <utility>

namespace drawing {

// Runs `work` and gives its result. When it ends by an exception, `undo` puts back what it changed, and the
// exception goes on. `undo` runs in a handler, not in a destructor, so it may call operations that a host overrides.
template <typename Work, typename Undo>
decltype(auto) doOrUndo(Work&& work, Undo&& undo)
{
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        std::forward<Undo>(undo)();
        throw;
    }
}

} // namespace drawing
