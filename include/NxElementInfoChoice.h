// Child element records of classes whose children form a choice: at most
// one member is present. Every single member may be absent, so the records
// are optional (Opt) or repeating (Col) only. ElementFromXml answers whether
// this member was selected and consumed input; ElementToXml whether it wrote
// something, and the choice walker stops at the first that did.
#pragma once

#include <string>

#include "NxElementInfoTypes.h"
#include "NxNamespaceWildcard.h"
#include "NxMetadata.h"

namespace NxXmlLib9 {
class CXmlCollectionBase;
}

namespace NxXmlLib9Data {

class CElementInfoChoice : public CElementInfo {
public:
    using CElementInfo::CElementInfo;

    // The choice walker never asks: always throws.
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;

    // Every single member of a choice is optional: an empty choice that has
    // one is legal.
    ChoiceMemberKind GetChoiceMemberKind() const override { return ChoiceMemberOptional; }
};

// ---- Repeating members ------------------------------------------------------

// A collection member is selected when it reads at least one element. Its
// bounds are not checked on writing; on reading a bad count fails at a real
// level and refuses the selection at a pseudo level.
class CElementInfoChoiceCol : public CElementInfoChoice {
public:
    using CElementInfoChoice::CElementInfoChoice;

    // An empty choice is legal when the collection may be empty.
    ChoiceMemberKind GetChoiceMemberKind() const override { return ChoiceMemberCollection; }

    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;

protected:
    // The verdict on a collection that has read its run up to next.
    static bool SelectRun(const NxXmlLib9::CXmlCollectionBase& collection, NxXmlLib9::CXmlElement* next,
                          NxXmlLib9::CXmlElement** cursor, const NxXmlLib9::CXmlSerializationContext& context,
                          XmlElementType parentType);
};

class CElementInfoChoiceClsCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                             XmlElementType xmlElementType);
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
};

class CElementInfoChoiceAbsClsCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceAbsClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                                XmlElementType xmlElementType);
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
};

class CElementInfoChoicePrimCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoicePrimCol(const char* name, const char* elementNamespace, int propertyIndex);
};

class CElementInfoChoiceEnumCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceEnumCol(const char* name, const char* elementNamespace, int propertyIndex);
};

class CElementInfoChoiceUntpdCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceUntpdCol(const char* name, const char* elementNamespace, int propertyIndex);
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
};

// ---- Optional members -------------------------------------------------------

// The child is told that it stands in an optional choice, so that a nested
// choice of its own may be empty. It is set before it reads, so that the
// generated setter sees the selection before the content.
class CElementInfoChoiceClsOpt : public CElementInfoChoice {
public:
    CElementInfoChoiceClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                             XmlElementType xmlElementType, ClassFactoryFunction factory, int classNumber);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
    ClassFactoryFunction m_factory;
    int m_classNumber;
};

// Set before it reads, as the member of a known class.
class CElementInfoChoiceAbsClsOpt : public CElementInfoChoice {
public:
    CElementInfoChoiceAbsClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                XmlElementType xmlElementType, ElementFactoryFunction factory);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
    ElementFactoryFunction m_factory;
};

class CElementInfoChoicePrimOpt : public CElementInfoChoice {
public:
    CElementInfoChoicePrimOpt(const char* name, const char* elementNamespace, int propertyIndex,
                              NxXmlLib9::ItemType type, const char* format,
                              NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
                              const NxXmlLib9::CPrimitiveRestrictions& restrictions);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
};

class CElementInfoChoiceEnumOpt : public CElementInfoChoice {
public:
    CElementInfoChoiceEnumOpt(const char* name, const char* elementNamespace, int propertyIndex,
                              EnumToTextFunction toText, EnumFromTextFunction fromText);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;

private:
    EnumToTextFunction m_toText;
    EnumFromTextFunction m_fromText;
};

// Named "AnyElement", the member takes whatever element comes (xs:any);
// under any other name, only an element of that local name.
class CElementInfoChoiceUntpdOpt : public CElementInfoChoice {
public:
    CElementInfoChoiceUntpdOpt(const char* name, const char* elementNamespace, int propertyIndex,
                               const char* namespaceWildcard, const char* targetNamespace);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;

private:
    CNamespaceWildcard m_wildcard;
};

} // namespace NxXmlLib9Data
