#include <gtest/gtest.h>

#include <memory>

#include "NxXmlLib9.h"

using namespace NxXmlLib9;

TEST(ExceptionChain, FullMessagePrintsOutermostFirstWithoutTrailingLineFeed)
{
    CNxException cause("cause");
    CNxValidationException middle("middle", cause);
    CNxException outer("outer", middle);
    EXPECT_EQ(outer.GetFullMessage(), "outer\nmiddle\ncause");
    EXPECT_EQ(outer.GetMessage(), "outer");
    EXPECT_EQ(CNxException().GetFullMessage(), "");
    EXPECT_EQ(CNxException().GetInnerException(), nullptr);
}

TEST(ExceptionChain, WrappingClonesTheInnerFailureKeepingItsClass)
{
    CNxInvalidValueException cause("bad value");
    CNxException outer("outer", cause);
    CNxException* inner = outer.GetInnerException();
    ASSERT_NE(inner, nullptr);
    EXPECT_NE(inner, &cause);
    EXPECT_NE(dynamic_cast<CNxInvalidValueException*>(inner), nullptr);
}

TEST(ExceptionChain, CopyIsDeepSoTheSourceChainSurvivesTheCopy)
{
    CNxException source("outer", CNxException("inner", CNxException("root")));
    {
        CNxException copy(source);
        EXPECT_NE(copy.GetInnerException(), source.GetInnerException());
        EXPECT_EQ(copy.GetFullMessage(), "outer\ninner\nroot");
    }
    EXPECT_EQ(source.GetFullMessage(), "outer\ninner\nroot");
}

TEST(ExceptionChain, AssignmentTakesMessageAndAClonedChain)
{
    CNxException target("old", CNxException("old inner"));
    const CNxException source("new", CNxException("new inner"));
    target = source;
    EXPECT_EQ(target.GetFullMessage(), "new\nnew inner");
    EXPECT_NE(target.GetInnerException(), source.GetInnerException());

    target = CNxException("plain");
    EXPECT_EQ(target.GetInnerException(), nullptr);
    EXPECT_EQ(target.GetFullMessage(), "plain");

    CNxException self("self", CNxException("kept"));
    const CNxException& alias = self;
    self = alias;
    EXPECT_EQ(self.GetFullMessage(), "self\nkept");
}

TEST(ExceptionClasses, CloneGivesTheMostDerivedClassCatchableThroughItsBases)
{
    const CNxInvalidValueException original("value", CNxException("why"));
    std::unique_ptr<CNxException> clone(original.Clone());
    EXPECT_EQ(clone->GetFullMessage(), "value\nwhy");
    try {
        throw *static_cast<CNxInvalidValueException*>(clone.get());
    } catch (const CNxValidationException& e) {
        EXPECT_EQ(e.GetMessage(), "value");
    }
    EXPECT_NE(dynamic_cast<CNxValidationException*>(clone.get()), nullptr);
    EXPECT_EQ(dynamic_cast<CNxInvalidNamespaceException*>(clone.get()), nullptr);
}

TEST(ExceptionClasses, ConvertingConstructorChangesTheClassAndKeepsMessageAndChain)
{
    const CNxException plain("text", CNxException("inner"));
    CNxInvalidStateException converted(plain);
    std::unique_ptr<CNxException> clone(converted.Clone());
    EXPECT_NE(dynamic_cast<CNxInvalidStateException*>(clone.get()), nullptr);
    EXPECT_EQ(clone->GetFullMessage(), "text\ninner");
}
