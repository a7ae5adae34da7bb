// Shared by the tests of untyped content: access to the protected walks of
// any object, and a parsed document that keeps its elements alive.
#pragma once

#include "NxXmlLib9.h"
#include "RegisterVersion.h"
#include "TestObjects.h"

namespace NxTest {

class Walks : public CountedObject {
public:
    static NxXmlLib9::CXmlElement* Read(NxXmlLib9::CXmlObjectBase* object, NxXmlLib9::CXmlElement* element,
                                        NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext& context =
                                            NxXmlLib9::CXmlSerializationContext::m_defaultContext)
    {
        return CXmlObjectBase::FromXml_Int(object, element, cursor, context);
    }
};

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
