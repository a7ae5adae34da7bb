// Delivery of collection events to one listener. The remove events carry the
// index through a local copy that lives only for the call.
#include "NxCollectionBase.h"

namespace NxXmlLib9 {

namespace {
void DeliverIndex(IEventSink* sink, CXmlCollectionBase* collection, IEventSink::MsgType type, int index)
{
    sink->OnEvent(collection->GetBase(), type, index == -1 ? nullptr : &index);
}
} // namespace

void CXmlObjectBase::FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection)
{
    sink->OnEvent(collection->GetBase(), MsgType_CollectionChange, nullptr);
}

void CXmlObjectBase::FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection, void* item)
{
    sink->OnEvent(collection->GetBase(), MsgType_CollectionAdd, item);
}

void CXmlObjectBase::FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection, void* item)
{
    sink->OnEvent(collection->GetBase(), MsgType_CollectionAddComplete, item);
}

void CXmlObjectBase::FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection, int index)
{
    DeliverIndex(sink, collection, MsgType_CollectionRemove, index);
}

void CXmlObjectBase::FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                         int index)
{
    DeliverIndex(sink, collection, MsgType_CollectionRemoveComplete, index);
}

} // namespace NxXmlLib9
