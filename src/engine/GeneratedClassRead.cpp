// The read walk of a generated object. A cursor on the next unclaimed child
// element is handed through every level; a pseudo child shares its parent's
// element and cursor, so one flat run of siblings serves a tree of groups.
#include "NxGeneratedClass.h"

#include <strings.h>

#include <algorithm>
#include <vector>

#include "NxException.h"
#include "NxXmlDocument.h"
#include "engine/WalkFailures.h"

namespace NxXmlLib9 {

using NxXmlLib9Data::CAttributeInfo;
using NxXmlLib9Data::CElementInfo;
using NxXmlLib9Data::CParentElementInfo;
using NxXmlLib9Data::XmlElementType;

namespace {

void ThrowUnexpectedAttribute(const CXmlAttribute* attribute)
{
    throw CNxValidationException(
        FormatString("Unexpected Attribute [%s] found.", attribute->GetLocalName().c_str()));
}

// xsi:nil takes true or false in any case, and nothing else, not even 1 or 0.
void ReadNilAttribute(INillable* nillable, const CXmlAttribute* attribute)
{
    if (!nillable)
        ThrowUnexpectedAttribute(attribute);
    const char* value = attribute->GetValue().c_str();
    if (strcasecmp(value, "true") == 0)
        nillable->SetNil(true);
    else if (strcasecmp(value, "false") == 0)
        nillable->SetNil(false);
    else
        throw CNxValidationException(
            FormatString("Unexpected Value for Attribute [%s] found.", attribute->GetLocalName().c_str()));
}

// One flag per record: on the stack for the usual few, on the heap beyond.
class FoundFlags {
public:
    explicit FoundFlags(size_t count) : m_flags(m_local)
    {
        if (count > sizeof m_local) {
            m_heap.assign(count, 0);
            m_flags = m_heap.data();
        } else {
            std::fill(m_local, m_local + count, 0);
        }
    }
    char& operator[](size_t i) { return m_flags[i]; }

private:
    char m_local[64];
    std::vector<char> m_heap;
    char* m_flags;
};

} // namespace

void ThrowElementsLeftOver(const CXmlElement* element, const CXmlElement* leftover)
{
    throw CNxValidationException(FormatString(
        "Failed read all the elements held within the element [%s]. The unexpected element [%s] remains un "
        "processed",
        element->GetLocalName().c_str(), leftover->GetLocalName().c_str()));
}

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* element, CXmlElement* cursor,
                                             const CXmlSerializationContext& context, bool isOptionalChoice)
{
    if (!element)
        throw CNxInvalidParamException("No element to read the object from");
    try {
        Init();
        const CParentElementInfo* info = GetClassInfo();
        const XmlElementType type = info->GetElementType();
        // A read renames the object after the element it meets, so that a
        // substituted element is written back under the same name.
        if (type == NxXmlLib9Data::XmlElementType_Element)
            SetElementName(element->GetLocalName().c_str());
        ProcessAttributesFromXml(context, element, info->GetRejectUnknownAttributes());

        // A nil element has no content, whatever the document holds.
        const INillable* nillable = dynamic_cast<const INillable*>(this);
        if (nillable && nillable->IsNil())
            return cursor;

        switch (info->GetGroupType()) {
        case NxXmlLib9Data::XmlElementGroupType_Sequence:
            cursor = ProcessElementSeqFromXml(context, element, cursor, type);
            break;
        case NxXmlLib9Data::XmlElementGroupType_Choice:
            cursor = ProcessElementChoiceFromXml(context, element, cursor, type, isOptionalChoice);
            break;
        case NxXmlLib9Data::XmlElementGroupType_All:
            cursor = ProcessElementAllFromXml(context, element, cursor, type);
            break;
        default:
            throw CNxException("Unknow Group Type");
        }

        // The whole text of the element, as the parser gathered it.
        const int textIndex = info->GetTextPropertyIndex();
        if (textIndex != -1) {
            NxVariant text;
            text.SetString(element->GetText());
            AccessProperty(textIndex, false, text);
        }
        return cursor;
    } catch (const CNxException& failure) {
        throw CNxValidationException(
            FormatString("Failed to process the element [%s]", element->GetLocalName().c_str()), failure);
    }
}

