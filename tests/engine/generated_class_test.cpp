#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "PersonClasses.h"
#include "TableClass.h"

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;
using NxTest::Person;

namespace {

// The children of one parsed element, for matching tests.
class ParsedChildren {
public:
    explicit ParsedChildren(const char* xml)
    {
        m_document.LoadXml(xml);
        for (CXmlElement* child = m_document.GetDocumentElement()->GetFirstElement(); child;
             child = child->GetNextSiblingElement())
            m_children.push_back(child);
    }
    CXmlElement* operator[](size_t index) const { return m_children.at(index); }

private:
    CXmlDocument m_document;
    std::vector<CXmlElement*> m_children;
};

// Records that log their destruction, to follow CleanMetaData.
std::vector<std::string> g_destroyed;

template <class Record>
struct Logged : Record {
    template <class... Args>
    explicit Logged(const char* tag, Args... args) : Record(args...), m_tag(tag)
    {
    }
    ~Logged() override { g_destroyed.push_back(m_tag); }
    std::string m_tag;
};

// An attribute record of a string, optional and without default.
CAttributeInfoPrimitive StringAttribute(const char* name)
{
    return CAttributeInfoPrimitive(name, "", 0, true, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                   CPrimitiveRestrictions(), nullptr);
}
CAttributeInfo* LoggedAttribute(const char* name)
{
    return new Logged<CAttributeInfoPrimitive>(name, name, "", 0, true, ItemTypeString, nullptr,
                                                CWhitespaceUtils::WhitespaceRuleNone, CPrimitiveRestrictions(),
                                                nullptr);
}
CElementInfo* LoggedElement(const char* name) { return new Logged<CElementInfoSeqPrimCol>(name, name, "", 0); }

// A record of a mandatory child object, which has no primitive description.
CElementInfoSeqClsMnd ChildEntry(const char* name, const char* elementNamespace, int propertyIndex)
{
    return CElementInfoSeqClsMnd(name, elementNamespace, propertyIndex, XmlElementType_Element,
                                 &NxTest::CreatePersonObject, NxTest::ClassNumberAddress, true);
}

// A record of a mandatory string element with the given facets.
CElementInfoSeqPrimMnd PrimEntry(const char* name, ItemType type, const CPrimitiveRestrictions& restrictions)
{
    return CElementInfoSeqPrimMnd(name, "", 0, type, nullptr, CWhitespaceUtils::WhitespaceRuleCollapse, restrictions);
}

} // namespace

TEST(GeneratedClassTables, CleanMetaDataDeletesParentThenElementsThenAttributesAndNullsTheReferences)
{
    g_destroyed.clear();
    CParentElementInfo* parent = new Logged<CParentElementInfo>("parent", XmlElementGroupType_All,
                                                                 XmlElementType_Pseudo, "T", "", 0, false, true);
    CElementInfo** elements = new CElementInfo*[4]{LoggedElement("e1"), LoggedElement("e2"),
                                                    LoggedElement("e3"), nullptr};
    CAttributeInfo** attributes =
        new CAttributeInfo*[3]{LoggedAttribute("a1"), LoggedAttribute("a2"), nullptr};

    CXmlGeneratedClass::CleanMetaData(parent, elements, attributes);
    EXPECT_EQ(g_destroyed, (std::vector<std::string>{"parent", "e1", "e2", "e3", "a1", "a2"}));
    EXPECT_EQ(parent, nullptr);
    EXPECT_EQ(elements, nullptr);
    EXPECT_EQ(attributes, nullptr);

    // A second clean-up, or one of null references, does nothing.
    CXmlGeneratedClass::CleanMetaData(parent, elements, attributes);
    EXPECT_EQ(g_destroyed.size(), 6u);

    // Any reference may be null on its own; empty tables are freed too.
    elements = new CElementInfo*[2]{LoggedElement("only"), nullptr};
    attributes = new CAttributeInfo*[1]{nullptr};
    CXmlGeneratedClass::CleanMetaData(parent, elements, attributes);
    EXPECT_EQ(g_destroyed.back(), "only");
    EXPECT_EQ(g_destroyed.size(), 7u);
    EXPECT_EQ(elements, nullptr);
    EXPECT_EQ(attributes, nullptr);
}

