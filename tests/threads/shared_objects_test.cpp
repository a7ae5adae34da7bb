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
