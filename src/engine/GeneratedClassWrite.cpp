// The write walk of a generated object: root material, start tag,
// attributes, the group of child elements, the text and the end tag. It
// speaks only to the abstract writer, so XML text and binary output share it.
#include "NxGeneratedClass.h"

#include "NxException.h"
#include "NxUntyped.h"
#include "NxXmlWriter.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

using NxXmlLib9Data::CAttributeInfo;
using NxXmlLib9Data::CElementInfo;
using NxXmlLib9Data::CParentElementInfo;

namespace {

// What only the root element of a document carries ahead of its start tag:
// processing instructions, the namespace aliases in URI order and the
// default namespace.
void WriteRootPrologue(CXmlWriter* writer, const CXmlSerializationContext& context)
{
    for (const std::string& instruction : context.GetProcessingInstructions())
        writer->WritePI(instruction);
    for (const auto& alias : context.GetNamespaceAliases())
        writer->AddNamespace(alias.second, alias.first);
    const std::string defaultNamespace = context.GetDefaultNamespaceURI();
    if (!defaultNamespace.empty())
        writer->SetDefaultNamespace(defaultNamespace);
}

} // namespace

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                                   const CXmlSerializationContext& context, bool isOptionalChoice) const
{
    try {
        const CParentElementInfo* info = GetClassInfo();
        // A pseudo object has no tag of its own: its attributes went onto its
        // parent's start tag, and its children stand among its parent's.
        const bool ownElement = info->GetElementType() == NxXmlLib9Data::XmlElementType_Element;
        if (ownElement) {
            const std::string tagNamespace = OrEmpty(elementNamespace);
            if (isRoot)
                WriteRootPrologue(writer, context);
            writer->WriteStartElement(GetElementNameRef(), tagNamespace);
            if (isRoot) {
                const CSmartPtr<CAttributeCol> rootAttributes = context.GetAdditionalRootAttributes();
                CXmlObjectBase::ToXml_Int(rootAttributes, writer, false, tagNamespace.c_str(), context,
                                          isOptionalChoice);
            }
            AttributesToXml_Int(writer, context);
            // The schema follows every attribute, while the start tag is open.
            if (isRoot) {
                const std::string schema = context.GetInLineSchema();
                if (!schema.empty())
                    writer->WriteInlineSchema(schema);
            }
        }

        const INillable* nillable = dynamic_cast<const INillable*>(this);
        if (nillable && nillable->IsNil()) {
            writer->WriteAttributeNil();
        } else {
            switch (info->GetGroupType()) {
            case NxXmlLib9Data::XmlElementGroupType_Sequence:
                ProcessElementSeqToXml(context, GetClassElementInfo(), writer);
                break;
            case NxXmlLib9Data::XmlElementGroupType_Choice:
                ProcessElementChoiceToXml(context, GetClassElementInfo(), writer, isOptionalChoice);
                break;
            case NxXmlLib9Data::XmlElementGroupType_All:
                ProcessElementAllToXml(context, GetClassElementInfo(), writer);
                break;
            default:
                throw CNxException("Unknown XML Group Type");
            }
            // Text stands behind the child elements.
            const int textIndex = info->GetTextPropertyIndex();
            if (textIndex != -1) {
                NxVariant text;
                ReadProperty(textIndex, text);
                writer->WriteString(text.GetString(), text.GetItemType());
            }
        }

        if (ownElement)
            writer->WriteEndElement();
    } catch (const CNxException& failure) {
        throw CNxValidationException(
            FormatString("Failed to convert the element [%s] to XML", GetElementName().c_str()), failure);
    }
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const
{
    try {
        const CParentElementInfo* info = GetClassInfo();
        // The type attribute is written exactly when the element is named
        // otherwise than its schema type: substitution, or a derived type
        // under an element of the base type.
        if (context.GetWriteTypeAttribute() && info->GetMayWriteTypeAttribute() &&
            info->GetTypeName() != GetElementNameRef())
            writer->WriteAttributeType(info->GetTypeNamespace(), info->GetTypeName(), ItemTypeString);
        ProcessAttributesToXml(context, GetClassElementInfo(), GetClassAttributeInfo(), writer);
    } catch (const CNxException& failure) {
        throw CNxException("Failed to convert attributes to XML", failure);
    }
}

void CXmlGeneratedClass::ProcessAttributesToXml(const CXmlSerializationContext& context, CElementInfo** elements,
                                                CAttributeInfo** attributes, CXmlWriter* writer) const
{
    for (CAttributeInfo** entry = attributes; *entry; ++entry)
        (*entry)->AttributeToXml(context, this, writer);
    // The attributes of pseudo children, and through them of pseudo
    // grandchildren, belong on this start tag as well.
    for (CElementInfo** entry = elements; *entry; ++entry)
        (*entry)->PseudoChildAttributeToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementSeqToXml(const CXmlSerializationContext& context, CElementInfo** elements,
                                                CXmlWriter* writer) const
{
    for (CElementInfo** entry = elements; *entry; ++entry)
        (*entry)->ElementToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementAllToXml(const CXmlSerializationContext& context, CElementInfo** elements,
                                                CXmlWriter* writer) const
{
    // Any order is allowed on input; table order is the one written.
    ProcessElementSeqToXml(context, elements, writer);
}

bool CXmlGeneratedClass::ProcessElementChoiceToXml(const CXmlSerializationContext& context,
                                                   CElementInfo** elements, CXmlWriter* writer,
                                                   bool isOptionalChoice) const
{
    // Only the first member that writes anything is written; the setters
    // keep a second one from being set.
    for (CElementInfo** entry = elements; *entry; ++entry)
        if ((*entry)->ElementToXml(context, this, writer))
            return true;
    if (DoesElementContainOptionalElements())
        return true;
    if (isOptionalChoice)
        return false;
    if (context.GetIgnoreMissingChoice())
        return true;
    throw CNxValidationException("This element is a choice, and as such must have at one (and only one) valid "
                                 "item, currently there are none set");
}

} // namespace NxXmlLib9
