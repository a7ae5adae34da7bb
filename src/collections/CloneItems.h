// The copy of the items of an untyped collection into its clone.
#pragma once

#include "NxCollectionBase.h"

namespace NxXmlLib9 {

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
