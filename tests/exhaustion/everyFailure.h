// The loop over every request for memory.
#pragma once

#include <functional>

// Calls `work` with the first request for memory failing, then with the second, and so on until it meets no failure; each
// of them once alone and once with all that follow. `work` gets what sets the failure, calls it when it is ready, and
// gives whether a request failed. Expects that nothing stays allocated, and that nothing but KrnException comes out.
using SetFailure = std::function<void()>;
void forEveryFailure(const std::function<bool(const SetFailure&)>& work);
