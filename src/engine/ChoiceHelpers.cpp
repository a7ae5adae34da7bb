// Helpers by which the setters of a generated choice class keep to at most
// one selected member. The selection is the name of the member, held by the
// generated class and handed in by reference; empty means none.
#include "NxXmlObjectBase.h"

#include "NxCollectionBase.h"
#include "NxException.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

namespace {

[[noreturn]] void ThrowAlreadySelected(const std::string& selected)
{
    throw CNxInvalidStateException(FormatString(
        "The Property [%s] is already set. Only one element within this class bay be set at a time",
        selected.c_str()));
}

} // namespace

void CXmlObjectBase::Choice_SetElementValid(bool valid, const char* name, std::string& selected)
{
    if (!valid) {
        selected.clear();
        return;
    }
    // Unlike its siblings this one does not take an empty selection as free,
    // and its text has no brackets.
    if (selected != OrEmpty(name))
        throw CNxInvalidStateException(FormatString(
            "The Property %s is already set. Only one element within this class bay be set at a time",
            selected.c_str()));
}

void CXmlObjectBase::Choice_SelectElement(const char* name, CXmlObjectBase* value, std::string& selected)
{
    const char* member = OrEmpty(name);
    if (selected == member) {
        if (!value)
            selected.clear();
    } else if (selected.empty()) {
        selected = member;
    } else if (value) {
        ThrowAlreadySelected(selected);
    }
}

void CXmlObjectBase::Choice_CollectionChanged(const char* name, long count, std::string& selected)
{
    const char* member = OrEmpty(name);
    if (selected == member) {
        if (count == 0)
            selected.clear();
    } else if (selected.empty()) {
        if (count > 0)
            selected = member;
    } else if (count != 0) {
        ThrowAlreadySelected(selected);
    }
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* element,
                                            CXmlElement*& cursor, long& count, const CXmlSerializationContext& context)
{
    if (count > 0)
        return;
    CXmlElement* const next = FromXml_Int(collection, element, cursor, context);
    if (next == cursor)
        return;
    cursor = next;
    collection->ValidateCount(context);
    ++count;
}

} // namespace NxXmlLib9
