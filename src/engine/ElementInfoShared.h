// The steps that the child element records of the three group families
// (sequence, all, choice) are made of. A record class strings a few of them
// together; what differs between records is which steps they take and what
// they answer when their element is not there, and that stays in the record.
#pragma once

#include "foundation/TextArgument.h"

#include <string>

#include "NxCollectionBase.h"
#include "NxElementInfoTypes.h"
#include "NxGeneratedClass.h"
#include "NxMetadata.h"
#include "NxNamespaceWildcard.h"
#include "NxUntyped.h"
#include "NxXmlDocument.h"

namespace NxXmlLib9Data {
namespace ElementInfoShared {

using NxXmlLib9::CElement;
using NxXmlLib9::CElementCol;
using NxXmlLib9::CSmartPtr;
using NxXmlLib9::CXmlCollectionBase;
using NxXmlLib9::CXmlElement;
using NxXmlLib9::CXmlGeneratedClass;
using NxXmlLib9::CXmlObjectBase;
using NxXmlLib9::CXmlSerializationContext;
using NxXmlLib9::CXmlWriter;

// The record name that stands for xs:any.
inline const char* const kAnyElement = "AnyElement";

// ---- Writing ----------------------------------------------------------------

// The child object, if the property holds one, writes itself under its own
// element name and this record's namespace. True when there was a child.
bool ElementToXmlCls(const CElementInfo& entry, const CXmlSerializationContext& context,
                     const CXmlGeneratedClass* object, CXmlWriter* writer, bool isOptionalChoice);
// The collection writes its items; true when it holds any.
bool ElementToXmlCol(const CElementInfo& entry, const CXmlSerializationContext& context,
                     const CXmlGeneratedClass* object, CXmlWriter* writer);
// ElementToXmlCol after a check of the collection's bounds, which the
// context may switch off.
bool ElementToXmlCountedCol(const CElementInfo& entry, const CXmlSerializationContext& context,
                            const CXmlGeneratedClass* object, CXmlWriter* writer);
// A set value, checked against the record's facets, as an element with the
// value as text; an unset value writes nothing and gives false.
bool ElementToXmlPrim(const CElementInfo& entry, const char* format, const CXmlSerializationContext& context,
                      const CXmlGeneratedClass* object, CXmlWriter* writer);
inline bool ElementToXmlPrimOpt(const CElementInfo& entry, const char* format, const CXmlSerializationContext& context,
                                const CXmlGeneratedClass* object, CXmlWriter* writer)
{
    return ElementToXmlPrim(entry, format, context, object, writer);
}
// A set number as an element with its text; no facets to check.
bool ElementToXmlEnum(const CElementInfo& entry, EnumToTextFunction toText, const CXmlSerializationContext& context,
                      const CXmlGeneratedClass* object, CXmlWriter* writer);
inline bool ElementToXmlEnumOpt(const CElementInfo& entry, EnumToTextFunction toText,
                                const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                CXmlWriter* writer)
{
    return ElementToXmlEnum(entry, toText, context, object, writer);
}

// The attributes of a pseudo child (or of each item of a collection of
// them) go on the start tag of the element the parent writes.
void PseudoObjectAttributesToXml(const CElementInfo& entry, XmlElementType xmlElementType,
                                 const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                 CXmlWriter* writer);
void PseudoCollectionAttributesToXml(const CElementInfo& entry, XmlElementType xmlElementType,
                                     const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                     CXmlWriter* writer);

// ---- The property -----------------------------------------------------------

// The object the property holds, possibly null.
CSmartPtr<CXmlObjectBase> ReadObject(const CElementInfo& entry, CXmlGeneratedClass* object);
// The object of a mandatory child, which the generated class keeps in
// place; a missing one is a fault of the generated class and throws.
CSmartPtr<CXmlObjectBase> ReadExistingObject(const CElementInfo& entry, CXmlGeneratedClass* object);
// The collection the property holds; never null in working generated code,
// and a null one throws.
CSmartPtr<CXmlCollectionBase> ReadCollection(const CElementInfo& entry, const CXmlGeneratedClass* object);
// The collection of untyped elements the property holds; anything else
// throws.
CSmartPtr<CElementCol> ReadElementCollection(const CElementInfo& entry, const CXmlGeneratedClass* object);
// Sets the property to the object, or clears it with null.
void StoreObject(const CElementInfo& entry, CXmlGeneratedClass* object, CXmlObjectBase* value);

// ---- Making objects ---------------------------------------------------------

// A new object of the record's class, under the record's name; a factory
// that gives none is a fault of the generated code and throws.
CSmartPtr<CXmlObjectBase> CreateByClassNumber(const CElementInfo& entry, ClassFactoryFunction factory, int classNumber);
// A new untyped element for a wildcard record, in the namespace the
// wildcard gives by default.
CSmartPtr<CElement> CreateWildcardElement(const CElementInfo& entry, const CNamespaceWildcard& wildcard,
                                          const char* classNamespace);

// ---- Reading at the cursor --------------------------------------------------

inline void MoveToNextSibling(CXmlElement** cursor)
{
    *cursor = (*cursor)->GetNextSiblingElement();
}

// The element at the cursor is the record's: converts its text, sets the
// property and moves on.
void StorePrimitive(const CElementInfo& entry, NxXmlLib9::ItemType type,
                    NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule, CXmlGeneratedClass* object, CXmlElement** cursor);
void StoreEnum(const CElementInfo& entry, EnumFromTextFunction fromText, CXmlGeneratedClass* object,
               CXmlElement** cursor);
// When the element at the cursor is the record's: as above, and true.
// Otherwise false, cursor unmoved.
bool TakePrimitive(const CElementInfo& entry, NxXmlLib9::ItemType type,
                   NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule, const CXmlSerializationContext& context,
                   CXmlGeneratedClass* object, CXmlElement** cursor);
// Likewise for an enumeration, whose from-text function rejects unknown
// texts by throwing.
bool TakeEnum(const CElementInfo& entry, EnumFromTextFunction fromText, const CXmlSerializationContext& context,
              CXmlGeneratedClass* object, CXmlElement** cursor);
// A child with an element of its own reads the element at the cursor whole,
// however much of it the child used; the cursor moves past it.
void ReadOwnElement(const CElementInfo& entry, CXmlObjectBase* child, const CXmlSerializationContext& context,
                    CXmlElement** cursor, bool isOptionalChoice);
// A pseudo child reads from the parent's cursor; gives where it stopped.
CXmlElement* ReadFromParent(const CElementInfo& entry, CXmlObjectBase* child, CXmlElement* parent, CXmlElement* cursor,
                            const CXmlSerializationContext& context);
// Untyped content reads the element at the cursor when the record takes
// any element or bears the element's local name (namespaces aside); gives
// where it stopped, which is the cursor itself when it read nothing.
CXmlElement* ReadUntyped(const CElementInfo& entry, CXmlObjectBase* content, CXmlElement* parent, CXmlElement* cursor,
                         const CXmlSerializationContext& context);
// An optional child object: a new one from the factory reads the record's
// element at the cursor whole, or, as a pseudo child, reads from the
// parent's cursor; it is stored only once it has read something, and the
// answer is whether it was. A pseudo child always leaves the cursor where it
// stopped.
bool ReadOptionalChild(const CElementInfo& entry, XmlElementType xmlElementType, ClassFactoryFunction factory,
                       int classNumber, const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                       CXmlElement* parent, CXmlElement** cursor);
// An optional wildcard record tries a new element at the cursor and keeps it
// only when it read something: the property then holds it, the cursor moves
// past what it read, and the answer is true. Otherwise (also at the end of
// the siblings) property and cursor stay as they were.
bool ReadOptionalWildcard(const CElementInfo& entry, const CNamespaceWildcard& wildcard, CXmlGeneratedClass* object,
                          CXmlElement* parent, CXmlElement** cursor, const char* classNamespace,
                          const CXmlSerializationContext& context);
// A collection of untyped elements reads its run: any elements for a
// wildcard record, else only those of the record's name and of the first
// one's namespace.
CXmlElement* ReadUntypedRun(const CElementInfo& entry, CElementCol& collection, CXmlElement* parent,
                            CXmlElement* cursor, const CXmlSerializationContext& context);
// A substitutable object for the element at the cursor, when the element is
// the record's and the factory knows its type; null otherwise.
CSmartPtr<CXmlObjectBase> CreateForElementAtCursor(const CElementInfo& entry, ElementFactoryFunction factory,
                                                   const CXmlSerializationContext& context, CXmlElement* cursor);

// ---- Mandatory records of a sequence ----------------------------------------

enum class SeekResult {
    Found, // the cursor is at the record's element
    Satisfied, // the context lets the record pass without it
    Refused // a pseudo level does not have it; the level above decides
};
// What a mandatory record does at a pseudo level while the cursor is not at
// its element.
enum class PseudoLevelSeek { RefuseAtOnce, SkipWhileUnknownAllowed };

// At a real level: skips unknown elements as far as the context allows and
// fails when the element is not found. At a pseudo level: as the policy says.
SeekResult SeekRequiredElement(const CElementInfo& entry, const CXmlSerializationContext& context, CXmlElement** cursor,
                               XmlElementType parentType, PseudoLevelSeek pseudoLevelSeek);
// Seeks as above and, once the cursor is at the element, reads it with
// read(). True when the record is satisfied, false when a pseudo level
// refused it.
template <class Read>
bool ReadRequiredElement(const CElementInfo& entry, const CXmlSerializationContext& context, CXmlElement** cursor,
                         XmlElementType parentType, PseudoLevelSeek pseudoLevelSeek, Read read)
{
    switch (SeekRequiredElement(entry, context, cursor, parentType, pseudoLevelSeek)) {
    case SeekResult::Satisfied: return true;
    case SeekResult::Refused: return false;
    case SeekResult::Found: break;
    }
    read();
    return true;
}

// ---- Failures ---------------------------------------------------------------

[[noreturn]] void ThrowRequiredElementMissing(const CElementInfo& entry);
[[noreturn]] void ThrowMandatoryElementMissing(const CElementInfo& entry);
[[noreturn]] void ThrowNeverCalled();

// The check of a mandatory all-group record after the walk: a missing
// element fails when the walk must throw, else the record reports it.
bool ValidateMandatory(const CElementInfo& entry, bool found, bool mustThrow);

} // namespace ElementInfoShared
} // namespace NxXmlLib9Data
