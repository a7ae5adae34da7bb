#include "NxCollectionBase.h"
#include "foundation/TextArgument.h"

#include <algorithm>

namespace NxXmlLib9 {

CXmlCollectionBase::CXmlCollectionBase() : m_minOccurs(0), m_maxOccurs(-1) {}

CXmlCollectionBase::CXmlCollectionBase(const char* elementName, const char* namespaceUri, int minOccurs,
                                       int maxOccurs)
    : m_namespace(OrEmpty(namespaceUri)), m_minOccurs(minOccurs), m_maxOccurs(maxOccurs)
{
    SetElementName(elementName);
}

CXmlCollectionBase::~CXmlCollectionBase() = default;

CXmlObjectBase* CXmlCollectionBase::GetBase() { return this; }

std::string CXmlCollectionBase::GetTargetNamespace() const
{
    throw CNxException(
        "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program logic error)");
}

std::string CXmlCollectionBase::GetNamespace() const { return m_namespace; }

int CXmlCollectionBase::GetMinOccurs() const { return m_minOccurs; }

int CXmlCollectionBase::GetMaxOccurs() const { return m_maxOccurs; }

// Too many items is reported ahead of too few; with a maximum of -1 no count
// is too many.
bool CXmlCollectionBase::IsValidCount(const CXmlSerializationContext& context) const
{
    if (context.GetIgnoreInvalidCollectionCounts())
        return true;
    const int count = GetCount();
    if (m_maxOccurs != -1 && count > m_maxOccurs)
        return false;
    return count >= m_minOccurs;
}

void CXmlCollectionBase::ValidateCount(const CXmlSerializationContext& context) const
{
    if (context.GetIgnoreInvalidCollectionCounts())
        return;
    const int count = GetCount();
    if (m_maxOccurs != -1 && count > m_maxOccurs)
        throw CNxValidationException(
            FormatString("The Maximum number of [%s] elements allowed in this collection is %d",
                         GetElementName().c_str(), m_maxOccurs));
    if (count < m_minOccurs)
        throw CNxValidationException(
            FormatString("The Minimum number of [%s] elements allowed in this collection is %d",
                         GetElementName().c_str(), m_minOccurs));
}

void CXmlCollectionBase::AddEventListener(IEventSink* sink) { m_listeners.push_back(sink); }

void CXmlCollectionBase::RemoveEventListener(IEventSink* sink)
{
    m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), sink), m_listeners.end());
}

// Listeners are called in the order they were added. The loop indexes the
// vector afresh at each step, so a listener that adds another one during a
// dispatch does not leave the loop on a stale pointer.
template <class Deliver>
void CXmlCollectionBase::FireToListeners(Deliver deliver)
{
    for (size_t i = 0; i < m_listeners.size(); ++i)
        deliver(m_listeners[i]);
}

void CXmlCollectionBase::FireOnCollectionChange()
{
    FireToListeners([this](IEventSink* sink) { FireOnCollectionChangeEvent(sink, this); });
}

void CXmlCollectionBase::FireOnCollectionAdd(void* item)
{
    FireToListeners([this, item](IEventSink* sink) { FireOnCollectionAddEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionAddComplete(void* item)
{
    FireToListeners([this, item](IEventSink* sink) { FireOnCollectionAddCompleteEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionRemove(int index)
{
    FireToListeners([this, index](IEventSink* sink) { FireOnCollectionRemoveEvent(sink, this, index); });
}

void CXmlCollectionBase::FireOnCollectionRemoveComplete(int index)
{
    FireToListeners([this, index](IEventSink* sink) { FireOnCollectionRemoveCompleteEvent(sink, this, index); });
}

} // namespace NxXmlLib9
