// Child element records of classes whose children form an all group: each
// element at most once, in any order. They mirror the sequence records kind
// for kind and occurrence for occurrence. The all walker offers the element
// at the cursor to every record not yet satisfied, so a record never fails
// on an element that is not its own: ElementFromXml says whether it consumed
// one, and Validate settles mandatory records once the walk is over.
//
// An all group has no repeating members, so no table ever needs a
// collection record; those below are kept without a Validate and so cannot
// be made. Substitutable children are written but cannot be read.
#pragma once

#include <string>

#include "NxElementInfoTypes.h"
#include "NxNamespaceWildcard.h"
#include "NxMetadata.h"

namespace NxXmlLib9Data {

// Supplies no Validate: each record below answers for itself.
class CElementInfoAll : public CElementInfo {
public:
    using CElementInfo::CElementInfo;
};

// ---- Repeating elements (abstract) -----------------------------------------

class CElementInfoAllCol : public CElementInfoAll {
public:
    using CElementInfoAll::CElementInfoAll;

    // Checks the bounds unless the context ignores them, then writes.
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    // The collection reads its run; the answer is always false.
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
};

class CElementInfoAllNonCol : public CElementInfoAll {
public:
    using CElementInfoAll::CElementInfoAll;
};

class CElementInfoAllClsCol : public CElementInfoAllCol {
public:
    CElementInfoAllClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                          XmlElementType xmlElementType);
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
};

class CElementInfoAllAbsClsCol : public CElementInfoAllCol {
public:
    CElementInfoAllAbsClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                             XmlElementType xmlElementType);
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
};

class CElementInfoAllPrimCol : public CElementInfoAllCol {
public:
    CElementInfoAllPrimCol(const char* name, const char* elementNamespace, int propertyIndex);
};

class CElementInfoAllUntpdCol : public CElementInfoAllCol {
public:
    CElementInfoAllUntpdCol(const char* name, const char* elementNamespace, int propertyIndex);
};

// Unlike its siblings it stands directly on the family's base, and so has
// neither writing nor reading.
class CElementInfoAllEnumCol : public CElementInfoAll {
public:
    CElementInfoAllEnumCol(const char* name, const char* elementNamespace, int propertyIndex);
};

// ---- Objects of a known class -----------------------------------------------

// The child exists already (the generated class makes it); a read fills it.
// The last argument decides whether a missing real child fails Validate; a
// missing pseudo child always does.
class CElementInfoAllClsMnd : public CElementInfoAll {
public:
    CElementInfoAllClsMnd(const char* name, const char* elementNamespace, int propertyIndex,
                          XmlElementType xmlElementType, ClassFactoryFunction factory, int classNumber,
                          bool contentRequired);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
    bool m_contentRequired;
    ClassFactoryFunction m_factory;
    int m_classNumber;
};

// Made by the factory when its element comes; set after it has been read.
// A pseudo child that reads nothing is dropped.
class CElementInfoAllClsOpt : public CElementInfoAll {
public:
    CElementInfoAllClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                          XmlElementType xmlElementType, ClassFactoryFunction factory, int classNumber);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
    ClassFactoryFunction m_factory;
    int m_classNumber;
};

// ---- Substitutable objects --------------------------------------------------

// Written like their sequence siblings, but reading one always throws: the
// substitution of a child inside an all group is not supported.
class CElementInfoAllAbsClsMnd : public CElementInfoAll {
public:
    // classNumber is kept for generated code that passes it; reading never
    // gets as far as using it.
    CElementInfoAllAbsClsMnd(const char* name, const char* elementNamespace, int propertyIndex,
                             XmlElementType xmlElementType, ElementFactoryFunction factory, int classNumber);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
    ElementFactoryFunction m_factory;
    int m_classNumber;
};

class CElementInfoAllAbsClsOpt : public CElementInfoAll {
public:
    CElementInfoAllAbsClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                             XmlElementType xmlElementType, ElementFactoryFunction factory);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
    ElementFactoryFunction m_factory;
};

// ---- Primitive values -------------------------------------------------------

// An unset value is left out on writing, mandatory or not; facets are
// checked on writing only. Mandatory records of every kind fail Validate
// when their element was not found and the walk must throw.
class CElementInfoAllPrimMnd : public CElementInfoAll {
public:
    CElementInfoAllPrimMnd(const char* name, const char* elementNamespace, int propertyIndex, NxXmlLib9::ItemType type,
                           const char* format, NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
                           const NxXmlLib9::CPrimitiveRestrictions& restrictions);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;
};

class CElementInfoAllPrimOpt : public CElementInfoAll {
public:
    CElementInfoAllPrimOpt(const char* name, const char* elementNamespace, int propertyIndex, NxXmlLib9::ItemType type,
                           const char* format, NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
                           const NxXmlLib9::CPrimitiveRestrictions& restrictions);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;
};

// ---- Enumerations -----------------------------------------------------------

class CElementInfoAllEnumMnd : public CElementInfoAll {
public:
    CElementInfoAllEnumMnd(const char* name, const char* elementNamespace, int propertyIndex, EnumToTextFunction toText,
                           EnumFromTextFunction fromText);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;

private:
    EnumToTextFunction m_toText;
    EnumFromTextFunction m_fromText;
};

class CElementInfoAllEnumOpt : public CElementInfoAll {
public:
    CElementInfoAllEnumOpt(const char* name, const char* elementNamespace, int propertyIndex, EnumToTextFunction toText,
                           EnumFromTextFunction fromText);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;

private:
    EnumToTextFunction m_toText;
    EnumFromTextFunction m_fromText;
};

// ---- Untyped content --------------------------------------------------------

// Named "AnyElement", the record takes whatever element comes (xs:any);
// under any other name, only an element of that local name. The namespace
// wildcard is a text such as "##any".
class CElementInfoAllUntpdMnd : public CElementInfoAll {
public:
    CElementInfoAllUntpdMnd(const char* name, const char* elementNamespace, int propertyIndex,
                            const char* namespaceWildcard, const char* targetNamespace);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;

private:
    CNamespaceWildcard m_wildcard;
};

class CElementInfoAllUntpdOpt : public CElementInfoAll {
public:
    CElementInfoAllUntpdOpt(const char* name, const char* elementNamespace, int propertyIndex,
                            const char* namespaceWildcard, const char* targetNamespace);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;

private:
    CNamespaceWildcard m_wildcard;
};

} // namespace NxXmlLib9Data
