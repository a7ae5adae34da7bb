#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "RegisterVersion.h"

using namespace NxXmlLib9;

namespace {

// Writes a root with one child. What the walk receives is recorded, so the
// test sees the arguments the entry passes down.
class Note : public CXmlObjectBase {
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return m_target; }
    std::string GetNamespace() const override { return m_target; }

    std::string m_target = "urn:note";
    bool m_leaveOpen = false;
    bool m_fail = false;
    mutable bool m_sawRoot = false;
    mutable bool m_sawOptionalChoice = true;
    mutable std::string m_sawNamespace;
    mutable const CXmlSerializationContext* m_sawContext = nullptr;

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override
    {
        m_sawRoot = isRoot;
        m_sawOptionalChoice = isOptionalChoice;
        m_sawNamespace = elementNamespace;
        m_sawContext = &context;
        if (m_fail)
            throw CNxInvalidValueException("inner failure");
        writer->WriteStartElement("note", elementNamespace);
        writer->WriteStartElement("line", elementNamespace);
        writer->WriteString("a\nb", ItemTypeString);
        writer->WriteEndElement();
        if (!m_leaveOpen)
            writer->WriteEndElement();
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* cursor, const CXmlSerializationContext&, bool) override
    {
        return cursor;
    }
};

} // namespace

TEST(ToXml, DefaultsWriteAFormattedDocumentWithADeclarationWithoutEncoding)
{
    CSmartPtr<Note> note(new Note);
    EXPECT_EQ(note->ToXml(), "<?xml version=\"1.0\"?>\n"
                             "<AA:note xmlns:AA=\"urn:note\">\n"
                             "\t<AA:line>a\nb</AA:line>\n"
                             "</AA:note>\n");
    EXPECT_TRUE(note->m_sawRoot);
    EXPECT_FALSE(note->m_sawOptionalChoice);
    EXPECT_EQ(note->m_sawNamespace, "urn:note");
    EXPECT_EQ(note->m_sawContext, &CXmlSerializationContext::m_defaultContext);
}

TEST(ToXml, HeaderFormatAndLineEndFollowTheArguments)
{
    CSmartPtr<Note> note(new Note);
    note->m_target = "";
    EXPECT_EQ(note->ToXml(false, false), "<note><line>a\nb</line></note>");
    EXPECT_EQ(note->ToXml(true, false, EOLTypeCRLF), "<?xml version=\"1.0\"?>\r\n<note><line>a\r\nb</line></note>");
    CXmlSerializationContext context;
    note->ToXml(false, true, EOLTypeLF, context);
    EXPECT_EQ(note->m_sawContext, &context);
}

TEST(ToXml, FailuresOfTheWalkReachTheCallerUnwrapped)
{
    CSmartPtr<Note> note(new Note);
    note->m_fail = true;
    try {
        note->ToXml();
        FAIL() << "no exception";
    } catch (const CNxInvalidValueException& e) {
        EXPECT_EQ(e.GetFullMessage(), "inner failure");
    }
    note->m_fail = false;
    note->m_leaveOpen = true;
    try {
        note->ToXml();
        FAIL() << "no exception";
    } catch (const CNxException& e) {
        EXPECT_EQ(e.GetFullMessage(), "An Element has not been closed.");
    }
}
