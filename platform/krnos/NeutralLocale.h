// Puts the calling thread into the "C" locale while it lives, and back into its own afterwards.
//
// Used where the C library turns numbers into text: Log.cpp, NumberFormat.cpp.
#pragma once

#include <clocale>
#include <locale.h>

class NeutralLocale {
public:
    NeutralLocale() noexcept : _former(uselocale(neutral())) {}
    ~NeutralLocale() { uselocale(_former); }

    NeutralLocale(const NeutralLocale&) = delete;
    NeutralLocale& operator=(const NeutralLocale&) = delete;

private:
    static locale_t neutral() noexcept
    {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t _former;
};