TEST(GeneratedClass, CountsEntriesAndFindsElementsInItsTable)
{
    CSmartPtr<Person> person(new Person);
    // A class without child elements or attributes.
    CSmartPtr<NxRoundTrip::TableClass> bare(
        new NxRoundTrip::TableClass(std::make_shared<NxRoundTrip::Table>(XmlElementGroupType_Sequence), "Bare"));
    EXPECT_EQ(person->GetClassElementInfoCount(), 6);
    EXPECT_EQ(bare->GetClassElementInfoCount(), 0);

    ParsedChildren children("<r xmlns:p='urn:test:person'><p:Phone/><Phone/><p:Other/></r>");
    CXmlSerializationContext context;
    EXPECT_TRUE(person->IsElementInList(context, children[0]));
    EXPECT_FALSE(person->IsElementInList(context, children[1]));
    EXPECT_FALSE(person->IsElementInList(context, children[2]));
    EXPECT_FALSE(person->IsElementInList(context, nullptr));
    EXPECT_FALSE(bare->IsElementInList(context, children[0]));
    context.SetIgnoreNamespaces(true);
    EXPECT_TRUE(person->IsElementInList(context, children[1]));
    EXPECT_FALSE(person->IsElementInList(context, children[2]));
}

TEST(ElementInfo, CheckRestrictionUsesTheEntrysFacetsOrRefusesWithoutThem)
{
    CElementInfoSeqPrimMnd described = PrimEntry(
        "Code", ItemTypeString, CPrimitiveRestrictions(nullptr, -1, 3, nullptr, nullptr, nullptr, nullptr, -1));
    NxVariant value;
    value.SetString("abc");
    described.CheckRestriction(value);
    value.SetString("abcd");
    ExpectFailure<CNxException>([&] { described.CheckRestriction(value); }, "Invalid Value for Code [abcd]");

    // The entry's kind decides the check, not the variant's tag.
    CElementInfoSeqPrimMnd number =
        PrimEntry("Count", ItemTypeI4, CPrimitiveRestrictions(nullptr, -1, -1, "10", nullptr, nullptr, nullptr, -1));
    value.SetI4(5);
    ExpectFailure<CNxException>([&] { number.CheckRestriction(value); }, "Invalid Value for Count [5]");

    CElementInfoSeqClsMnd undescribed = ChildEntry("Address", "", 0);
    value.SetString("abc");
    ExpectFailure<CNxException>([&] { undescribed.CheckRestriction(value); },
                                "Cannot CheckRestriction for type: string");
    value.SetI4(1);
    ExpectFailure<CNxException>([&] { undescribed.CheckRestriction(value); },
                                "Cannot CheckRestriction for type: i4");
    // A variant without a type name fails while the message is made.
    ExpectFailure<CNxException>([&] { undescribed.CheckRestriction(NxVariant()); }, "Invalid Type 0");
}

TEST(ElementInfo, IsThisElementComparesLocalNameThenNamespaceUnlessIgnored)
{
    ParsedChildren children("<r xmlns:a='urn:a' xmlns:b='urn:b'><a:Item/><b:Item/><a:item/><Item/></r>");
    CElementInfoSeqClsMnd entry = ChildEntry("Item", "urn:a", 0);
    CElementInfoSeqClsMnd local = ChildEntry("Item", nullptr, 0);
    CXmlSerializationContext strict, ignoring, noNamespaces;
    ignoring.SetIgnoreNamespaces(true);
    // The namespace-free schema type ignores namespaces through the context.
    noNamespaces.SetSchemaType(SchemaTypeNoNamespaces);
    // What entry, then local, answers for the four children and for null.
    const struct {
        const CXmlSerializationContext* context;
        const char* entryAnswers;
        const char* localAnswers;
    } cases[] = {{&strict, "10000", "00010"}, {&ignoring, "11010", "11010"}, {&noNamespaces, "11010", "11010"}};
    for (const auto& c : cases) {
        std::string entryAnswers, localAnswers;
        for (size_t i = 0; i < 5; ++i) {
            CXmlElement* child = i < 4 ? children[i] : nullptr;
            entryAnswers += entry.IsThisElement(*c.context, child) ? '1' : '0';
            localAnswers += local.IsThisElement(*c.context, child) ? '1' : '0';
        }
        EXPECT_EQ(entryAnswers, c.entryAnswers);
        EXPECT_EQ(localAnswers, c.localAnswers);
    }
}

