// Reading and writing the untyped element.
#include "NxUntyped.h"

#include "NxTextStream.h"
#include "NxXmlDocument.h"
#include "NxXmlObjectHelper.h"
#include "NxXmlWriter.h"

namespace NxXmlLib9 {

void CElement::FromXml(const char* xml)
{
    const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext;
    CXmlDocument document(context);
    document.LoadXml(xml);
    CXmlElement* root = document.GetDocumentElement();
    FromXml_Int(root, root, context, false);
}

void CElement::CopyXmlElement(CXmlElement* element)
{
    if (!element)
        throw CNxInvalidParamException("CElement::CopyXmlElement needs an element to copy");
    m_name = element->GetLocalName();
    m_namespace = element->GetNamespaceURI();
    m_text = element->GetText();
    if (m_attributes)
        m_attributes->Clear();
    if (m_elements)
        m_elements->Clear();
    for (const CXmlAttribute* attribute : element->GetAttributes()) {
        Attributes().Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                          attribute->GetNamespaceURI().c_str());
        // In namespace-free mode a default declaration reaches the tree as an
        // attribute; it is kept both ways.
        if (attribute->GetLocalName() == "xmlns")
            m_defaultNamespace = attribute->GetValue();
    }
    for (CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement()) {
        CSmartPtr<CElement> copy(new CElement(child->GetLocalName().c_str()));
        copy->CopyXmlElement(child);
        Elements().Add(copy);
    }
}

CXmlElement* CElement::FromXml_Int(CXmlElement* /*element*/, CXmlElement* cursor,
                                   const CXmlSerializationContext& context, bool /*isOptionalChoice*/)
{
    if (!cursor || !CXmlObjectHelper::IsNamespaceValid(cursor->GetNamespaceURI(), m_restriction, m_targetNamespace))
        return cursor;
    // Collections are made only for what the element holds.
    if (!cursor->GetAttributes().empty())
        CXmlObjectBase::FromXml_Int(&Attributes(), cursor, nullptr, context);
    CXmlElement* firstChild = cursor->GetFirstElement();
    if (firstChild && CXmlObjectBase::FromXml_Int(&Elements(), cursor, firstChild, context))
        // The enclosing element is named, not the refused child.
        throw CNxValidationException(FormatString("Invalid Element [%s] found in element [%s]",
                                                  cursor->GetLocalName().c_str(), m_name.c_str()));
    m_text = cursor->GetText();
    m_name = cursor->GetLocalName();
    m_namespace = cursor->GetNamespaceURI();
    return cursor->GetNextSiblingElement();
}

void CElement::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const char* elementNamespace,
                         const CXmlSerializationContext& context, bool isOptionalChoice) const
{
    if (!m_defaultNamespace.empty()) {
        WriteWithDefaultNamespace(writer, isOptionalChoice);
        return;
    }
    writer->WriteStartElement(m_name, m_namespace);
    // A collection not yet made is empty and writes nothing.
    if (m_attributes)
        CXmlObjectBase::ToXml_Int(m_attributes, writer, false, elementNamespace, context, false);
    if (m_elements)
        CXmlObjectBase::ToXml_Int(m_elements, writer, false, elementNamespace, context, isOptionalChoice);
    // Text goes after the children, wherever it stood in the source.
    writer->WriteString(m_text, ItemTypeString);
    writer->WriteEndElement();
}

// The element is rendered by a writer of its own, so that its default
// namespace declaration takes effect for this subtree alone, and the markup
// is spliced into the outer text. Attributes are not written on this path,
// and the caller's context is not used.
void CElement::WriteWithDefaultNamespace(CXmlWriter* writer, bool isOptionalChoice) const
{
    CXmlTextWriter* outer = dynamic_cast<CXmlTextWriter*>(writer);
    if (!outer)
        throw CNxException(FormatString(
            "The element [%s] has a default namespace of its own and can only be written as XML text",
            m_name.c_str()));

    CTextStream stream;
    CXmlTextWriter inner(stream);
    inner.SetEOLType(outer->GetEOLType());
    inner.SetFormat(outer->GetFormat());
    inner.SetDefaultNamespace(m_defaultNamespace);
    inner.WriteStartElement(m_name, m_namespace);

    CXmlSerializationContext innerContext;
    innerContext.SetDefaultNamespaceURI(m_defaultNamespace.c_str());
    if (m_elements)
        CXmlObjectBase::ToXml_Int(m_elements, &inner, false, m_namespace.c_str(), innerContext, isOptionalChoice);
    inner.WriteString(m_text, ItemTypeString);
    inner.WriteEndElement();
    stream.Flush();

    outer->CloseParentElm();
    outer->WriteRawElement(std::string(stream.GetText(), stream.GetLength()));
}

} // namespace NxXmlLib9
