// Puts the calling thread into the "C" locale while it lives, and back into its own afterwards.
//
// Used where the C library turns numbers into text: Log.cpp, NumberFormat.cpp.
#pragma once

#include <clocale>
#include <locale.h>

namespace krnos {

class NeutralLocale {
public:
    NeutralLocale() noexcept : m_former(uselocale(neutral())) {}
    ~NeutralLocale() { uselocale(m_former); }

    NeutralLocale(const NeutralLocale&) = delete;
    NeutralLocale& operator=(const NeutralLocale&) = delete;

private:
    static locale_t neutral() noexcept
    {
        static const locale_t Locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return Locale;
    }

    locale_t m_former;
};

} // namespace krnos
