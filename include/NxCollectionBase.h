// Base of every collection: the element name and namespace of its items, the
// bounds on their number and the event listeners.
#pragma once

#include <string>
#include <vector>

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

} // namespace NxXmlLib9
