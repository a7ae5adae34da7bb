// C++ names from XML names: valid identifiers, no keywords, and no two
// things of one scope with the same name.
#pragma once

#include <set>
#include <string>

namespace nxxsd {

// A valid C++ identifier for any XML name: characters outside [A-Za-z0-9_]
// become '_', a leading digit or underscore gets an 'N' ahead of it (names
// with a leading underscore are reserved in places), a keyword gets a '_'
// behind it. Never empty.
std::string MakeIdentifier(const std::string& xmlName);

// Hands out names of one scope: the wanted name if it is free, else the
// name with _2, _3, ... behind it. Deterministic for a fixed order of calls.
class NameScope {
public:
    NameScope() = default;
    explicit NameScope(std::set<std::string> reserved) : m_used(std::move(reserved)) {}
    std::string Claim(const std::string& wanted);

private:
    std::set<std::string> m_used;
};

} // namespace nxxsd
