#include "NxXmlObjectBase.h"

#include <atomic>
#include <cstring>

#include "NxException.h"
#include "engine/VersionCheck.h"
#include "foundation/TextArgument.h"

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
    return m_refCount.fetch_add(1, std::memory_order_relaxed) + 1;
}

long long CXmlObjectBase::Release()
{
    // Release order publishes this owner's writes; the deleting thread
    // acquires them all before the object goes.
    const long long count = m_refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
    if (count == 0)
        delete this;
    return count;
}

std::string CXmlObjectBase::GetElementName() const { return m_elementName; }

void CXmlObjectBase::SetElementName(const char* name) { m_elementName = OrEmpty(name); }

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
