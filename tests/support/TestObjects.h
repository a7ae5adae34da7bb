// Small bound classes for tests: a leaf object that counts its destruction,
// a collection that holds nothing, and access to the protected walks.
#pragma once

#include "NxXmlLib9.h"

namespace NxTest {

class CountedObject : public NxXmlLib9::CXmlObjectBase {
public:
    explicit CountedObject(int* destroyed = nullptr, const char* name = "leaf") : m_destroyed(destroyed)
    {
        SetElementName(name);
    }
    ~CountedObject() override
    {
        if (m_destroyed)
            ++*m_destroyed;
    }
    NxXmlLib9::CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return m_namespace; }
    std::string GetNamespace() const override { return m_namespace; }

    std::string m_namespace;

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter*, bool, const char*, const NxXmlLib9::CXmlSerializationContext&,
                   bool) const override
    {
    }
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext&, bool) override
    {
        return cursor;
    }

private:
    int* m_destroyed;
};

class EmptyCollection : public NxXmlLib9::CXmlCollectionBase {
public:
    using CXmlCollectionBase::CXmlCollectionBase;
    int GetCount() const override { return m_count; }
    void Clear() override { m_count = 0; }
    void Remove(int) override { --m_count; }
    int m_count = 0;

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter*, bool, const char*, const NxXmlLib9::CXmlSerializationContext&,
                   bool) const override
    {
    }
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext&, bool) override
    {
        return cursor;
    }
};

// Reaches the protected walks of any object, as the engine's records do.
class Walks : public CountedObject {
public:
    using Context = NxXmlLib9::CXmlSerializationContext;
    static void Write(const CXmlObjectBase& object, NxXmlLib9::CXmlWriter& writer,
                      const Context& context = Context::m_defaultContext)
    {
        CXmlObjectBase::ToXml_Int(&object, &writer, false, "", context, false);
    }
    static NxXmlLib9::CXmlElement* Read(CXmlObjectBase& object, NxXmlLib9::CXmlElement* cursor,
                                        const Context& context = Context::m_defaultContext)
    {
        return CXmlObjectBase::FromXml_Int(&object, nullptr, cursor, context);
    }
    static NxXmlLib9::CXmlElement* Read(CXmlObjectBase* object, NxXmlLib9::CXmlElement* element,
                                        NxXmlLib9::CXmlElement* cursor,
                                        const Context& context = Context::m_defaultContext)
    {
        return CXmlObjectBase::FromXml_Int(object, element, cursor, context);
    }
};

} // namespace NxTest