TEST(ElementInfo, GetAnyDefaultNamespaceFollowsTheWildcardsFirstToken)
{
    struct Case {
        const char* wildcard;
        const char* classNamespace;
        const char* expected;
    };
    const Case cases[] = {
        {"##any", "urn:class", "urn:class"},
        {"##any", "", ""},
        {"##other", "", "DefaultNamespace"},
        {"##other", "urn:class", ""},
        {"##local", "urn:class", ""},
        {"##targetNamespace", "urn:class", "urn:target"},
        // A list that opens with a token goes by its first token.
        {"##targetNamespace ##local", "urn:class", "urn:target"},
        {"##other ##any", "", "DefaultNamespace"},
        {"##any ##local", "urn:class", "urn:class"},
        {"##any ", "urn:class", "urn:class"},
        {"## ##any", "urn:class", ""},
        // A URI, or a list that opens with one, gives no default.
        {"urn:x ##any", "urn:class", ""},
        {"urn:x", "urn:class", ""},
        {"##ANY", "urn:class", ""},
        {"", "urn:class", ""},
        {nullptr, "urn:class", ""},
        {"##any", nullptr, ""},
        {"##other", nullptr, "DefaultNamespace"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.wildcard ? c.wildcard : "(null)") + " / " +
                     (c.classNamespace ? c.classNamespace : "(null)"));
        EXPECT_EQ(CElementInfo::GetAnyDefaultNamespace(c.wildcard, c.classNamespace, "urn:target"),
                  c.expected);
    }
    EXPECT_EQ(CElementInfo::GetAnyDefaultNamespace("##targetNamespace", "urn:class", nullptr), "");
}

TEST(AttributeInfo, IsThisAttributeComparesLocalNameThenNamespaceUnlessIgnored)
{
    CAttributeInfoPrimitive entry = StringAttribute("lang");
    CXmlAttribute plain("lang", "de", "");
    CXmlAttribute foreign("lang", "de", "urn:other");
    CXmlAttribute other("Lang", "de", "");
    CXmlSerializationContext context;
    EXPECT_TRUE(entry.IsThisAttribute(context, &plain));
    EXPECT_FALSE(entry.IsThisAttribute(context, &foreign));
    EXPECT_FALSE(entry.IsThisAttribute(context, &other));
    EXPECT_FALSE(entry.IsThisAttribute(context, nullptr));
    context.SetIgnoreNamespaces(true);
    EXPECT_TRUE(entry.IsThisAttribute(context, &foreign));
    EXPECT_FALSE(entry.IsThisAttribute(context, &other));
}

TEST(MetadataRecords, NullTextsAreKeptAsEmptyTexts)
{
    CParentElementInfo parent(XmlElementGroupType_Choice, XmlElementType_Pseudo, nullptr, nullptr, 0, false, true);
    EXPECT_EQ(parent.GetTypeName(), "");
    EXPECT_EQ(parent.GetTypeNamespace(), "");
    // Only -1 means that there is no text property.
    EXPECT_EQ(parent.GetTextPropertyIndex(), 0);

    CElementInfoSeqClsMnd element = ChildEntry(nullptr, nullptr, 4);
    EXPECT_EQ(element.GetName(), "");
    EXPECT_EQ(element.GetNamespace(), "");
    EXPECT_EQ(element.GetPropertyIndex(), 4);

    CAttributeInfo* attribute = new CAttributeInfoPrimitive(nullptr, "", 2, true, ItemTypeString, nullptr,
                                                            CWhitespaceUtils::WhitespaceRuleNone,
                                                            CPrimitiveRestrictions(), nullptr);
    EXPECT_EQ(attribute->GetName(), "");
    EXPECT_EQ(attribute->GetDefaultValue(), "");
    delete attribute;
}
