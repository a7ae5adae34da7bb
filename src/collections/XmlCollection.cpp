// The linked list of a collection of objects and the order in which it tells
// its listeners of a change.
#include "NxCollectionBase.h"

namespace NxXmlLib9 {

CXmlCollection::CXmlCollection() : m_head(nullptr), m_tail(nullptr), m_count(0) {}

CXmlCollection::CXmlCollection(const char* elementName, const char* namespaceUri, int minOccurs, int maxOccurs)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs), m_head(nullptr), m_tail(nullptr),
      m_count(0)
{
}

// A destructor tells no listener: one that threw here would end the
// process. The nodes go from the head, each releasing its item.
CXmlCollection::~CXmlCollection()
{
    while (CNode* node = m_head) {
        m_head = node->next;
        if (m_head)
            m_head->previous = nullptr;
        else
            m_tail = nullptr;
        --m_count;
        delete node;
    }
}

int CXmlCollection::GetCount() const { return m_count; }

void CXmlCollection::Clear()
{
    while (m_count > 0)
        Remove(0);
}

void CXmlCollection::Remove(int index) { RemoveNode(GetNodeAtIndex(index)); }

void CXmlCollection::LinkNewNode(CXmlObjectBase* item, CNode* position)
{
    CNode* node = new CNode;
    node->item = item;
    node->next = position;
    node->previous = position ? position->previous : m_tail;
    if (node->previous)
        node->previous->next = node;
    else
        m_head = node;
    if (position)
        position->previous = node;
    else
        m_tail = node;
    ++m_count;
    FireOnCollectionAddComplete(item);
    FireOnCollectionChange();
}

void CXmlCollection::AppendItem(CXmlObjectBase* item)
{
    FireOnCollectionAdd(item);
    LinkNewNode(item, nullptr);
}

void CXmlCollection::PrependItem(CXmlObjectBase* item)
{
    FireOnCollectionAdd(item);
    LinkNewNode(item, m_head);
}

// The existing item is looked for only after listeners heard of the add, so
// a failed search leaves them told of an add that never happened.
void CXmlCollection::AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item)
{
    if (!existing) {
        AppendItem(item);
        return;
    }
    FireOnCollectionAdd(item);
    LinkNewNode(item, GetNodeForItem(existing));
}

void CXmlCollection::AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item)
{
    if (!existing) {
        PrependItem(item);
        return;
    }
    FireOnCollectionAdd(item);
    LinkNewNode(item, GetNodeForItem(existing)->next);
}

void CXmlCollection::AddItemAt(int index, CXmlObjectBase* item)
{
    if (index < 0 || index > m_count)
        throw CNxInvalidParamException("Index out of range");
    if (index == m_count) {
        AppendItem(item);
        return;
    }
    FireOnCollectionAdd(item);
    LinkNewNode(item, GetNodeAtIndex(index));
}

void CXmlCollection::RemoveNode(CNode* node)
{
    if (!node)
        throw CNxInvalidParamException("The object was not found in the collection");
    FireOnCollectionRemove(-1);
    if (node->previous)
        node->previous->next = node->next;
    else
        m_head = node->next;
    if (node->next)
        node->next->previous = node->previous;
    else
        m_tail = node->previous;
    --m_count;
    // Releasing the item may run its destructor: the list is consistent
    // before that happens.
    delete node;
    FireOnCollectionRemoveComplete(-1);
    FireOnCollectionChange();
}

// The second number of the message is the count, not the highest index.
CNode* CXmlCollection::GetNodeAtIndex(int index) const
{
    if (index < 0 || index >= m_count)
        throw CNxInvalidParamException(FormatString("Index %d is out of range, use 0 - %d", index, m_count));
    CNode* node = m_head;
    for (int i = 0; i < index; ++i)
        node = node->next;
    return node;
}

CNode* CXmlCollection::GetNodeForItem(const CXmlObjectBase* item) const
{
    const CXmlObjectBase* wanted = item ? item->GetBase() : nullptr;
    for (CNode* node = m_head; node; node = node->next) {
        const CXmlObjectBase* held = node->item;
        if ((held ? held->GetBase() : nullptr) == wanted)
            return node;
    }
    throw CNxInvalidParamException("The object was not found in the collection");
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const
{
    for (CNode* node = m_head; node; node = node->next)
        if (node->item)
            CXmlObjectBase::AttributesToXml_Int(node->item->GetBase(), writer, context);
}

void CXmlCollection::ItemsToXml_Int(CXmlWriter* writer, const char* elementNamespace,
                                    const CXmlSerializationContext& context) const
{
    for (CNode* node = m_head; node; node = node->next)
        if (node->item)
            CXmlObjectBase::ToXml_Int(node->item, writer, false, elementNamespace, context, false);
}

} // namespace NxXmlLib9
