// Test helper: runs a call that must fail and checks the exact class and
// message of the failure.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "NxXmlLib9.h"

template <class Expected, class Call>
void ExpectFailure(Call call, const std::string& message)
{
    try {
        call();
        ADD_FAILURE() << "expected a failure with \"" << message << "\"";
    } catch (const NxXmlLib9::CNxException& e) {
        EXPECT_EQ(typeid(Expected).name(), typeid(e).name());
        EXPECT_EQ(message, e.GetMessage());
    }
}
