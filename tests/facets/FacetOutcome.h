// What a facet check makes of a value, as one string for a table of cases.
#pragma once

#include <functional>
#include <string>
#include <typeinfo>

#include "NxXmlLib9.h"

// "" when the call passes; the message of a bare CNxException (a broken
// facet); for the other classes, the message after the class's short name,
// "InvalidValue: ..." or "InvalidState: ...".
inline std::string Outcome(const std::function<void()>& call)
{
    using namespace NxXmlLib9;
    try {
        call();
    } catch (const CNxException& e) {
        const std::type_info& type = typeid(e);
        if (type == typeid(CNxException))
            return e.GetMessage();
        if (type == typeid(CNxInvalidValueException))
            return "InvalidValue: " + e.GetMessage();
        if (type == typeid(CNxInvalidStateException))
            return "InvalidState: " + e.GetMessage();
        return std::string(type.name()) + ": " + e.GetMessage();
    }
    return "";
}

inline NxXmlLib9::CPrimitiveRestrictions Lengths(int minLength, int maxLength, int length)
{
    return NxXmlLib9::CPrimitiveRestrictions(nullptr, minLength, maxLength, nullptr, nullptr, nullptr, nullptr,
                                             length);
}

inline NxXmlLib9::CPrimitiveRestrictions Bounds(const char* minInclusive, const char* maxInclusive,
                                                const char* minExclusive = nullptr,
                                                const char* maxExclusive = nullptr)
{
    return NxXmlLib9::CPrimitiveRestrictions(nullptr, -1, -1, minInclusive, maxInclusive, minExclusive,
                                             maxExclusive, -1);
}
