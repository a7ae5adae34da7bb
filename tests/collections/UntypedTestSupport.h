// Shared by the tests of untyped content: a parsed document that keeps its
// elements alive.
#pragma once

#include "NxXmlLib9.h"
#include "RegisterVersion.h"
#include "TestObjects.h"

namespace NxTest {

struct Parsed {
    explicit Parsed(const char* xml, const NxXmlLib9::CXmlSerializationContext& context =
                                         NxXmlLib9::CXmlSerializationContext::m_defaultContext)
        : document(context)
    {
        document.LoadXml(xml);
    }
    NxXmlLib9::CXmlElement* Root() const { return document.GetDocumentElement(); }
    NxXmlLib9::CXmlDocument document;
};

} // namespace NxTest
