// One line in the log for each cause, however often a page meets it.
#pragma once

#include "sys/krnos.h"
#include "sys/tovoarray.h"

namespace drawing {

// Whether `number` is reported for the first time; it counts as reported then. What cannot be remembered, for want of memory or
// because too many were reported already, is not reported.
inline bool firstTold(Vector<unsigned int, 10>& told, unsigned int number)
{
    constexpr unsigned int Most = 100; // a page of strangers must not fill a host's log
    for (unsigned int i = 0; i < told.size(); ++i) {
        if (told[i] == number) {
            return false;
        }
    }
    if (told.size() >= Most) {
        return false;
    }
    try {
        told.add(number);
    } catch (const KrnException&) {
        return false;
    }
    return true;
}

} // namespace drawing
