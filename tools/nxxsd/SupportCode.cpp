#include "SupportCode.h"

namespace nxxsd {

const char* const kSupportCode = R"SUPPORT(#ifndef NXXSD_SUPPORT_9_0
#define NXXSD_SUPPORT_9_0
namespace NxXsdSupport {

// The three record tables of one class, built once under the library's lock
// on first use and taken down when the program ends.
struct Tables {
    using Build = void (*)(NxXmlLib9Data::CParentElementInfo*&, NxXmlLib9Data::CElementInfo**&,
                           NxXmlLib9Data::CAttributeInfo**&);
    // Constant-initialized, so that it is ready before any static object uses it.
    constexpr explicit Tables(Build build) : m_build(build) {}
    ~Tables() { NxXmlLib9::CXmlGeneratedClass::CleanMetaData(info, elements, attributes); }
    Tables& Ensure()
    {
        if (m_built.load(std::memory_order_acquire))
            return *this;
        NxXmlLib9::CXmlGeneratedClass::m_csInit.Enter();
        try {
            if (!m_built.load(std::memory_order_relaxed)) {
                m_build(info, elements, attributes);
                m_built.store(true, std::memory_order_release);
            }
        } catch (...) {
            NxXmlLib9::CXmlGeneratedClass::m_csInit.Leave();
            throw;
        }
        NxXmlLib9::CXmlGeneratedClass::m_csInit.Leave();
        return *this;
    }
    NxXmlLib9Data::CParentElementInfo* info = nullptr;
    NxXmlLib9Data::CElementInfo** elements = nullptr;
    NxXmlLib9Data::CAttributeInfo** attributes = nullptr;

private:
    Build m_build;
    std::atomic<bool> m_built {false};
};

// What every repeated item of objects shares: typed access and writing each
// item in turn.
template <class T>
class ItemCol : public NxXmlLib9::CXmlCollection {
public:
    ItemCol(const char* name, const char* ns, int minOccurs, int maxOccurs)
        : CXmlCollection(name, ns, minOccurs, maxOccurs)
    {
    }
    T* Item(int index) const
    {
        return dynamic_cast<T*>(static_cast<NxXmlLib9::CXmlObjectBase*>(GetNodeAtIndex(index)->item));
    }
    void Add(T* item) { AppendItem(item); }

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter* writer, bool, const char* elementNamespace,
                   const NxXmlLib9::CXmlSerializationContext& context, bool) const override
    {
        for (NxXmlLib9::CNode* node = begin(); node != end(); node = node->next)
            CXmlObjectBase::ToXml_Int(node->item, writer, false, elementNamespace, context, false);
    }
};

// A repeated child element of a complex type; each item is made from its
// element by the factory, so that xsi:type works per item.
template <class T>
class ObjectCol : public ItemCol<T> {
public:
    using Make = NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> (*)(NxXmlLib9::CXmlElement*);
    ObjectCol(const char* name, const char* ns, int minOccurs, int maxOccurs, Make make)
        : ItemCol<T>(name, ns, minOccurs, maxOccurs), m_make(make)
    {
    }

protected:
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext& context, bool) override
    {
        for (; cursor && NxXmlLib9::CXmlObjectHelper::DoesElementNameMatch(context, cursor, this->GetElementName(),
                                                                           this->GetNamespace());
             cursor = cursor->GetNextSiblingElement()) {
            NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> item = m_make(cursor);
            if (!item)
                break;
            NxXmlLib9::CXmlObjectBase::FromXml_Int(item, cursor, cursor->GetFirstElement(), context);
            this->AppendItem(item);
        }
        return cursor;
    }

private:
    Make m_make;
};

// A repeated nested group: each item is an object without an element of its
// own, read from the parent's children for as long as another item matches.
template <class T>
class PseudoCol : public ItemCol<T> {
public:
    PseudoCol(const char* name, const char* ns, int minOccurs, int maxOccurs)
        : ItemCol<T>(name, ns, minOccurs, maxOccurs), m_maxOccurs(maxOccurs)
    {
    }

protected:
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext& context, bool) override
    {
        while (cursor && (m_maxOccurs < 0 || this->GetCount() < m_maxOccurs)) {
            NxXmlLib9::CSmartPtr<T> item(new T());
            NxXmlLib9::CXmlElement* next = NxXmlLib9::CXmlObjectBase::FromXml_Int(item, parent, cursor, context);
            if (next == cursor)
                break;
            this->AppendItem(item);
            cursor = next;
        }
        return cursor;
    }

private:
    int m_maxOccurs;
};

