// The bodies of the templates of DeviceContext.h.
#pragma once

#include <exception>

std::shared_ptr<DeviceContext> findContext(HDC handle, const char* function);

template <class Result, class Body>
Result guarded(Result failure, const Body& body) noexcept
{
    try {
        return body();
    } catch (const std::exception&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return failure;
    }
}

template <class Result, class Body>
Result onContext(HDC handle, const char* function, Result failure, const Body& body) noexcept
{
    return guarded(failure, [&]() -> Result {
        const std::shared_ptr<DeviceContext> context = findContext(handle, function);
        if (!context) {
            SetLastError(ERROR_INVALID_HANDLE);
            return failure;
        }
        return body(*context);
    });
}
