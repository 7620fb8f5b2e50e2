// The bodies of the templates of DeviceContext.h.
#pragma once

#include <exception>

#include "failWith.h"

namespace wingdi {

std::shared_ptr<DeviceContext> findContext(HDC handle, const char* function);

template <class Result, class Body>
Result guarded(Result failure, const Body& body) noexcept
{
    try {
        return body();
    } catch (const std::exception&) {
        return failWith(ERROR_NOT_ENOUGH_MEMORY, failure);
    }
}

template <class Result, class Body>
Result onContext(HDC handle, const char* function, Result failure, const Body& body) noexcept
{
    return guarded(failure, [&]() -> Result {
        const std::shared_ptr<DeviceContext> context = findContext(handle, function);
        if (!context) {
            return failWith(ERROR_INVALID_HANDLE, failure);
        }
        return body(*context);
    });
}

} // namespace wingdi
