// Objects that threads share: each case starts its threads together on one
// object, so that a race shows under ThreadSanitizer (the NXXML_SANITIZE=thread
// build) and, often enough, as a wrong result or a crash in any build.
#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "TableClass.h"

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

using namespace NxRoundTrip;

namespace {

const int kThreads = 4;

// Runs work(i) on kThreads threads released at the same moment.
void OnThreads(const std::function<void(int)>& work)
{
    std::atomic<bool> go(false);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            while (!go.load())
                std::this_thread::yield();
            work(i);
        });
    go.store(true);
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

// Every root write asks the context for its extra root attributes, which a
// context makes on the first request: threads writing their first documents
// with one context, the default one included, must agree on one collection.
TEST(SharedContext, FirstWritesOnSeveralThreadsShareOneRootAttributeCollection)
{
    for (int round = 0; round < 50; ++round) {
        CXmlSerializationContext fresh;
        const CXmlSerializationContext& context = round == 0 ? CXmlSerializationContext::m_defaultContext : fresh;
        std::vector<std::string> written(kThreads);
        std::vector<CAttributeCol*> seen(kThreads);
        OnThreads([&](int i) {
            CSmartPtr<Geo> geo(new Geo());
            geo->lat = i;
            written[i] = geo->ToXml(false, false, EOLTypeLF, context);
            seen[i] = context.GetAdditionalRootAttributes();
        });
        for (int i = 0; i < kThreads; ++i) {
            EXPECT_EQ("<Geo><Lat>" + std::to_string(i) + "</Lat></Geo>", written[i]);
            EXPECT_EQ(seen[0], seen[i]);
        }
    }
}

// An untyped element makes its collections on first request, also from a
// const reader: threads asking a fresh element at once get one collection each.
TEST(SharedUntypedElement, FirstRequestsOnSeveralThreadsShareOneCollection)
{
    for (int round = 0; round < 50; ++round) {
        CSmartPtr<CElement> element(new CElement("e", "urn:e"));
        const CElement& reader = *element;
        std::vector<CAttributeCol*> attributes(kThreads);
        std::vector<CElementCol*> elements(kThreads);
        OnThreads([&](int i) {
            attributes[i] = reader.GetAttributes();
            elements[i] = reader.GetElements();
        });
        for (int i = 0; i < kThreads; ++i) {
            EXPECT_EQ(attributes[0], attributes[i]);
            EXPECT_EQ(elements[0], elements[i]);
        }
        element->GetElements()->Add(new CElement("child", "urn:e"));
        EXPECT_EQ("<AA:e xmlns:AA=\"urn:e\"><AA:child/></AA:e>", element->ToXml(false, false));
    }
}

// One object referenced from several threads: the count goes up and down
// under its lock and the object dies exactly once, with the last reference.
TEST(SharedObjects, ReferenceCountsOfOneObjectStayExact)
{
    int destroyed = 0;
    CSmartPtr<Geo> shared(new Geo());
    OnThreads([&](int) {
        for (int i = 0; i < 2000; ++i) {
            CSmartPtr<Geo> copy(shared);
            CSmartPtr<CXmlObjectBase> base(copy);
        }
    });
    EXPECT_EQ(2, shared->AddRef());
    EXPECT_EQ(1, shared->Release());
    struct Counted : Geo {
        explicit Counted(int* count) : m_count(count) {}
        ~Counted() override { ++*m_count; }
        int* m_count;
    };
    CSmartPtr<Geo> last(new Counted(&destroyed));
    std::vector<CSmartPtr<Geo>> held(kThreads, last);
    last = nullptr;
    OnThreads([&](int i) { held[i] = nullptr; });
    EXPECT_EQ(1, destroyed);
}

// Copies of one buffer share its bytes; each thread's write takes a private
// copy first and leaves the others' bytes as they were.
TEST(SharedObjects, BinaryDataCopiesWrittenOnSeveralThreadsStayApart)
{
    const CBinaryData original("shared bytes");
    std::vector<std::string> results(kThreads);
    OnThreads([&](int i) {
        for (int round = 0; round < 200; ++round) {
            CBinaryData mine(original);
            mine[0] = static_cast<unsigned char>('0' + i);
            mine.Append("!");
            CBinaryData again = mine;
            results[i] = std::string(reinterpret_cast<const char*>(again.GetData()), again.GetLength());
        }
    });
    for (int i = 0; i < kThreads; ++i)
        EXPECT_EQ(std::string(1, static_cast<char>('0' + i)) + "hared bytes!", results[i]);
    EXPECT_EQ("shared bytes", std::string(reinterpret_cast<const char*>(original.GetData()), original.GetLength()));
}

// Classes whose tables are first built on several threads at once (they are
// made on first use under the library's init lock), read and written in
// parallel with the default context; every thread passes the generator
// version check and gets the same text.
TEST(SharedObjects, FirstReadsAndWritesOfAClassOnSeveralThreadsAgree)
{
    const std::string profile = FullProfile()->ToXml(true, false);
    const std::string person = FullPerson()->ToXml(true, false);
    // Types of a foreign namespace travel in binary form under an alias.
    CXmlSerializationContext shapes;
    shapes.GetNamespaceAliases().Add("s", kShapesNs);
    const CBinaryData binaryPerson = FullPerson()->ToFastInfosetStream(FInfoDeclNone, shapes);
    std::vector<std::string> profiles(kThreads), people(kThreads), binaries(kThreads);
    OnThreads([&](int i) {
        CSmartPtr<Pick> pick(new Pick());
        pick->FromXml("<Pick><Memo><Ref>1</Ref></Memo></Pick>");
        CSmartPtr<Profile> readProfile(new Profile());
        readProfile->FromXml(profile.c_str());
        profiles[i] = readProfile->ToXml(true, false);
        CSmartPtr<Person> readPerson(new Person());
        readPerson->FromXmlStream(binaryPerson);
        people[i] = readPerson->ToXml(true, false);
        binaries[i] = pick->ToXml(false, false);
    });
    for (int i = 0; i < kThreads; ++i) {
        EXPECT_EQ(profile, profiles[i]);
        EXPECT_EQ(person, people[i]);
        EXPECT_EQ("<Pick><Memo><Ref>1</Ref></Memo></Pick>", binaries[i]);
    }
}
