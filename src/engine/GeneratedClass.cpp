// The library's part of every generated class: property access on constant
// objects, the element table queries and the clean-up of the records.
#include "NxGeneratedClass.h"

namespace NxXmlLib9 {

using NxXmlLib9Data::CAttributeInfo;
using NxXmlLib9Data::CElementInfo;
using NxXmlLib9Data::CParentElementInfo;

CNXCriticalSection CXmlGeneratedClass::m_csInit;

namespace {

// Deletes the records of a null-terminated table, nulling each slot before
// the array goes, then the array itself.
template <class Record>
void DeleteTable(Record**& table)
{
    if (!table)
        return;
    for (Record** slot = table; *slot; ++slot) {
        Record* record = *slot;
        *slot = nullptr;
        delete record;
    }
    delete[] table;
    table = nullptr;
}

} // namespace

CXmlGeneratedClass::CXmlGeneratedClass() = default;

CXmlGeneratedClass::~CXmlGeneratedClass() = default;

void CXmlGeneratedClass::ReadProperty(int index, NxVariant& value) const
{
    // A read leaves the object as it is; generated classes offer one access
    // operation for both directions.
    const_cast<CXmlGeneratedClass*>(this)->AccessProperty(index, true, value);
}

int CXmlGeneratedClass::GetClassElementInfoCount() const
{
    int count = 0;
    for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry)
        ++count;
    return count;
}

bool CXmlGeneratedClass::IsElementInList(const CXmlSerializationContext& context, CXmlElement* element) const
{
    for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry)
        if ((*entry)->IsThisElement(context, element))
            return true;
    return false;
}

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& parent, CElementInfo**& elements,
                                       CAttributeInfo**& attributes)
{
    delete parent;
    parent = nullptr;
    DeleteTable(elements);
    DeleteTable(attributes);
}

} // namespace NxXmlLib9
