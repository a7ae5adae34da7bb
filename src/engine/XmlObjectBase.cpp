#include "NxXmlObjectBase.h"

#include <atomic>
#include <cstring>

#include "engine/VersionCheck.h"

namespace NxXmlLib9 {

CXmlObjectBase::CXmlObjectBase() : m_refCount(0)
{
    // The first object of the process reports a version mismatch once, and
    // is made all the same; the entries refuse to work later.
    static std::atomic_flag reported = ATOMIC_FLAG_INIT;
    if (!reported.test_and_set())
        ReportVersionMismatch();
}

CXmlObjectBase::CXmlObjectBase(const CXmlObjectBase& other)
    : IEventSink(other), m_elementName(other.m_elementName), m_refCount(0)
{
}

CXmlObjectBase& CXmlObjectBase::operator=(const CXmlObjectBase& other)
{
    m_elementName = other.m_elementName;
    return *this;
}

CXmlObjectBase::~CXmlObjectBase() = default;

void CXmlObjectBase::OnEvent(CXmlObjectBase*, IEventSink::MsgType, void*) {}

long long CXmlObjectBase::AddRef()
{
    m_lock.Enter();
    const long long count = ++m_refCount;
    m_lock.Leave();
    return count;
}

long long CXmlObjectBase::Release()
{
    m_lock.Enter();
    const long long count = --m_refCount;
    m_lock.Leave();
    if (count == 0)
        delete this;
    return count;
}

std::string CXmlObjectBase::GetElementName() const { return m_elementName; }

void CXmlObjectBase::SetElementName(const char* name) { m_elementName = name ? name : ""; }

CXmlObjectBase* CXmlObjectBase::GetBase() const { return const_cast<CXmlObjectBase*>(this)->GetBase(); }

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter*, const CXmlSerializationContext&) const {}

void CXmlObjectBase::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                         const CXmlSerializationContext& context)
{
    object->AttributesToXml_Int(writer, context);
}

void CXmlObjectBase::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const char* elementNamespace, const CXmlSerializationContext& context,
                               bool isOptionalChoice)
{
    object->ToXml_Int(writer, isRoot, elementNamespace, context, isOptionalChoice);
}

CXmlElement* CXmlObjectBase::FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* cursor,
                                         const CXmlSerializationContext& context)
{
    return object->FromXml_Int(element, cursor, context, false);
}

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* value, const char* name)
{
    if (!value)
        throw CNxInvalidParamException(FormatString("The Property [%s] is mandatory, it may node be NULL", name));
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* value, const char* name)
{
    if (!value)
        return;
    const std::string actual = value->GetBase()->GetElementName();
    if (std::strcmp(actual.c_str(), name) != 0)
        throw CNxInvalidParamException(FormatString(
            "This property requrires an element with the name %s the element being set has the element name %s",
            name, actual.c_str()));
}

} // namespace NxXmlLib9
