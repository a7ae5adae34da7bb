// Every test class written by the binary writer reads back, through the
// binary reader and the walks, into an equal object: under a default
// context, with the suggested encodings, and with a generated vocabulary
// that both sides share.
#include <gtest/gtest.h>

#include <functional>

#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

struct Sample {
    const char* name;
    // Substitutes a class by xsi:type.
    bool typed;
    std::function<CSmartPtr<CXmlObjectBase>()> make;
    std::function<std::string(CXmlObjectBase*)> dump;
};

template <class T>
Sample Of(const char* name, std::function<CSmartPtr<T>()> make, bool typed = false)
{
    return {name, typed, [make] { return CSmartPtr<CXmlObjectBase>(make()); },
            [](CXmlObjectBase* object) { return static_cast<T*>(object)->Dump(); }};
}

std::vector<Sample> Samples()
{
    return {
        Of<Person>("full person", &FullPerson, true),
        Of<Profile>("full profile", &FullProfile),
        Of<Pick>("pick of a shape",
                 [] {
                     CSmartPtr<Pick> pick(new Pick());
                     CSmartPtr<Circle> circle(new Circle("Shape"));
                     circle->size = 9;
                     pick->shape = circle;
                     return pick;
                 },
                 true),
        Of<Pick>("pick of raw elements",
                 [] {
                     CSmartPtr<Pick> pick(new Pick());
                     pick->raw->Add("Raw", "")->SetText("1");
                     pick->raw->Add("Raw", "")->SetText("2");
                     return pick;
                 }),
        Of<Pick>("empty pick", [] { return CSmartPtr<Pick>(new Pick()); }),
        Of<Bunch>("bunch of forms",
                  [] {
                      CSmartPtr<Bunch> forms(new Bunch());
                      CSmartPtr<Square> square(new Square("Form"));
                      square->size = 6;
                      forms->form->AppendItem(square);
                      forms->form->AppendItem(new Shape("Form"));
                      return forms;
                  },
                  true),
        Of<Bunch>("bunch of hues",
                  [] {
                      CSmartPtr<Bunch> hues(new Bunch());
                      hues->hue->items = {2, 2, 0};
                      return hues;
                  }),
    };
}

void ExpectBinaryRoundTrip(const Sample& sample, const CXmlSerializationContext& context)
{
    SCOPED_TRACE(sample.name);
    CSmartPtr<CXmlObjectBase> original = sample.make();
    CSmartPtr<CXmlObjectBase> copy = sample.make();
    try {
        const CBinaryData bytes = original->ToFastInfosetStream(FInfoDeclNone, context);
        copy->FromXmlStream(bytes, context);
        EXPECT_EQ(sample.dump(copy), sample.dump(original));
        // And, read once more, the copy writes the same bytes.
        EXPECT_TRUE(copy->ToFastInfosetStream(FInfoDeclNone, context) == bytes);
    } catch (const CNxException& e) {
        ADD_FAILURE() << e.GetFullMessage();
    }
}

// A type attribute names its type by a prefix that the root declares only
// when the type's namespace has an alias in the context.
CXmlSerializationContext WithShapesAlias()
{
    CXmlSerializationContext context;
    context.GetNamespaceAliases().Add("s", kShapesNs);
    return context;
}

} // namespace

TEST(FastInfosetReaderRoundTrip, EveryClassUnderADefaultContext)
{
    for (const Sample& sample : Samples())
        if (!sample.typed)
            ExpectBinaryRoundTrip(sample, Default());
    for (const Sample& sample : Samples())
        ExpectBinaryRoundTrip(sample, WithShapesAlias());
}

// Without an alias, the writer sends a type of a foreign namespace as an
// attribute named after the type in that namespace, and the walk refuses it.
TEST(FastInfosetReaderRoundTrip, ATypeOfAnUndeclaredNamespaceArrivesAsAnAttributeOfItsName)
{
    CSmartPtr<Pick> pick = static_cast<Pick*>(static_cast<CXmlObjectBase*>(Samples()[2].make()));
    CXmlDocument document;
    const CBinaryData bytes = pick->ToFastInfosetStream();
    document.LoadXmlStream(bytes.GetData(), bytes.GetLength());
    const CXmlElement* shape = document.GetDocumentElement()->GetFirstElement();
    ASSERT_EQ(shape->GetAttributes().size(), 1u);
    EXPECT_EQ(shape->GetAttributes()[0]->GetLocalName(), "Circle");
    EXPECT_EQ(shape->GetAttributes()[0]->GetNamespaceURI(), kShapesNs);
    CSmartPtr<Pick> copy(new Pick());
    EXPECT_THROW(copy->FromXmlStream(bytes), CNxException);
}

TEST(FastInfosetReaderRoundTrip, EveryClassWithTheSuggestedEncodings)
{
    CXmlSerializationContext context = WithShapesAlias();
    context.GetFIContext().SetSuggestedValues();
    for (const Sample& sample : Samples())
        ExpectBinaryRoundTrip(sample, context);
}

TEST(FastInfosetReaderRoundTrip, EveryClassWithAGeneratedVocabulary)
{
    CXmlSerializationContext context = WithShapesAlias();
    CFastInfosetContext& fi = context.GetFIContext();
    fi.SetUseGeneratedVocabulary(true);
    CFIVocabulary& vocabulary = fi.GetVocabulary();
    for (const char* name : {"Person", "Name", "Address", "Street", "City", "Phone", "Pick", "Raw", "Bunch", "Hue"})
        vocabulary.AddElement("", "", name);
    vocabulary.AddAttribute("", "", "kind");
    vocabulary.AddElementValue("blue");
    vocabulary.AddAttributeValue("work");
    for (const Sample& sample : Samples())
        ExpectBinaryRoundTrip(sample, context);

    // The names went out as indexes into the vocabulary.
    CSmartPtr<Person> person = FullPerson();
    auto contains = [](const CBinaryData& bytes, const std::string& text) {
        return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength()).find(text) !=
               std::string::npos;
    };
    EXPECT_TRUE(contains(person->ToFastInfosetStream(FInfoDeclNone, WithShapesAlias()), "Street"));
    EXPECT_FALSE(contains(person->ToFastInfosetStream(FInfoDeclNone, context), "Street"));
}

// Text after a child element lands, in the writer's stream, inside that
// child: mixed content does not survive the binary form.
TEST(FastInfosetReaderRoundTrip, TextAfterAChildIsNotKept)
{
    CSmartPtr<Memo> memo(new Memo());
    memo->ref = 5;
    memo->text = "words";
    CSmartPtr<Memo> copy(new Memo());
    EXPECT_ANY_THROW(copy->FromXmlStream(memo->ToFastInfosetStream()));
}