// A repeated element of an enumeration, held as the enumeration's numbers.
class EnumCol : public NxXmlLib9::CXmlTypeCollection {
public:
    EnumCol(const char* name, const char* ns, int minOccurs, int maxOccurs, const char* (*toText)(int),
            int (*fromText)(const char*))
        : CXmlTypeCollection(NxXmlLib9::ItemTypeString, name, ns, minOccurs, maxOccurs, nullptr, -1, -1, nullptr,
                             nullptr, nullptr, nullptr, -1, NxXmlLib9::CWhitespaceUtils::WhitespaceRuleCollapse,
                             nullptr),
          m_toText(toText), m_fromText(fromText)
    {
    }
    int GetCount() const override { return static_cast<int>(m_items.size()); }
    void Clear() override { m_items.clear(); }
    void Remove(int index) override { m_items.erase(m_items.begin() + index); }
    void AddFromString(std::string text) override
    {
        m_items.push_back(m_fromText(NxXmlLib9::CWhitespaceUtils::ApplyRule(
            NxXmlLib9::CWhitespaceUtils::WhitespaceRuleCollapse, text).c_str()));
    }
    void Add(int value)
    {
        m_toText(value); // refuses a number outside the enumeration
        m_items.push_back(value);
    }
    int Item(int index) const { return m_items.at(static_cast<size_t>(index)); }

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter* writer, bool, const char* elementNamespace,
                   const NxXmlLib9::CXmlSerializationContext&, bool) const override
    {
        for (int item : m_items) {
            writer->WriteStartElement(GetElementName(), elementNamespace);
            writer->WriteString(m_toText(item), NxXmlLib9::ItemTypeString);
            writer->WriteEndElement();
        }
    }

private:
    const char* (*m_toText)(int);
    int (*m_fromText)(const char*);
    std::vector<int> m_items;
};

// A fixed value as the library prints it, so that any spelling of the same
// value compares equal.
#define NXXSD_CANONICAL(Suffix, Type)                                                                         \
    inline std::string Canonical##Suffix(const char* text,                                                   \
                                         Type (*parse)(const std::string&,                                   \
                                                       NxXmlLib9::CWhitespaceUtils::WhitespaceRule),         \
                                         NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule)                   \
    {                                                                                                        \
        NxXmlLib9::NxVariant value;                                                                          \
        value.Set##Suffix(parse(text, rule));                                                                \
        return value.ToString(nullptr);                                                                      \
    }
NXXSD_CANONICAL(String, std::string)
NXXSD_CANONICAL(Boolean, bool)
NXXSD_CANONICAL(Decimal, NxXmlLib9::CDecimal)
NXXSD_CANONICAL(Integer, NxXmlLib9::CBigInteger)
NXXSD_CANONICAL(I1, char)
NXXSD_CANONICAL(I2, short)
NXXSD_CANONICAL(I4, long)
NXXSD_CANONICAL(I8, long long)
NXXSD_CANONICAL(UI1, unsigned char)
NXXSD_CANONICAL(UI2, unsigned short)
NXXSD_CANONICAL(UI4, unsigned long)
NXXSD_CANONICAL(UI8, unsigned long long)
NXXSD_CANONICAL(R4, float)
NXXSD_CANONICAL(R8, double)
NXXSD_CANONICAL(Duration, NxXmlLib9::CDateTimeSpan)
NXXSD_CANONICAL(DateTime, NxXmlLib9::CDateTime)
NXXSD_CANONICAL(Date, NxXmlLib9::CDateTime)
NXXSD_CANONICAL(Time, NxXmlLib9::CDateTime)
NXXSD_CANONICAL(YearMonth, NxXmlLib9::CDateTime)
NXXSD_CANONICAL(MonthDay, NxXmlLib9::CDateTime)
NXXSD_CANONICAL(Year, unsigned short)
NXXSD_CANONICAL(Month, unsigned char)
NXXSD_CANONICAL(Day, unsigned char)
NXXSD_CANONICAL(HexBinary, NxXmlLib9::CBinaryData)
NXXSD_CANONICAL(Base64Binary, NxXmlLib9::CBinaryData)
#undef NXXSD_CANONICAL

// A number beyond the range of its schema type is refused.
template <class T>
void CheckRange(const char* name, T value, T low, T high)
{
    if (value < low || value > high)
        throw NxXmlLib9::CNxInvalidValueException(NxXmlLib9::FormatString(
            "The value [%s] of [%s] is out of the range of its type", std::to_string(value).c_str(), name));
}

// A value other than the fixed one is refused.
inline void CheckFixed(const char* name, const std::string& value, const std::string& fixedValue)
{
    if (value != fixedValue)
        throw NxXmlLib9::CNxInvalidValueException(NxXmlLib9::FormatString(
            "The value [%s] of [%s] differs from its fixed value [%s]", value.c_str(), name, fixedValue.c_str()));
}

// The number of an enumeration's text, or a failure naming the enumeration.
inline int EnumFromText(const char* text, const char* const* names, int count, const char* enumeration)
{
    for (int i = 0; i < count; ++i)
        if (std::strcmp(text, names[i]) == 0)
            return i;
    throw NxXmlLib9::CNxInvalidValueException(
        NxXmlLib9::FormatString("The text [%s] is not a member of the enumeration %s", text, enumeration));
}
inline const char* EnumToText(int value, const char* const* names, int count, const char* enumeration)
{
    if (value < 0 || value >= count)
        throw NxXmlLib9::CNxInvalidValueException(
            NxXmlLib9::FormatString("The value %d is not a member of the enumeration %s", value, enumeration));
    return names[value];
}

} // namespace NxXsdSupport
#endif
)SUPPORT";

} // namespace nxxsd
