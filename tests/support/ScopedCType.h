// Test helper: sets the character-type locale for one scope and restores
// the previous one after; the library itself never touches the locale.
#pragma once

#include <clocale>
#include <string>

class ScopedCType {
public:
    explicit ScopedCType(const char* name)
    {
        const char* current = std::setlocale(LC_CTYPE, nullptr);
        m_previous = current ? current : "C";
        m_ok = std::setlocale(LC_CTYPE, name) != nullptr;
    }
    ~ScopedCType() { std::setlocale(LC_CTYPE, m_previous.c_str()); }
    ScopedCType(const ScopedCType&) = delete;
    ScopedCType& operator=(const ScopedCType&) = delete;
    bool Ok() const { return m_ok; }

private:
    std::string m_previous;
    bool m_ok;
};

// Declares guard in UTF-8 mode, or skips the test when the system lacks it.
#define REQUIRE_UTF8_LOCALE(guard)                              \
    ScopedCType guard("C.UTF-8");                               \
    if (!(guard).Ok())                                          \
    GTEST_SKIP() << "C.UTF-8 locale not available"
