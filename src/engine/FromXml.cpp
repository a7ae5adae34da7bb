// The public entries that fill an object from XML text, bytes, a file or a
// parsed element.
#include "NxXmlObjectBase.h"

#include "NxBinaryData.h"
#include "NxException.h"
#include "NxUntyped.h"
#include "NxXmlDocument.h"
#include "engine/VersionCheck.h"

namespace NxXmlLib9 {

namespace {

// The root of a loaded document. A load that succeeds has one; the test
// only keeps a parser that ends without one from leading the walk to a null
// element.
CXmlElement* RootOf(const CXmlDocument& document)
{
    CXmlElement* root = document.GetDocumentElement();
    if (!root)
        throw CNxException("The document has no root element");
    return root;
}

} // namespace

template <class Load>
void CXmlObjectBase::FromLoadedDocument(const CXmlSerializationContext& context, Load load)
{
    CheckVersion();
    CXmlDocument document(context);
    load(document);
    CXmlElement* root = RootOf(document);
    FromXml_Int(root, root->GetFirstElement(), context, false);
}

void CXmlObjectBase::FromXmlFile(const char* fileName, const CXmlSerializationContext& context)
{
    FromLoadedDocument(context, [fileName](CXmlDocument& document) { document.Load(fileName); });
}

void CXmlObjectBase::FromXml(const char* xml, const CXmlSerializationContext& context)
{
    FromLoadedDocument(context, [xml](CXmlDocument& document) { document.LoadXml(xml); });
}

void CXmlObjectBase::FromXml(const wchar_t* xml, const CXmlSerializationContext& context)
{
    FromLoadedDocument(context, [xml](CXmlDocument& document) { document.LoadXml(xml); });
}

void CXmlObjectBase::FromXmlStream(unsigned char* data, unsigned long length,
                                   const CXmlSerializationContext& context)
{
    FromLoadedDocument(context,
                       [data, length](CXmlDocument& document) { document.LoadXmlStream(data, length); });
}

void CXmlObjectBase::FromXmlStream(const CBinaryData& data, const CXmlSerializationContext& context)
{
    // The pointer form checks the version.
    FromXmlStream(data.GetData(), data.GetLength(), context);
}

void CXmlObjectBase::FromXmlElement(const CXmlElement* element, const CXmlSerializationContext& context)
{
    CheckVersion();
    if (!element)
        throw CNxInvalidParamException("The element to read from may not be NULL");
    // The walk takes the tree as mutable, but reads it only.
    FromXml_Int(const_cast<CXmlElement*>(element), element->GetFirstElement(), context, false);
}

void CXmlObjectBase::FromXmlElement(const CElement* element, const CXmlSerializationContext& context)
{
    CheckVersion();
    const std::string text = element->ToXml(false, false, EOLTypeLF, CXmlSerializationContext::m_defaultContext);
    FromXml(text.c_str(), context);
}

} // namespace NxXmlLib9
