// Test helpers that turn what a call does into one string, so that cases
// read as one table of {input, expected}.
#pragma once

#include <functional>
#include <string>
#include <typeinfo>

#include <gtest/gtest.h>

#include "NxXmlLib9.h"

// "" when the call passes; the message of a bare CNxException; for the other
// classes, the message after the class's short name ("InvalidValue: ...").
inline std::string Outcome(const std::function<void()>& call)
{
    using namespace NxXmlLib9;
    try {
        call();
    } catch (const CNxException& e) {
        const std::type_info& type = typeid(e);
        const char* name = type == typeid(CNxException)               ? ""
                           : type == typeid(CNxInvalidValueException) ? "InvalidValue: "
                           : type == typeid(CNxInvalidStateException) ? "InvalidState: "
                           : type == typeid(CNxInvalidParamException) ? "InvalidParam: "
                           : type == typeid(CNxOverFlowException)     ? "OverFlow: "
                                                                      : type.name();
        return name + e.GetMessage();
    }
    return "";
}

// What a variant prints after reading text as type under rule, or "! " and
// the outcome of the failure.
inline std::string ReadAs(NxXmlLib9::ItemType type, const std::string& text,
                          NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule =
                              NxXmlLib9::CWhitespaceUtils::WhitespaceRuleNone)
{
    NxXmlLib9::NxVariant value;
    std::string printed;
    const std::string failure = Outcome([&] {
        value.FromString(text, type, rule);
        printed = value.ToString(nullptr);
    });
    return failure.empty() ? printed : "! " + failure;
}

struct ReadCase {
    NxXmlLib9::ItemType type;
    std::string text;
    std::string expected; // see ReadAs
    NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule = NxXmlLib9::CWhitespaceUtils::WhitespaceRuleNone;
};

inline void ExpectReads(std::initializer_list<ReadCase> cases)
{
    for (const ReadCase& c : cases)
        EXPECT_EQ(c.expected, ReadAs(c.type, c.text, c.rule)) << "[" << c.text << "] as " << c.type;
}
