// Texts for the error numbers of the Windows interface ([MS-ERREF] 2.2), those that drawing, files and memory
// can give.
//
// Called where the module logs a failed drawing step.
#include "sys/krnos.h"

#include <cstdio>

namespace {

struct ErrorText {
    int error;
    const char* text;
};

constexpr ErrorText ErrorTexts[] = {
    {0, "No error"},
    {1, "Invalid function"},
    {2, "File not found"},
    {3, "Path not found"},
    {5, "Access denied"},
    {6, "Invalid handle"},
    {8, "Not enough memory"},
    {13, "Invalid data"},
    {14, "Out of memory"},
    {31, "Device not functioning"},
    {50, "Request not supported"},
    {87, "Invalid parameter"},
    {120, "Function not supported on this system"},
    {122, "Buffer too small"},
    {126, "Module not found"},
    {127, "Procedure not found"},
    {193, "Not a valid executable"},
    {487, "Invalid address"},
    {1006, "File was altered while open"},
    {1400, "Invalid window handle"},
    {1425, "Invalid device context"},
    {1784, "Buffer not valid for the operation"},
    {2000, "Invalid pixel format"},
    {2001, "Invalid driver"},
    {2003, "Operation not supported on the device"},
    {2004, "Transform not supported"},
    {2005, "Clipping not supported"},
};

const char* knownText(int error) noexcept
{
    for (const ErrorText& entry : ErrorTexts) {
        if (entry.error == error) {
            return entry.text;
        }
    }
    return nullptr;
}

} // namespace

char* kosGetErrorText(int error, char* buffer, unsigned int size)
{
    const char* const text = knownText(error);
    if (buffer == nullptr || size == 0) {
        return const_cast<char*>(text != nullptr ? text : "Unknown error");
    }
    if (text != nullptr) {
        std::snprintf(buffer, size, "%s", text);
    } else {
        std::snprintf(buffer, size, "Unknown error %d", error);
    }
    return buffer;
}
