// The metadata records by which a generated class describes itself: one
// record for the class, one for each child element and one for each
// attribute. A generated class builds its records once and hands them out as
// null-terminated arrays of pointers; the walks read them in table order.
#pragma once

#include <string>

#include "NxConversions.h"
#include "NxFoundation.h"
#include "NxPrimitiveRestrictions.h"

namespace NxXmlLib9 {
class CXmlObjectBase;
class CXmlGeneratedClass;
class CXmlSerializationContext;
class CXmlWriter;
class CXmlElement;
class CXmlAttribute;
class NxVariant;
} // namespace NxXmlLib9

namespace NxXmlLib9Data {

// How the child elements of a class relate to one another.
enum XmlElementGroupType : int {
    XmlElementGroupType_Sequence = 0, // in table order
    XmlElementGroupType_Choice = 1,   // at most one of them
    XmlElementGroupType_All = 2       // any order, each at most once
};

// Whether an object has an element of its own, or stands for a nested group
// whose attributes and children sit directly inside its parent's element.
enum XmlElementType : int {
    XmlElementType_Element = 0,
    XmlElementType_Pseudo = 1
};

// Describes a generated class as a whole.
class CParentElementInfo {
public:
    // A pseudo class, and a class with pseudo children, must pass false for
    // rejectUnknownAttributes: relatives share the attributes of one element.
    // Null texts are taken as empty.
    CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType, const char* typeName,
                       const char* typeNamespace, int textPropertyIndex, bool rejectUnknownAttributes,
                       bool mayWriteTypeAttribute);
    virtual ~CParentElementInfo();
    CParentElementInfo(const CParentElementInfo&) = delete;
    CParentElementInfo& operator=(const CParentElementInfo&) = delete;

    XmlElementGroupType GetGroupType() const { return m_groupType; }
    XmlElementType GetElementType() const { return m_elementType; }
    // Name and namespace of the schema type; the type attribute is written
    // when the element's name differs from the type name.
    const std::string& GetTypeName() const { return m_typeName; }
    const std::string& GetTypeNamespace() const { return m_typeNamespace; }
    // The property that holds the element's text content; -1 for none.
    int GetTextPropertyIndex() const { return m_textPropertyIndex; }
    bool GetRejectUnknownAttributes() const { return m_rejectUnknownAttributes; }
    bool GetMayWriteTypeAttribute() const { return m_mayWriteTypeAttribute; }

private:
    XmlElementGroupType m_groupType;
    XmlElementType m_elementType;
    std::string m_typeName;
    std::string m_typeNamespace;
    int m_textPropertyIndex;
    bool m_rejectUnknownAttributes;
    bool m_mayWriteTypeAttribute;
};

// Describes one child element of a class. The concrete entries say by their
// class what the property holds and how often the element occurs.
class CElementInfo {
public:
    // An entry without a primitive description: the element holds an object,
    // a collection or untyped content. Null texts are taken as empty.
    CElementInfo(const char* name, const char* elementNamespace, int propertyIndex);
    // An entry for a primitive value. The restrictions are copied; the format
    // is kept as a pointer and must point at static text.
    CElementInfo(const char* name, const char* elementNamespace, int propertyIndex, NxXmlLib9::ItemType type,
                 const char* format, NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
                 const NxXmlLib9::CPrimitiveRestrictions& restrictions);
    virtual ~CElementInfo();
    CElementInfo(const CElementInfo&) = delete;
    CElementInfo& operator=(const CElementInfo&) = delete;

