// The attribute records of generated classes. The record's class says what
// the attribute's property holds: a primitive value, an enumeration, or a
// collection of untyped attributes taken from a wildcard.
#pragma once

#include <string>

#include "NxConversions.h"
#include "NxFoundation.h"
#include "NxMetadata.h"
#include "NxNamespaceWildcard.h"
#include "NxPrimitiveRestrictions.h"
#include "NxVariant.h"

namespace NxXmlLib9Data {

// A primitive attribute: written through the value's own text and checked
// against its facets; read only when name and namespace match exactly,
// whatever the context says about namespaces.
class CAttributeInfoPrimitive : public CAttributeInfo {
public:
    // The restrictions are copied; the format is kept as a pointer and must
    // point at static text.
    CAttributeInfoPrimitive(const char* name, const char* attributeNamespace, int propertyIndex, bool optional,
                            NxXmlLib9::ItemType type, const char* format,
                            NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
                            const NxXmlLib9::CPrimitiveRestrictions& restrictions, const char* defaultValue);
    ~CAttributeInfoPrimitive() override;

    void AttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                        const NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlWriter* writer) const override;
    bool AttributeFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                          NxXmlLib9::CXmlAttribute* attribute) override;
    // A required attribute is required under every option of the context.
    void Validate(const NxXmlLib9::CXmlSerializationContext& context, bool found) const override;

    // Throws a plain CNxException when the value breaks a facet.
    void CheckRestriction(NxXmlLib9::NxVariant value) const;

    NxXmlLib9::ItemType GetItemType() const { return m_itemType; }

protected:
    NxXmlLib9::CPrimitiveRestrictions m_restrictions;
    NxXmlLib9::ItemType m_itemType;
    const char* m_format;
    NxXmlLib9::CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

// An enumeration attribute: the property holds the number, the generated
// functions turn it to and from its text. No facets are checked, and, unlike
// a primitive, the match on reading follows the context's namespace option.
class CAttributeInfoEnum : public CAttributeInfo {
public:
    CAttributeInfoEnum(const char* name, const char* attributeNamespace, int propertyIndex, bool optional,
                       const char* (*toText)(int), int (*fromText)(const char*), const char* defaultValue);
    ~CAttributeInfoEnum() override;

    void AttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                        const NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlWriter* writer) const override;
    bool AttributeFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                          NxXmlLib9::CXmlAttribute* attribute) override;
    void Validate(const NxXmlLib9::CXmlSerializationContext& context, bool found) const override;

protected:
    int (*m_fromText)(const char*);
    const char* (*m_toText)(int);
};

// The wildcard of a class's attributes: the property is a CAttributeCol.
// It takes every attribute offered to it, so it stands last in a table; an
// attribute from a namespace the wildcard refuses fails the read.
class CAttributeInfoAny : public CAttributeInfo {
public:
    CAttributeInfoAny(const char* name, const char* attributeNamespace, int propertyIndex, bool optional,
                      const char* namespaceWildcard, const char* targetNamespace, const char* defaultValue);
    ~CAttributeInfoAny() override;

    void AttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                        const NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlWriter* writer) const override;
    bool AttributeFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                          NxXmlLib9::CXmlAttribute* attribute) override;
    // Nothing is required of a wildcard.
    void Validate(const NxXmlLib9::CXmlSerializationContext& context, bool found) const override;

    const CNamespaceWildcard& GetNamespaceWildcard() const { return m_wildcard; }

protected:
    CNamespaceWildcard m_wildcard;
};

} // namespace NxXmlLib9Data
