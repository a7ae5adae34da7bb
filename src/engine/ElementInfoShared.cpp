// The steps shared by the child element records of all three group families.
#include "ElementInfoShared.h"

#include "NxException.h"
#include "NxVariant.h"
#include "NxXmlWriter.h"

namespace NxXmlLib9Data {
namespace ElementInfoShared {

using namespace NxXmlLib9;

// ---- Writing ----------------------------------------------------------------

bool ElementToXmlCls(const CElementInfo& entry, const CXmlSerializationContext& context,
                     const CXmlGeneratedClass* object, CXmlWriter* writer, bool isOptionalChoice)
{
    NxVariant value;
    entry.ReadProperty(object, value);
    const CSmartPtr<CXmlObjectBase> child = value.GetXmlObject();
    if (!child)
        return false;
    entry.ToXml_Int(child, writer, entry.GetNamespace().c_str(), context, isOptionalChoice);
    return true;
}

namespace {

bool WriteItems(const CElementInfo& entry, CXmlCollectionBase& collection, const CXmlSerializationContext& context,
                CXmlWriter* writer)
{
    if (collection.GetCount() <= 0)
        return false;
    entry.ToXml_Int(collection.GetBase(), writer, entry.GetNamespace().c_str(), context, false);
    return true;
}

} // namespace

bool ElementToXmlCol(const CElementInfo& entry, const CXmlSerializationContext& context,
                     const CXmlGeneratedClass* object, CXmlWriter* writer)
{
    return WriteItems(entry, *ReadCollection(entry, object), context, writer);
}

bool ElementToXmlCountedCol(const CElementInfo& entry, const CXmlSerializationContext& context,
                            const CXmlGeneratedClass* object, CXmlWriter* writer)
{
    const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(entry, object);
    if (!context.GetIgnoreInvalidCollectionCounts())
        collection->ValidateCount(context);
    return WriteItems(entry, *collection, context, writer);
}

bool ElementToXmlPrim(const CElementInfo& entry, const char* format, const CXmlSerializationContext&,
                      const CXmlGeneratedClass* object, CXmlWriter* writer)
{
    NxVariant value;
    entry.ReadProperty(object, value);
    if (!value.IsValid())
        return false;
    entry.CheckRestriction(value);
    writer->WriteStartElement(entry.GetName(), entry.GetNamespace());
    // A string is its own text: it is written in place.
    if (value.GetItemType() == ItemTypeString)
        writer->WriteString(value.GetStringRef(), ItemTypeString);
    else
        writer->WriteString(value.ToString(format), value.GetItemType());
    writer->WriteEndElement();
    return true;
}

bool ElementToXmlEnum(const CElementInfo& entry, EnumToTextFunction toText, const CXmlSerializationContext&,
                      const CXmlGeneratedClass* object, CXmlWriter* writer)
{
    NxVariant value;
    entry.ReadProperty(object, value);
    if (!value.IsValid())
        return false;
    const char* text = toText(static_cast<int>(value.GetI4()));
    writer->WriteStartElement(entry.GetName(), entry.GetNamespace());
    writer->WriteString(OrEmpty(text), ItemTypeString);
    writer->WriteEndElement();
    return true;
}

void PseudoObjectAttributesToXml(const CElementInfo& entry, XmlElementType xmlElementType,
                                 const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                 CXmlWriter* writer)
{
    if (xmlElementType != XmlElementType_Pseudo)
        return;
    NxVariant value;
    entry.ReadProperty(object, value);
    const CSmartPtr<CXmlObjectBase> child = value.GetXmlObject();
    if (child)
        entry.AttributesToXml_Int(child, writer, context);
}

void PseudoCollectionAttributesToXml(const CElementInfo& entry, XmlElementType xmlElementType,
                                     const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                     CXmlWriter* writer)
{
    if (xmlElementType != XmlElementType_Pseudo)
        return;
    const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(entry, object);
    entry.AttributesToXml_Int(collection, writer, context);
}

// ---- The property -----------------------------------------------------------

CSmartPtr<CXmlObjectBase> ReadObject(const CElementInfo& entry, CXmlGeneratedClass* object)
{
    NxVariant value;
    entry.AccessProperty(object, true, value);
    return value.GetXmlObject();
}

CSmartPtr<CXmlObjectBase> ReadExistingObject(const CElementInfo& entry, CXmlGeneratedClass* object)
{
    CSmartPtr<CXmlObjectBase> child = ReadObject(entry, object);
    if (!child)
        throw CNxInvalidStateException(
            FormatString("The property of the element [%s] holds no object", entry.GetName().c_str()));
    return child;
}

CSmartPtr<CXmlCollectionBase> ReadCollection(const CElementInfo& entry, const CXmlGeneratedClass* object)
{
    NxVariant value;
    entry.ReadProperty(object, value);
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (!collection)
        throw CNxInvalidStateException(
            FormatString("The property of the element [%s] holds no collection", entry.GetName().c_str()));
    return collection;
}

CSmartPtr<CElementCol> ReadElementCollection(const CElementInfo& entry, const CXmlGeneratedClass* object)
{
    const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(entry, object);
    CElementCol* elements = dynamic_cast<CElementCol*>(static_cast<CXmlCollectionBase*>(collection));
    if (!elements)
        throw CNxInvalidStateException(FormatString(
            "The property of the element [%s] holds no collection of untyped elements", entry.GetName().c_str()));
    return CSmartPtr<CElementCol>(elements);
}

void StoreObject(const CElementInfo& entry, CXmlGeneratedClass* object, CXmlObjectBase* value)
{
    NxVariant variant;
    variant.SetXmlObject(value);
    entry.AccessProperty(object, false, variant);
}

// ---- Making objects ---------------------------------------------------------

CSmartPtr<CXmlObjectBase> CreateByClassNumber(const CElementInfo& entry, ClassFactoryFunction factory, int classNumber)
{
    CSmartPtr<CXmlObjectBase> child
        = factory ? factory(classNumber, entry.GetName().c_str()) : CSmartPtr<CXmlObjectBase>();
    if (!child)
        throw CNxInvalidStateException(FormatString("The factory made no object of class %d for the element [%s]",
                                                    classNumber, entry.GetName().c_str()));
    return child;
}

CSmartPtr<CElement> CreateWildcardElement(const CElementInfo& entry, const CNamespaceWildcard& wildcard,
                                          const char* classNamespace)
{
    const char* const wildcardText = wildcard.GetWildcard().c_str();
    const char* const targetNamespace = wildcard.GetTargetNamespace().c_str();
    const std::string defaultNamespace
        = CElementInfo::GetAnyDefaultNamespace(wildcardText, classNamespace, targetNamespace);
    return CSmartPtr<CElement>(
        new CElement(entry.GetName().c_str(), defaultNamespace.c_str(), wildcardText, targetNamespace));
}

// ---- Reading at the cursor --------------------------------------------------

void StorePrimitive(const CElementInfo& entry, ItemType type, CWhitespaceUtils::WhitespaceRule rule,
                    CXmlGeneratedClass* object, CXmlElement** cursor)
{
    NxVariant value;
    value.FromString((*cursor)->GetText(), type, rule);
    entry.AccessProperty(object, false, value);
    MoveToNextSibling(cursor);
}

void StoreEnum(const CElementInfo& entry, EnumFromTextFunction fromText, CXmlGeneratedClass* object,
               CXmlElement** cursor)
{
    NxVariant value;
    value.SetI4(fromText((*cursor)->GetText().c_str()));
    entry.AccessProperty(object, false, value);
    MoveToNextSibling(cursor);
}

bool TakePrimitive(const CElementInfo& entry, ItemType type, CWhitespaceUtils::WhitespaceRule rule,
                   const CXmlSerializationContext& context, CXmlGeneratedClass* object, CXmlElement** cursor)
{
    if (!entry.IsThisElement(context, *cursor))
        return false;
    StorePrimitive(entry, type, rule, object, cursor);
    return true;
}

bool TakeEnum(const CElementInfo& entry, EnumFromTextFunction fromText, const CXmlSerializationContext& context,
              CXmlGeneratedClass* object, CXmlElement** cursor)
{
    if (!entry.IsThisElement(context, *cursor))
        return false;
    StoreEnum(entry, fromText, object, cursor);
    return true;
}

void ReadOwnElement(const CElementInfo& entry, CXmlObjectBase* child, const CXmlSerializationContext& context,
                    CXmlElement** cursor, bool isOptionalChoice)
{
    entry.FromXml_Int(child, *cursor, (*cursor)->GetFirstElement(), context, isOptionalChoice);
    MoveToNextSibling(cursor);
}

CXmlElement* ReadFromParent(const CElementInfo& entry, CXmlObjectBase* child, CXmlElement* parent, CXmlElement* cursor,
                            const CXmlSerializationContext& context)
{
    return entry.FromXml_Int(child, parent, cursor, context, false);
}

CXmlElement* ReadUntyped(const CElementInfo& entry, CXmlObjectBase* content, CXmlElement* parent, CXmlElement* cursor,
                         const CXmlSerializationContext& context)
{
    if (entry.GetName() != kAnyElement && cursor->GetLocalName() != entry.GetName())
        return cursor;
    return entry.FromXml_Int(content, parent, cursor, context, false);
}

bool ReadOptionalChild(const CElementInfo& entry, XmlElementType xmlElementType, ClassFactoryFunction factory,
                       int classNumber, const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                       CXmlElement* parent, CXmlElement** cursor)
{
    if (xmlElementType == XmlElementType_Element) {
        if (!entry.IsThisElement(context, *cursor))
            return false;
        const CSmartPtr<CXmlObjectBase> child = CreateByClassNumber(entry, factory, classNumber);
        ReadOwnElement(entry, child, context, cursor, false);
        StoreObject(entry, object, child);
        return true;
    }
    if (!*cursor)
        return false;
    const CSmartPtr<CXmlObjectBase> child = CreateByClassNumber(entry, factory, classNumber);
    CXmlElement* const next = ReadFromParent(entry, child, parent, *cursor, context);
    const bool moved = next != *cursor;
    if (moved)
        StoreObject(entry, object, child);
    *cursor = next;
    return moved;
}

bool ReadOptionalWildcard(const CElementInfo& entry, const CNamespaceWildcard& wildcard, CXmlGeneratedClass* object,
                          CXmlElement* parent, CXmlElement** cursor, const char* classNamespace,
                          const CXmlSerializationContext& context)
{
    if (!*cursor)
        return false;
    const CSmartPtr<CElement> element = CreateWildcardElement(entry, wildcard, classNamespace);
    CXmlElement* const next = ReadUntyped(entry, element, parent, *cursor, context);
    if (next == *cursor)
        return false;
    StoreObject(entry, object, element);
    *cursor = next;
    return true;
}

CXmlElement* ReadUntypedRun(const CElementInfo& entry, CElementCol& collection, CXmlElement* parent,
                            CXmlElement* cursor, const CXmlSerializationContext& context)
{
    if (entry.GetName() == kAnyElement)
        return entry.FromXml_Int(&collection, parent, cursor, context, false);
    // Every element of the run must share the first one's namespace.
    const std::string namespaceUri = cursor ? cursor->GetNamespaceURI() : std::string();
    return collection.FromXmlLockElementName_Int(entry.GetName(), namespaceUri, parent, cursor, context, false);
}

CSmartPtr<CXmlObjectBase> CreateForElementAtCursor(const CElementInfo& entry, ElementFactoryFunction factory,
                                                   const CXmlSerializationContext& context, CXmlElement* cursor)
{
    if (!entry.IsThisElement(context, cursor) || !factory)
        return CSmartPtr<CXmlObjectBase>();
    return factory(cursor);
}

// ---- Mandatory records of a sequence ----------------------------------------

SeekResult SeekRequiredElement(const CElementInfo& entry, const CXmlSerializationContext& context, CXmlElement** cursor,
                               XmlElementType parentType, PseudoLevelSeek pseudoLevelSeek)
{
    if (parentType == XmlElementType_Element) {
        while (!entry.IsThisElement(context, *cursor)) {
            if (context.GetIgnoreMissingMandatoryElements())
                return SeekResult::Satisfied;
            if (!context.GetIgnoreUnknownElements() || !*cursor)
                ThrowRequiredElementMissing(entry);
            MoveToNextSibling(cursor);
        }
        return SeekResult::Found;
    }
    while (!entry.IsThisElement(context, *cursor)) {
        if (pseudoLevelSeek == PseudoLevelSeek::RefuseAtOnce || !context.GetIgnoreUnknownElements() || !*cursor)
            return SeekResult::Refused;
        MoveToNextSibling(cursor);
    }
    return SeekResult::Found;
}

// ---- Failures ---------------------------------------------------------------

void ThrowRequiredElementMissing(const CElementInfo& entry)
{
    throw CNxValidationException(FormatString("Failed to find a required element [%s]", entry.GetName().c_str()));
}

void ThrowMandatoryElementMissing(const CElementInfo& entry)
{
    throw CNxValidationException(FormatString("Failed to find the mandatory element [%s]", entry.GetName().c_str()));
}

void ThrowNeverCalled()
{
    throw CNxException("Not implemented, should never be called");
}

bool ValidateMandatory(const CElementInfo& entry, bool found, bool mustThrow)
{
    if (!found && mustThrow)
        ThrowMandatoryElementMissing(entry);
    return found;
}

} // namespace ElementInfoShared
} // namespace NxXmlLib9Data
