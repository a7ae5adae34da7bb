// The steps that every collection of primitive values takes to add, remove
// and write its items, in the order its listeners rely on. Storage is a
// CItemVector or a CBitVector.
#pragma once

#include <string>

#include "NxCollectionBase.h"
#include "NxException.h"
#include "NxFoundation.h"
#include "NxXmlWriter.h"

namespace NxXmlLib9 {
namespace TypedCollectionSteps {

// The second number is the count, one above the highest valid index.
inline void ThrowIfNoItemAt(int index, int count)
{
    if (index < 0 || index >= count)
        throw CNxInvalidParamException(FormatString("Index %d is out of range, use 0 - %d", index, count));
}

// Listeners hear of the add before the index and the facets are checked, so
// a failed add leaves them with an "add" that is never completed. Both events
// carry the address of the caller's value.
template <class Storage, class Value, class CheckFacets>
void Insert(CXmlCollectionBase& collection, Storage& items, int index, const Value& value,
            CheckFacets checkFacets)
{
    void* data = const_cast<void*>(static_cast<const void*>(&value));
    collection.FireOnCollectionAdd(data);
    if (index < 0 || index > items.Size())
        throw CNxInvalidParamException("Index out of range");
    checkFacets();
    items.InsertAt(index, value);
    collection.FireOnCollectionAddComplete(data);
    collection.FireOnCollectionChange();
}

// The "remove" event goes out before the index is checked; its completion
// always reports index 0, whichever item went.
template <class Storage>
void Erase(CXmlCollectionBase& collection, Storage& items, int index)
{
    collection.FireOnCollectionRemove(index);
    ThrowIfNoItemAt(index, items.Size());
    items.EraseAt(index);
    collection.FireOnCollectionRemoveComplete(0);
    collection.FireOnCollectionChange();
}

template <class Storage, class ToText>
void Write(const CXmlCollectionBase& collection, const Storage& items, CXmlWriter* writer,
           const CXmlSerializationContext& context, ItemType itemType, ToText toText)
{
    collection.ValidateCount(context);
    const std::string name = collection.GetElementName();
    const std::string namespaceUri = collection.GetNamespace();
    for (int i = 0; i < items.Size(); ++i) {
        writer->WriteStartElement(name, namespaceUri);
        writer->WriteString(toText(items.Get(i)), itemType);
        writer->WriteEndElement();
    }
}

} // namespace TypedCollectionSteps
} // namespace NxXmlLib9
