// Reading a class whose children form a choice: the first member in table
// order that fits the element at the cursor is the one chosen.
#include "NxGeneratedClass.h"

#include "NxCollectionBase.h"
#include "NxException.h"
#include "NxXmlDocument.h"
#include "engine/WalkFailures.h"

namespace NxXmlLib9 {

using NxXmlLib9Data::CElementInfo;
using NxXmlLib9Data::XmlElementType;

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(const CXmlSerializationContext& context,
                                                             CXmlElement* element, CXmlElement* cursor,
                                                             XmlElementType type, bool isOptionalChoice)
{
    CXmlElement* const start = cursor;
    CElementInfo** entries = GetClassElementInfo();
    const std::string classNamespace = GetNamespace();
    const bool ignoreUnknown = context.GetIgnoreUnknownElements();
    const bool ownElement = type == NxXmlLib9Data::XmlElementType_Element;
    bool read = false;

    for (;;) {
        for (CElementInfo** entry = entries; *entry && !read; ++entry)
            read = (*entry)->ElementFromXml(context, this, element, &cursor, classNamespace.c_str(), type);
        // Only a level of its own skips unknown elements, one per pass.
        if (!read && cursor && ownElement && ignoreUnknown)
            cursor = cursor->GetNextSiblingElement();
        if (!ignoreUnknown || read)
            break;
        if (!ownElement || !cursor) {
            read = false;
            break;
        }
    }

    if (!read && !isOptionalChoice) {
        if (type == NxXmlLib9Data::XmlElementType_Pseudo)
            return ignoreUnknown ? start : cursor;
        if (!ownElement)
            return cursor;
        if (!DoesElementContainOptionalElements() && !context.GetIgnoreMissingChoice())
            throw CNxValidationException(FormatString(
                "No child elements within the element [%s] were populated. The element represents a choice, so "
                "one and only one element should be populated. The element contained no sutable child elements",
                element->GetLocalName().c_str()));
    } else if (!ownElement) {
        return cursor;
    }

    // A choice of its own level also owns whatever stands behind its member.
    if (!cursor)
        return nullptr;
    if (ignoreUnknown)
        return cursor;
    ThrowElementsLeftOver(element, cursor);
}

bool CXmlGeneratedClass::DoesElementContainOptionalElements() const
{
    // Every single member of a choice is optional, so only a choice made of
    // collections alone, each with a minimum above 0, must hold a member.
    for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry) {
        switch ((*entry)->GetChoiceMemberKind()) {
        case CElementInfo::ChoiceMemberOptional:
            return true;
        case CElementInfo::ChoiceMemberCollection: {
            NxVariant value;
            (*entry)->ReadProperty(this, value);
            const CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
            if (collection && collection->GetMinOccurs() == 0)
                return true;
            break;
        }
        case CElementInfo::ChoiceMemberNone:
            break;
        }
    }
    return false;
}

} // namespace NxXmlLib9
