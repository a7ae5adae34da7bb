// The untyped twin of a bound object.
#include "NxUntyped.h"

#include "NxXmlDocument.h"

namespace NxXmlLib9 {

CElement::CElement(CXmlObjectBase* object, const char* defaultNamespace) : CInstanceMonitor("CElement")
{
    Init("", "", "##any", "");
    if (!object)
        throw CNxInvalidParamException("The object to copy into an element may not be NULL");
    if (defaultNamespace)
        m_defaultNamespace = defaultNamespace;
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(defaultNamespace);
    // Through the object's own text output and a parse, so that whatever the
    // object writes, this element holds.
    const CBinaryData bytes =
        object->ToXmlStream(false, false, XmlEncodingUTF8, EOLTypeLF, context, CompressionTypeNone);
    CXmlDocument document(context);
    document.LoadXmlStream(bytes.GetData(), bytes.GetLength());
    CopyXmlElement(document.GetDocumentElement());
}

} // namespace NxXmlLib9
