// The document loader on any bytes: gzip and zlib streams, binary documents
// and XML text all come through LoadXmlStream. The tree that loads is walked
// without recursion, every name and text read once.
#include "FuzzSupport.h"

using namespace NxXmlLib9;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    CXmlDocument document;
    NxFuzz::Expecting([&] {
        document.LoadXmlStream(const_cast<unsigned char*>(data), static_cast<unsigned long>(size));
        size_t total = 0;
        const CXmlElement* element = document.GetDocumentElement();
        std::vector<const CXmlElement*> pending;
        while (element) {
            total += element->GetLocalName().size() + element->GetNamespaceURI().size() + element->GetText().size();
            for (const CXmlAttribute* attribute : element->GetAttributes())
                total += attribute->GetValue().size() + attribute->IsNamespaceAttribute();
            if (element->GetNextSiblingElement())
                pending.push_back(element->GetNextSiblingElement());
            element = element->GetFirstElement();
            if (!element && !pending.empty()) {
                element = pending.back();
                pending.pop_back();
            }
        }
        (void)document.LookupNamespaceFromAlias("p");
        if (total == 1)
            document.Cleanup();
    });
    return 0;
}
