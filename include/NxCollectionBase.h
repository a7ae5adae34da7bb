// The collection bases: what every collection has (the element name and
// namespace of its items, the bounds on their number and the event
// listeners), the linked list that holds objects, and the base of the
// collections of primitive values with their common reading loop.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "NxConversions.h"
#include "NxFoundation.h"
#include "NxPrimitiveRestrictions.h"
#include "NxSmartPtr.h"
#include "NxXmlObjectBase.h"

namespace NxXmlLib9 {

class CXmlCollectionBase : public CXmlObjectBase {
public:
    CXmlCollectionBase();
    CXmlCollectionBase(const char* elementName, const char* namespaceUri, int minOccurs, int maxOccurs);

    CXmlObjectBase* GetBase() override;
    ~CXmlCollectionBase() override;
    // A collection has no target namespace of its own; asking is a logic
    // error of the caller and throws.
    std::string GetTargetNamespace() const override;
    std::string GetNamespace() const override;

    virtual int GetCount() const = 0;
    virtual void Clear() = 0;
    virtual void Remove(int index) = 0;
    // Whether the number of items lies within the bounds; always true when
    // the context ignores collection counts.
    virtual void ValidateCount(const CXmlSerializationContext& context) const;
    virtual bool IsValidCount(const CXmlSerializationContext& context) const;

    int GetMinOccurs() const;
    int GetMaxOccurs() const;

    // Listeners are not owned; one must remove itself before it dies.
    void AddEventListener(IEventSink* sink);
    void RemoveEventListener(IEventSink* sink);

    void FireOnCollectionChange();
    void FireOnCollectionAdd(void* item);
    void FireOnCollectionAddComplete(void* item);
    void FireOnCollectionRemove(int index);
    void FireOnCollectionRemoveComplete(int index);

private:
    template <class Deliver>
    void FireToListeners(Deliver deliver);

    std::string m_namespace;
    std::vector<IEventSink*> m_listeners;
    int m_minOccurs;
    int m_maxOccurs;
};

// One link of the list of a CXmlCollection; it holds one reference on its
// item, which may be null.
struct CNode {
    CSmartPtr<CXmlObjectBase> item;
    CNode* next = nullptr;
    CNode* previous = nullptr;
};

// A collection of objects in a doubly linked list. Every add tells the
// listeners "add", links, then "add complete" and "change"; every removal
// tells them "remove" (index -1), unlinks, then "remove complete" (index -1)
// and "change". Appending and prepending cost constant time, indexed access
// time proportional to the index.
class CXmlCollection : public CXmlCollectionBase {
public:
    CXmlCollection();
    CXmlCollection(const char* elementName, const char* namespaceUri, int minOccurs, int maxOccurs);
    CXmlCollection(const CXmlCollection&) = delete;
    CXmlCollection& operator=(const CXmlCollection&) = delete;
    // Removes every item, with its events.
    ~CXmlCollection() override;

    int GetCount() const override;
    // Removes from the front until the collection is empty.
    void Clear() override;
    // Fails with CNxInvalidParamException before any event when the index
    // is out of range.
    void Remove(int index) override;

    void AppendItem(CXmlObjectBase* item);
    void PrependItem(CXmlObjectBase* item);
    // Before existing, or at the end when existing is null.
    void AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
    // After existing, or at the start when existing is null.
    void AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
    // An index equal to the count appends.
    void AddItemAt(int index, CXmlObjectBase* item);
    // The node must belong to this collection.
    void RemoveNode(CNode* node);

    CNode* GetNodeAtIndex(int index) const;
    // The first node whose item is the same object as item, compared by
    // GetBase(); throws CNxInvalidParamException when there is none.
    CNode* GetNodeForItem(const CXmlObjectBase* item) const;

    // A walk over the nodes: from begin() along next until end(), which is
    // always null.
    CNode* begin() const { return m_head; }
    CNode* end() const { return nullptr; }

protected:
    // The attributes of every item, in order.
    void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const override;
    // Every item that is set writes itself, in order, in elementNamespace.
    void ItemsToXml_Int(CXmlWriter* writer, const char* elementNamespace,
                        const CXmlSerializationContext& context) const;

private:
    // Links a new node for item before position (at the end for null) and
    // sends the events that follow a completed add.
    void LinkNewNode(CXmlObjectBase* item, CNode* position);

    CNode* m_head;
    CNode* m_tail;
    int m_count;
};

// Base of the collections of primitive values: the facets each value must
// meet, the item type, the number format and the whitespace rule, and the
// loop that reads a run of sibling elements.
class CXmlTypeCollection : public CXmlCollectionBase {
public:
    // The eight facet arguments fill the restrictions in order; a null text
    // is an absent facet. format is kept as a pointer, not copied: the caller
    // keeps it alive (in practice it is static text of generated code).
    CXmlTypeCollection(ItemType itemType, const char* elementName, const char* namespaceUri, int minOccurs,
                       int maxOccurs, const char* pattern, int minLength, int maxLength, const char* minInclusive,
                       const char* maxInclusive, const char* minExclusive, const char* maxExclusive, int length,
                       CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format);
    ~CXmlTypeCollection() override;

    // Parses one value of the collection's type and adds it.
    virtual void AddFromString(std::string text) = 0;

    const CPrimitiveRestrictions& GetRestrictions() const { return m_restrictions ? *m_restrictions : NoFacets(); }
    ItemType GetItemType() const { return m_itemType; }
    const char* GetFormat() const { return m_format; }
    CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }

protected:
    // False for a collection made without any facet: its values need no
    // check.
    bool HasFacets() const { return m_restrictions != nullptr; }
    // Adds the text of each element from cursor on while it bears the
    // collection's name, and returns the first that does not (null at the
    // end of the siblings). Counts are not checked here.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;

private:
    static const CPrimitiveRestrictions& NoFacets();

    // Null when the collection has no facet, as most have: a collection is
    // made with every object that holds one, so it stays small.
    std::unique_ptr<const CPrimitiveRestrictions> m_restrictions;
    ItemType m_itemType;
    const char* m_format;
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

} // namespace NxXmlLib9