void CXmlGeneratedClass::ProcessAttributesFromXml(const CXmlSerializationContext& context, CXmlElement* element,
                                                  bool rejectUnknown)
{
    CAttributeInfo** entries = GetClassAttributeInfo();
    size_t count = 0;
    while (entries[count])
        ++count;
    FoundFlags found(count);

    for (CXmlAttribute* attribute : element->GetAttributes()) {
        // Namespace declarations, xsi:type and the schema locations are
        // neither claimed nor unknown.
        if (attribute->IsNamespaceAttribute())
            continue;
        if (attribute->IsNilAttribute()) {
            ReadNilAttribute(dynamic_cast<INillable*>(this), attribute);
            continue;
        }
        // The first record that takes the attribute claims it; a wildcard
        // record takes everything and so stands last.
        bool claimed = false;
        for (size_t i = 0; i < count && !claimed; ++i)
            if (entries[i]->AttributeFromXml(context, this, attribute)) {
                found[i] = 1;
                claimed = true;
            }
        if (!claimed && rejectUnknown && !context.GetIgnoreUnknownAttributes())
            ThrowUnexpectedAttribute(attribute);
    }

    for (size_t i = 0; i < count; ++i)
        entries[i]->Validate(context, found[i] != 0);
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(const CXmlSerializationContext& context,
                                                          CXmlElement* element, CXmlElement* cursor,
                                                          XmlElementType type)
{
    CXmlElement* const start = cursor;
    CElementInfo** entries = GetClassElementInfo();
    const std::string classNamespace = GetNamespace();
    const bool ignoreUnknown = context.GetIgnoreUnknownElements();

    for (CElementInfo** entry = entries; *entry;) {
        if ((*entry)->ElementFromXml(context, this, element, &cursor, classNamespace.c_str(), type)) {
            ++entry;
            continue;
        }
        // A refusal: to the caller nothing was consumed, though the object
        // keeps what was set so far; or, when unknown elements may be
        // skipped, the same record is offered the next element.
        if (!ignoreUnknown || !cursor)
            return start;
        cursor = cursor->GetNextSiblingElement();
    }

    // Only a level with an element of its own owns what is left over.
    if (type == NxXmlLib9Data::XmlElementType_Element && cursor && !ignoreUnknown)
        ThrowElementsLeftOver(element, cursor);
    return cursor;
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(const CXmlSerializationContext& context,
                                                          CXmlElement* element, CXmlElement* cursor,
                                                          XmlElementType type)
{
    CXmlElement* const start = cursor;
    CElementInfo** entries = GetClassElementInfo();
    const std::string classNamespace = GetNamespace();
    const size_t count = static_cast<size_t>(GetClassElementInfoCount());
    FoundFlags found(count);

    // Each pass offers the current element to every record not yet found,
    // so the elements may come in any order. A pass that consumes nothing
    // ends the reading: an unknown element is never skipped here.
    while (cursor) {
        const CXmlElement* const before = cursor;
        for (size_t i = 0; i < count; ++i)
            if (!found[i])
                found[i] = entries[i]->ElementFromXml(context, this, element, &cursor, classNamespace.c_str(), type)
                               ? 1
                               : 0;
        if (cursor == before)
            break;
    }

    // The records of an all group settle their mandatory checks here; only
    // a level of its own may throw for a missing one. Validate is called
    // through the record's own slot, which is where the all family answers.
    const bool mustThrow = type == NxXmlLib9Data::XmlElementType_Element;
    for (size_t i = 0; i < count; ++i)
        if (!entries[i]->Validate(context, this, found[i] != 0, mustThrow))
            return start;

    if (type == NxXmlLib9Data::XmlElementType_Element && cursor && !context.GetIgnoreUnknownElements())
        ThrowElementsLeftOver(element, cursor);
    return cursor;
}

} // namespace NxXmlLib9