    // Writes the property of the object; true when something was written.
    virtual bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context,
                              const NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlWriter* writer) const = 0;
    // Reads the element at *cursor (or, for a pseudo child, a run of them)
    // into the property and moves the cursor on. True when the entry is
    // satisfied, whether or not it consumed anything.
    virtual bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context,
                                NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlElement* parent,
                                NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                                XmlElementType parentType) = 0;
    virtual bool Validate(const NxXmlLib9::CXmlSerializationContext& context,
                          const NxXmlLib9::CXmlGeneratedClass* object, bool found, bool mustThrow) const = 0;
    // Puts the attributes of a pseudo child on its parent's start tag; other
    // entries have none to write.
    virtual void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                           const NxXmlLib9::CXmlGeneratedClass* object,
                                           NxXmlLib9::CXmlWriter* writer) const;

    // What this entry is as a member of a choice, which decides whether an
    // empty choice is legal: an optional single member always allows it, a
    // collection member when its minimum count is 0. Only the entries of
    // the choice family answer anything but ChoiceMemberNone.
    enum ChoiceMemberKind : int {
        ChoiceMemberNone = 0,
        ChoiceMemberOptional = 1,
        ChoiceMemberCollection = 2
    };
    virtual ChoiceMemberKind GetChoiceMemberKind() const { return ChoiceMemberNone; }

    const std::string& GetName() const { return m_name; }
    const std::string& GetNamespace() const { return m_namespace; }
    int GetPropertyIndex() const { return m_propertyIndex; }

    // True when the element has this entry's local name and, unless the
    // context ignores namespaces, its namespace. Null is never this element.
    bool IsThisElement(const NxXmlLib9::CXmlSerializationContext& context,
                       const NxXmlLib9::CXmlElement* element) const;

    // The namespace a new wildcard element gets from its namespace
    // wildcard ("##any", "##other", "##local", "##targetNamespace", a
    // URI or a list of these). Null texts are taken as empty.
    static std::string GetAnyDefaultNamespace(const char* wildcard, const char* classNamespace,
                                              const char* targetNamespace);

    // Checks the value against the facets of this entry. An entry without a
    // primitive description has none to check and throws.
    void CheckRestriction(const NxXmlLib9::NxVariant& value) const;

    // Reads or writes this entry's property of the object.
    void AccessProperty(NxXmlLib9::CXmlGeneratedClass* object, bool read, NxXmlLib9::NxVariant& value) const;
    void ReadProperty(const NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::NxVariant& value) const;

    // Reach the protected walks of a child object or collection.
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlObjectBase* target, NxXmlLib9::CXmlElement* element,
                                        NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext& context,
                                        bool isOptionalChoice) const;
    void AttributesToXml_Int(const NxXmlLib9::CXmlObjectBase* target, NxXmlLib9::CXmlWriter* writer,
                             const NxXmlLib9::CXmlSerializationContext& context) const;
    void ToXml_Int(const NxXmlLib9::CXmlObjectBase* target, NxXmlLib9::CXmlWriter* writer,
                   const char* elementNamespace, const NxXmlLib9::CXmlSerializationContext& context,
                   bool isOptionalChoice) const;

protected:
    std::string m_name; // local name, or "AnyElement" for a wildcard
    std::string m_namespace;
    int m_propertyIndex;
    NxXmlLib9::CPrimitiveRestrictions m_restrictions;
    NxXmlLib9::ItemType m_itemType;
    const char* m_format;
    NxXmlLib9::CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
    bool m_hasPrimitiveDescription;
};

// Describes one attribute of a class.
class CAttributeInfo {
public:
    // Null texts are taken as empty; an empty default value means none.
    CAttributeInfo(const char* name, const char* attributeNamespace, int propertyIndex, bool optional,
                   const char* defaultValue);
    virtual ~CAttributeInfo();
    CAttributeInfo(const CAttributeInfo&) = delete;
    CAttributeInfo& operator=(const CAttributeInfo&) = delete;

    virtual void AttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                const NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlWriter* writer) const = 0;
    // True when the entry claims the attribute and has stored it.
    virtual bool AttributeFromXml(const NxXmlLib9::CXmlSerializationContext& context,
                                  NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlAttribute* attribute) = 0;
    // Called once a read has offered every attribute; found tells whether
    // this entry claimed any.
    virtual void Validate(const NxXmlLib9::CXmlSerializationContext& context, bool found) const = 0;

    const std::string& GetName() const { return m_name; }
    const std::string& GetNamespace() const { return m_namespace; }
    int GetPropertyIndex() const { return m_propertyIndex; }
    bool IsOptional() const { return m_optional; }
    const std::string& GetDefaultValue() const { return m_defaultValue; }

    // True when the attribute has this entry's local name and, unless the
    // context ignores namespaces, its namespace. Null is never this attribute.
    bool IsThisAttribute(const NxXmlLib9::CXmlSerializationContext& context,
                         NxXmlLib9::CXmlAttribute* attribute) const;

    void AccessProperty(NxXmlLib9::CXmlGeneratedClass* object, bool read, NxXmlLib9::NxVariant& value) const;
    void ReadProperty(const NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::NxVariant& value) const;
    std::string GetTargetNamespace(const NxXmlLib9::CXmlObjectBase* object) const;
    // Throws CNxInvalidNamespaceException when the wildcard text does not
    // admit the namespace.
    void TestNamespace(const std::string& namespaceUri, const std::string& wildcard,
                       const std::string& targetNamespace) const;
    // Reaches the protected write walk of an object, such as the collection
    // behind a wildcard attribute.
    void ToXml_Int(const NxXmlLib9::CXmlObjectBase* target, NxXmlLib9::CXmlWriter* writer, bool isRoot,
                   const char* elementNamespace, const NxXmlLib9::CXmlSerializationContext& context,
                   bool isOptionalChoice) const;

protected:
    std::string m_name;
    std::string m_namespace;
    int m_propertyIndex;
    bool m_optional;
    std::string m_defaultValue;
};

} // namespace NxXmlLib9Data
