// Wildcard content, which has no generated class: a free-standing element
// with its text, attributes and children, a single attribute, and their
// collections. The attribute collection also holds the additional root
// attributes of a serialization context.
#pragma once

#include <string>

#include "NxCollectionBase.h"
#include "NxFoundation.h"
#include "NxSmartPtr.h"
#include "NxXmlObjectBase.h"

namespace NxXmlLib9 {

class CXmlElement;
class CElementCol;

class CAttribute : public CXmlObjectBase, public CInstanceMonitor {
public:
    // A null text is taken as an empty one.
    CAttribute(const char* name, const char* value, const char* namespaceUri);
    ~CAttribute() override;

    CXmlObjectBase* GetBase() override;
    // Both give the attribute's namespace.
    std::string GetTargetNamespace() const override;
    std::string GetNamespace() const override;

    CSmartPtr<CAttribute> Clone() const;

    std::string GetName() const { return m_name; }
    void SetName(const char* name);
    std::string GetValue() const { return m_value; }
    void SetValue(const char* value);
    void SetNamespace(const char* namespaceUri);

    // Hooks called by the setters with the new text; they do nothing here.
    void FireOnChangeName(const char* name);
    void FireOnChangeNamespace(const char* namespaceUri);

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    // An attribute is read by its collection: always throws.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;

private:
    std::string m_name;
    std::string m_value;
    std::string m_namespace;
};

// The attributes of an untyped element, or any attributes of a generated
// class. The namespace of the base collection is the default namespace of
// attributes added by name.
class CAttributeCol : public CXmlCollection, public CInstanceMonitor {
public:
    // With an empty namespace, a restriction whose first token is a URI
    // supplies that URI as the default namespace.
    CAttributeCol(const char* namespaceUri, const char* restriction, const char* targetNamespace);
    ~CAttributeCol() override;

    CXmlObjectBase* GetBase() override;
    // The default namespace of the collection.
    std::string GetTargetNamespace() const override;

    // These three test the namespace against the restriction first.
    CSmartPtr<CAttribute> Add(const char* name);
    CSmartPtr<CAttribute> Add(const char* name, const char* value);
    CSmartPtr<CAttribute> Add(const char* name, const char* value, const char* namespaceUri);
    // Appends the attribute as it is, without a namespace test.
    CSmartPtr<CAttribute> Add(CAttribute* attribute);

    // Null when the item at the index is not a CAttribute.
    CSmartPtr<CAttribute> Item(int index) const;
    CSmartPtr<CAttributeCol> Clone() const;

    std::string GetNamespaceRestriction() const { return m_restriction; }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    // Takes every attribute of element; one whose namespace the restriction
    // refuses throws CNxInvalidNamespaceException. Returns cursor.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;

private:
    std::string m_restriction;
    std::string m_targetNamespace;
};

class CElement : public CXmlObjectBase, public CInstanceMonitor {
public:
    // No namespace, any namespace for the content.
    explicit CElement(const char* name);
    // The namespace is also the restriction; a restriction keyword in its
    // place throws CNxInvalidNamespaceException.
    CElement(const char* name, const char* namespaceUri);
    CElement(const char* name, const char* namespaceUri, const char* restriction, const char* targetNamespace);
    // The untyped twin of a bound object: the object is written as UTF-8
    // text under a context with this default namespace (null for none),
    // parsed, and its root copied. Admits any namespace.
    CElement(CXmlObjectBase* object, const char* defaultNamespace);
    ~CElement() override;

    CXmlObjectBase* GetBase() override;
    // Both give the element's namespace, not the target namespace.
    std::string GetTargetNamespace() const override;
    std::string GetNamespace() const override;

    // Sets name, namespace, restriction and target namespace, and starts
    // with empty attribute and element collections that admit any
    // namespace. The namespace must pass the restriction.
    void Init(const char* name, const char* namespaceUri, const char* restriction, const char* targetNamespace);

    // Parses the text and reads its root element into this element, under
    // the default context. A root that the restriction refuses leaves the
    // element as it was, silently.
    void FromXml(const char* xml);
    // A deep copy of the parsed element, replacing attributes and children.
    // Its namespace is not tested against the restriction.
    void CopyXmlElement(CXmlElement* element);
    // A deep copy; the default namespace is not copied.
    CSmartPtr<CElement> Clone() const;
    // Checks this element, its attributes and its descendants against a
    // restriction; it stores nothing. A refusal of the element's own
    // namespace is thrown as a pointer to a new CNxInvalidNamespaceException,
    // which the catcher owns and deletes; a refusal below it is thrown by
    // value as it stands.
    void SetNamespaceRestrictions(const char* restriction, const char* targetNamespace);

