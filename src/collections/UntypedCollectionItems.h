// Typed access to the items of the untyped collections, and the copy of
// their items into a clone.
#pragma once

#include "NxCollectionBase.h"

namespace NxXmlLib9 {

// The item at index as an Item: null for an item of another class. An index
// out of range throws, as GetNodeAtIndex does.
template <class Item>
CSmartPtr<Item> ItemAt(const CXmlCollection& collection, int index)
{
    return dynamic_cast<Item*>(static_cast<CXmlObjectBase*>(collection.GetNodeAtIndex(index)->item));
}

// Items of class Item are added to clone as copies of their own, through
// the clone's Add and so under its checks; any other item is shared.
template <class Item, class Collection>
void CloneItems(const CXmlCollection& source, Collection& clone)
{
    for (CNode* node = source.begin(); node != source.end(); node = node->next) {
        Item* item = dynamic_cast<Item*>(static_cast<CXmlObjectBase*>(node->item));
        if (item)
            clone.Add(item->Clone());
        else
            clone.AppendItem(node->item);
    }
}

} // namespace NxXmlLib9
