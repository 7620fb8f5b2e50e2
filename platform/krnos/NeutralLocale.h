// Puts the calling thread into the "C" locale while it lives, and back into its own afterwards.
//
// Used where the C library turns numbers into text: Log.cpp, NumberFormat.cpp.
#pragma once

#include <clocale>
#include <cstring>
#include <locale.h>

namespace krnos {

#if defined(_WIN32)

// The thread gets a locale of its own; of that only the form of numbers changes.
class NeutralLocale {
public:
    NeutralLocale() noexcept : m_formerKind(_configthreadlocale(_ENABLE_PER_THREAD_LOCALE))
    {
        std::strncpy(m_former, setlocale(LC_NUMERIC, nullptr), sizeof(m_former) - 1);
        setlocale(LC_NUMERIC, "C");
    }
    ~NeutralLocale()
    {
        setlocale(LC_NUMERIC, m_former);
        _configthreadlocale(m_formerKind);
    }

    NeutralLocale(const NeutralLocale&) = delete;
    NeutralLocale& operator=(const NeutralLocale&) = delete;

private:
    const int m_formerKind; // the locale of this thread or that of the process
    char m_former
        [256]{}; // longer than any name: language, country and code page have 64, 64 and 16 characters
};

#else

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

#endif

} // namespace krnos
