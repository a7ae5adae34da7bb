// Schemas compiled together into one C++ namespace: the classes of all of
// them live side by side, and one CreateDocumentElement covers the global
// elements of every file.
#include <gtest/gtest.h>

#include "basics.h"
#include "invoice.h"
#include "orders.h"
#include "structure.h"

using namespace NxXmlLib9;

TEST(SharedNamespace, OneEntryFunctionForAllFiles)
{
    const struct {
        const char* name;
        const char* ns;
        bool known;
    } cases[] = {
        {"Library", "urn:nxxsd:basics", true},  {"Drawing", "", true},
        {"Order", "urn:nxxsd:orders", true},    {"TaxInvoice", "urn:nxxsd:tax", true},
        {"Drawing", "urn:nxxsd:basics", false}, {"Unknown", "", false},
    };
    for (const auto& c : cases) {
        CSmartPtr<CXmlGeneratedClass> object = app::model::CreateDocumentElement(c.name, c.ns);
        EXPECT_EQ(static_cast<bool>(object), c.known) << c.name;
        if (object) {
            EXPECT_EQ(static_cast<CXmlObjectBase*>(object)->GetElementName(), c.name);
        }
    }
    CSmartPtr<app::model::Order> order(new app::model::Order());
    EXPECT_TRUE(dynamic_cast<app::model::Party*>(static_cast<CXmlGeneratedClass*>(order->Buyer)));
}
