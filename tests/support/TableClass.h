// A generated class whose records a test gives when it makes it, for the
// cases that the realistic classes of RoundTripClasses.h do not reach: its
// properties are variants kept by number, and Init clears them and runs the
// test's hook, which puts mandatory children and collections in place.
// Beside it, the small helpers that the engine tests share.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "NxXmlLib9.h"
#include "RoundTripClasses.h"

namespace NxRoundTrip {

// The records of one test class, owned here; the arrays end in null.
struct Table {
    explicit Table(XmlElementGroupType group, XmlElementType type = XmlElementType_Element, bool rejectUnknown = true,
                   int textIndex = -1)
        : info(new CParentElementInfo(group, type, "T", "", textIndex, rejectUnknown, false))
    {
    }
    Table& Add(CElementInfo* record)
    {
        owned.emplace_back(record);
        elements.insert(elements.end() - 1, record);
        return *this;
    }
    Table& Add(CAttributeInfo* record)
    {
        ownedAttributes.emplace_back(record);
        attributes.insert(attributes.end() - 1, record);
        return *this;
    }
    std::unique_ptr<CParentElementInfo> info;
    std::vector<std::unique_ptr<CElementInfo>> owned;
    std::vector<std::unique_ptr<CAttributeInfo>> ownedAttributes;
    std::vector<CElementInfo*> elements {nullptr};
    std::vector<CAttributeInfo*> attributes {nullptr};
};

class TableClass : public CXmlGeneratedClass {
public:
    using InitHook = std::function<void(TableClass&)>;
    TableClass(std::shared_ptr<Table> table, const char* name, InitHook init = {})
        : m_table(std::move(table)), m_init(std::move(init))
    {
        SetElementName(name);
        Init();
    }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ""; }
    std::string GetNamespace() const override { return ""; }
    CParentElementInfo* GetClassInfo() const override { return m_table->info.get(); }
    CElementInfo** GetClassElementInfo() const override { return m_table->elements.data(); }
    CAttributeInfo** GetClassAttributeInfo() const override { return m_table->attributes.data(); }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        if (!read)
            props[index] = value;
        else if (props.count(index))
            value = props[index];
    }
    void Init() override
    {
        props.clear();
        if (m_init)
            m_init(*this);
    }

    // The property as text, "-" when unset.
    std::string Text(int index) const
    {
        auto found = props.find(index);
        return found == props.end() || !found->second.IsValid() ? "-" : found->second.ToString();
    }
    template <class T> T* Object(int index) const
    {
        auto found = props.find(index);
        return found == props.end() ? nullptr
                                    : dynamic_cast<T*>(static_cast<CXmlObjectBase*>(found->second.GetXmlObject()));
    }
    template <class T> T* Collection(int index) const
    {
        return dynamic_cast<T*>(static_cast<CXmlCollectionBase*>(props.at(index).GetXmlCollection()));
    }

    std::map<int, NxVariant> props;

private:
    std::shared_ptr<Table> m_table;
    InitHook m_init;
};

// The full message of the failure a call raises, "(no failure)" when there
// is none; a failure that is not a validation failure is marked.
template <class Call> std::string FailureOf(Call call)
{
    try {
        call();
    } catch (const CNxValidationException& failure) {
        return failure.GetFullMessage();
    } catch (const CNxException& failure) {
        return "(not a validation failure) " + failure.GetFullMessage();
    }
    return "(no failure)";
}

inline std::string Replace(std::string text, const std::string& what, const std::string& with)
{
    return text.replace(text.find(what), what.size(), with);
}

// A parsed document and its first child element, for entering a walk or a
// record at a chosen cursor.
struct Doc {
    explicit Doc(const char* xml) { document.LoadXml(xml); }
    CXmlElement* Root() const { return document.GetDocumentElement(); }
    CXmlElement* First() const { return Root()->GetFirstElement(); }
    CXmlDocument document;
};

// A factory by number of pseudo children.
inline CSmartPtr<CXmlObjectBase> MakeContact(int, const char*) { return new Contact(); }

inline const CXmlSerializationContext& Default() { return CXmlSerializationContext::m_defaultContext; }

inline CXmlSerializationContext With(void (CXmlSerializationContext::*set)(bool), bool value = true)
{
    CXmlSerializationContext context;
    (context.*set)(value);
    return context;
}

} // namespace NxRoundTrip
