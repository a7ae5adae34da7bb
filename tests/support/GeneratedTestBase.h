// What the hand-written "generated" classes of the tests share, written the
// way the code generator writes it: optional fields behind one
// AccessProperty switch, enumerations kept as numbers, records built once
// per class under m_csInit and taken down at exit, and the collection of
// repeated child objects that generated code supplies.
#pragma once

#include <atomic>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "NxXmlLib9.h"
#include "RegisterVersion.h"

namespace NxGenerated {

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;

// ---- Property access, as generated setters and getters do it ---------------

// Reading an unset field leaves the variant invalid; an invalid variant
// unsets the field. Integers and enumeration numbers are kept as long.
template <class T>
void Access(std::optional<T>& field, bool read, NxVariant& value)
{
    if (read) {
        if (!field)
            return;
        if constexpr (std::is_same_v<T, std::string>)
            value.SetString(*field);
        else if constexpr (std::is_same_v<T, long>)
            value.SetI4(*field);
        else if constexpr (std::is_same_v<T, double>)
            value.SetR8(*field);
        else
            value.SetBoolean(*field);
    } else if (!value.IsValid()) {
        field.reset();
    } else if constexpr (std::is_same_v<T, std::string>) {
        field = value.GetString();
    } else if constexpr (std::is_same_v<T, long>) {
        field = value.GetI4();
    } else if constexpr (std::is_same_v<T, double>) {
        field = value.GetR8();
    } else {
        field = value.GetBoolean();
    }
}
template <class T>
void AccessObject(CSmartPtr<T>& field, bool read, NxVariant& value)
{
    if (read) {
        value.SetXmlObject(static_cast<T*>(field));
        return;
    }
    CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
    field = object ? dynamic_cast<T*>(static_cast<CXmlObjectBase*>(object)) : nullptr;
}
template <class T>
void AccessCollection(const CSmartPtr<T>& field, NxVariant& value)
{
    value.SetXmlCollection(static_cast<T*>(field));
}

// One field of any kind: objects and collections go by reference.
template <class T>
void AccessField(std::optional<T>& field, bool read, NxVariant& value)
{
    Access(field, read, value);
}
template <class T>
void AccessField(CSmartPtr<T>& field, bool read, NxVariant& value)
{
    if constexpr (std::is_base_of_v<CXmlCollectionBase, T>)
        AccessCollection(field, value);
    else
        AccessObject(field, read, value);
}
// The AccessProperty switch of a class whose property numbers are the places
// of its fields.
template <class... Fields>
void AccessNth(int index, bool read, NxVariant& value, Fields&... fields)
{
    int place = 0;
    ((place++ == index ? AccessField(fields, read, value) : void()), ...);
}
template <class... T>
void ResetAll(std::optional<T>&... fields)
{
    (fields.reset(), ...);
}

// ---- Enumerations ---------------------------------------------------------

// The text of an enumeration number; a number out of range fails with
// unknown followed by the number.
template <size_t N>
const char* EnumToText(const char* const (&names)[N], int value, const char* unknown)
{
    if (value < 0 || value >= static_cast<int>(N))
        throw CNxInvalidValueException(unknown + std::to_string(value));
    return names[value];
}
// The number of an enumeration text; an unknown text fails with the text
// between before and after.
template <size_t N>
int EnumFromText(const char* const (&names)[N], const char* text, const char* before, const char* after)
{
    for (size_t i = 0; i < N; ++i)
        if (std::strcmp(text, names[i]) == 0)
            return static_cast<int>(i);
    throw CNxInvalidValueException(before + std::string(text) + after);
}

// ---- Records, built once per class ----------------------------------------

// The three lazily built tables of a class and the answers to who the object
// is. Derived supplies MakeInfo() and MakeElements(), and may supply
// MakeAttributes() and kNamespace.
template <class Derived>
class Generated : public CXmlGeneratedClass {
public:
    static constexpr const char* kNamespace = "";
    static std::vector<CAttributeInfo*> MakeAttributes() { return {}; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return Derived::kNamespace; }
    std::string GetNamespace() const override { return Derived::kNamespace; }
    CParentElementInfo* GetClassInfo() const override { return Tables().info; }
    CElementInfo** GetClassElementInfo() const override { return Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().attributes; }

private:
    struct Records {
        CParentElementInfo* info = nullptr;
        CElementInfo** elements = nullptr;
        CAttributeInfo** attributes = nullptr;
        ~Records() { CleanMetaData(info, elements, attributes); }
    };
    template <class Record>
    static Record** Terminated(const std::vector<Record*>& records)
    {
        Record** array = new Record*[records.size() + 1];
        for (size_t i = 0; i < records.size(); ++i)
            array[i] = records[i];
        array[records.size()] = nullptr;
        return array;
    }
    // Every walk asks for the tables once per object: after the first build
    // the answer is one atomic load, as in the compiler's own classes.
    static const Records& Tables()
    {
        static Records records;
        static std::atomic<bool> built(false);
        if (built.load(std::memory_order_acquire))
            return records;
        m_csInit.Enter();
        try {
            if (!records.info) {
                records.info = Derived::MakeInfo();
                records.elements = Terminated(Derived::MakeElements());
                records.attributes = Terminated(Derived::MakeAttributes());
            }
        } catch (...) {
            m_csInit.Leave();
            throw;
        }
        built.store(true, std::memory_order_release);
        m_csInit.Leave();
        return records;
    }
};

// A repeated child object; each item is made by the factory from its element,
// so that substitution works per item.
class ObjectCol : public CXmlCollection {
public:
    ObjectCol(const char* name, const char* ns, int minOccurs, int maxOccurs,
              CSmartPtr<CXmlObjectBase> (*make)(CXmlElement*))
        : CXmlCollection(name, ns, minOccurs, maxOccurs), m_make(make)
    {
    }
    template <class T> T* At(int index) const
    {
        return dynamic_cast<T*>(static_cast<CXmlObjectBase*>(GetNodeAtIndex(index)->item));
    }

protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char* elementNamespace, const CXmlSerializationContext& context,
                   bool) const override
    {
        for (CNode* node = begin(); node != end(); node = node->next)
            CXmlObjectBase::ToXml_Int(node->item, writer, false, elementNamespace, context, false);
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool) override
    {
        for (; cursor && CXmlObjectHelper::DoesElementNameMatch(context, cursor, GetElementName(), GetNamespace());
             cursor = cursor->GetNextSiblingElement()) {
            CSmartPtr<CXmlObjectBase> item = m_make(cursor);
            if (!item)
                break;
            CXmlObjectBase::FromXml_Int(item, cursor, cursor->GetFirstElement(), context);
            AppendItem(item);
        }
        return cursor;
    }

private:
    CSmartPtr<CXmlObjectBase> (*m_make)(CXmlElement*);
};

} // namespace NxGenerated
