// Deeply nested documents: the depth limit of the context stops a load one
// level past it, a document at the limit reads into untyped content and into
// a recursive class and writes back on an ordinary thread stack, and with
// the limit off a document of a million levels loads and frees.
#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "TableClass.h"

#include <pthread.h>

#include <exception>
#include <functional>

using namespace NxRoundTrip;

namespace {

// A class that holds an optional child of its own kind.
class Nest : public Generated<Nest> {
public:
    static constexpr const char* kNamespace = "";
    explicit Nest(const char* name = "Nest") { SetElementName(name); Init(); }
    void Init() override { child = nullptr; }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        if (index == 0)
            AccessObject(child, read, value);
    }
    static CSmartPtr<CXmlObjectBase> Make(int, const char* name) { return new Nest(name); }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "NestType", "", -1, true,
                                      false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoSeqClsOpt("Nest", "", 0, XmlElementType_Element, &Make, 0)};
    }
    static std::vector<CAttributeInfo*> MakeAttributes() { return {}; }

    CSmartPtr<Nest> child;
};

std::string Nested(unsigned long levels)
{
    std::string xml;
    xml.reserve(13 * levels);
    for (unsigned long i = 0; i < levels; ++i)
        xml += "<Nest>";
    for (unsigned long i = 0; i < levels; ++i)
        xml += "</Nest>";
    return xml;
}

std::string DepthMessage(unsigned long limit)
{
    return "Failed to parse the document. It is nested deeper than [" + std::to_string(limit) + "] levels.";
}

// The message of the failure of a load, "(no failure)" without one.
template <class Load> std::string LoadFailure(Load load)
{
    try {
        load();
    } catch (const CNxException& failure) {
        return failure.GetMessage();
    }
    return "(no failure)";
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
const bool kSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
const bool kSanitized = true;
#else
const bool kSanitized = false;
#endif
#else
const bool kSanitized = false;
#endif

// The walks at the limit must fit well inside an ordinary 8 MB thread stack:
// work runs on a thread of three quarters of that, which a deeper walk
// overflows. Sanitizers make every frame larger, so their builds get four
// times the 8 MB.
const size_t kStackBytes = kSanitized ? 32UL << 20 : 6UL << 20;

void OnSmallStack(std::function<void()> work)
{
    struct Run {
        std::function<void()> work;
        std::exception_ptr failure;
    } run{std::move(work), nullptr};
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, kStackBytes);
    pthread_t thread;
    auto body = [](void* argument) -> void* {
        Run& run = *static_cast<Run*>(argument);
        try {
            run.work();
        } catch (...) {
            run.failure = std::current_exception();
        }
        return nullptr;
    };
    EXPECT_EQ(0, pthread_create(&thread, &attributes, body, &run));
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    if (run.failure)
        std::rethrow_exception(run.failure);
}

// The binary form of a chain of levels, written by the class itself.
CBinaryData NestedBinary(unsigned long levels)
{
    CBinaryData bytes;
    OnSmallStack([&] {
        CSmartPtr<Nest> root(new Nest());
        Nest* last = root;
        for (unsigned long i = 1; i < levels; ++i) {
            last->child = new Nest();
            last = last->child;
        }
        bytes = root->ToFastInfosetStream();
    });
    return bytes;
}

const unsigned long kLimit = 10000;

} // namespace

TEST(NestingDepth, TheLimitIsAnOptionOfTheContextCopiedWithIt)
{
    CXmlSerializationContext context;
    EXPECT_EQ(kLimit, context.GetMaximumDepth());
    context.SetMaximumDepth(3);
    CXmlSerializationContext copy(context);
    CXmlSerializationContext assigned;
    assigned = context;
    for (const CXmlSerializationContext* each : {&context, &copy, &assigned}) {
        CXmlDocument document(*each);
        EXPECT_EQ("(no failure)", LoadFailure([&] { document.LoadXml("<a><b><c/></b><b/></a>"); }));
        EXPECT_EQ(DepthMessage(3), LoadFailure([&] { document.LoadXml("<a><b><c><d/></c></b></a>"); }));
    }
}

TEST(NestingDepth, OneLevelPastTheLimitFailsInTextAndBinaryInput)
{
    const CXmlSerializationContext& context = Default();
    CXmlDocument document(context);
    EXPECT_EQ(DepthMessage(kLimit), LoadFailure([&] { document.LoadXml(Nested(kLimit + 1).c_str()); }));

    CBinaryData binary = NestedBinary(kLimit + 1);
    EXPECT_EQ(DepthMessage(kLimit),
              LoadFailure([&] { document.LoadXmlStream(const_cast<unsigned char*>(binary.GetData()),
                                                       binary.GetLength()); }));
    // The bound object's entry passes the load's failure on.
    CSmartPtr<Nest> nest(new Nest());
    EXPECT_EQ(DepthMessage(kLimit), LoadFailure([&] { nest->FromXmlStream(binary, context); }));
    CSmartPtr<CElement> element(new CElement("Nest"));
    EXPECT_EQ(DepthMessage(kLimit), LoadFailure([&] { element->FromXmlStream(binary, context); }));

    binary = NestedBinary(kLimit);
    document.LoadXmlStream(const_cast<unsigned char*>(binary.GetData()), binary.GetLength());
    EXPECT_NE(nullptr, document.GetDocumentElement());
}

// The reading and writing walks recurse once per level.
TEST(NestingDepth, AtTheLimitUntypedAndBoundReadsWriteBackOnASmallStack)
{
    const std::string xml = Nested(kLimit);
    std::string untypedText, boundText, binaryText;
    OnSmallStack([&] {
        CSmartPtr<CElement> element(new CElement("Nest"));
        element->FromXml(xml.c_str());
        untypedText = element->ToXml(false, false);
        CSmartPtr<Nest> nest(new Nest());
        nest->FromXml(xml.c_str());
        boundText = nest->ToXml(false, false);
        nest->FromXmlStream(NestedBinary(kLimit));
        binaryText = nest->ToXml(false, false);
    });
    // Empty elements are written in their short form.
    const std::string expected = Nested(kLimit - 1).insert(6 * (kLimit - 1), "<Nest/>");
    for (const std::string* text : {&untypedText, &boundText, &binaryText}) {
        EXPECT_EQ(expected.size(), text->size());
        EXPECT_TRUE(expected == *text) << text->substr(0, 80);
    }
}

TEST(NestingDepth, WithoutALimitAMillionLevelsLoadAndFree)
{
    const unsigned long levels = 1000000;
    CXmlSerializationContext unlimited;
    unlimited.SetMaximumDepth(0);
    const std::string xml = Nested(levels);
    CXmlDocument document(unlimited);
    OnSmallStack([&] {
        document.LoadXml(xml.c_str());
        unsigned long count = 0;
        for (const CXmlElement* element = document.GetDocumentElement(); element;
             element = element->GetFirstElement())
            ++count;
        EXPECT_EQ(levels, count);
        document.Cleanup();
        EXPECT_EQ(nullptr, document.GetDocumentElement());
    });
}
