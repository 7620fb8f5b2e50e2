// How a function of <windows.h> fails: it leaves an error for GetLastError and gives its answer for failure.
#pragma once

#include <windows.h>

namespace wingdi {

template <class Answer>
Answer failWith(DWORD error, Answer answer) noexcept
{
    SetLastError(error);
    return answer;
}

} // namespace wingdi