    std::string GetName() const { return m_name; }
    void SetName(const char* name);
    std::string GetText() const { return m_text; }
    void SetText(const char* text);
    void SetNamespace(const char* namespaceUri);
    // When not empty, the element is written apart with a default namespace
    // declaration of its own, and without its attributes.
    std::string GetDefaultNamespace() const { return m_defaultNamespace; }
    void SetDefaultNamespace(const char* namespaceUri);
    std::string GetNamespaceRestriction() const { return m_restriction; }
    std::string GetRestrictionTargetNamespace() const { return m_targetNamespace; }

    CSmartPtr<CAttributeCol> GetAttributes() const;
    CSmartPtr<CElementCol> GetElements() const;

    // Hooks called by the setters with the new text; they do nothing here.
    void FireOnChangeName(const char* name);
    void FireOnChangeText(const char* text);
    void FireOnChangeNamespace(const char* namespaceUri);

protected:
    // Child elements are written ahead of the text.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    // Reads the element at cursor, adding to the attributes and children
    // already held, and returns its next sibling; returns cursor itself when
    // the restriction refuses its namespace.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;

private:
    void WriteWithDefaultNamespace(CXmlWriter* writer, bool isOptionalChoice) const;
    // The collections, made on first use: most elements read from a
    // document have neither attributes nor children. Concurrent const
    // readers may both ask: one collection is published.
    CAttributeCol& Attributes() const;
    CElementCol& Elements() const;

    std::string m_name;
    std::string m_text;
    std::string m_namespace;
    std::string m_restriction;
    std::string m_targetNamespace;
    CLazySmartPtr<CAttributeCol> m_attributes;
    CLazySmartPtr<CElementCol> m_elements;
    std::string m_defaultNamespace;
    // The namespace the collections are made with: the element's namespace
    // when Init ran.
    std::string m_collectionNamespace;
};

// The child elements of an untyped element, or any elements of a generated
// class. Whatever restriction it is made with, it admits any namespace
// afterwards, and its bounds are always 0 and unbounded.
class CElementCol : public CXmlCollection, public CInstanceMonitor {
public:
    // The namespace must pass the restriction. With an empty namespace, a
    // keyword restriction becomes the default namespace of elements added by
    // name, as text. The bounds are accepted and ignored.
    CElementCol(const char* namespaceUri, const char* restriction, const char* targetNamespace, int minOccurs,
                int maxOccurs);
    ~CElementCol() override;

    CXmlObjectBase* GetBase() override;
    // Both give the target namespace.
    std::string GetTargetNamespace() const override;
    std::string GetNamespace() const override;

    // Throws CNxInvalidStateException when there is no default namespace.
    CSmartPtr<CElement> Add(const char* name);
    CSmartPtr<CElement> Add(const char* name, const char* namespaceUri);
    CSmartPtr<CElement> Add(CElement* element);

    // Null when the item at the index is not a CElement.
    CSmartPtr<CElement> Item(int index) const;
    CSmartPtr<CElementCol> Clone() const;

    std::string GetDefaultNamespace() const { return m_defaultNamespace; }
    std::string GetNamespaceRestriction() const { return m_restriction; }

    // Reads the run of siblings from element on that bear exactly this name
    // and namespace, and returns the first that does not (null at the end).
    CXmlElement* FromXmlLockElementName_Int(std::string name, std::string namespaceUri, CXmlElement* parent,
                                            CXmlElement* element, const CXmlSerializationContext& context,
                                            bool isOptionalChoice);

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    // Reads siblings from cursor on while the restriction admits their
    // namespace and each is consumed; returns the first left over, or null.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;

private:
    template <class Accept>
    CXmlElement* ReadRun(CXmlElement* parent, CXmlElement* cursor, const CXmlSerializationContext& context,
                         const std::string& restriction, Accept accept);

    std::string m_restriction;
    std::string m_defaultNamespace;
    std::string m_targetNamespace;
};

} // namespace NxXmlLib9
