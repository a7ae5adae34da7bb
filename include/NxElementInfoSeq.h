// Child element records of classes whose children form a sequence. One class
// for each kind of property (Cls: an object of a known class, AbsCls: a
// substitutable object, Prim: a primitive value, Enum: an enumeration,
// Untpd: untyped content) and each occurrence (Mnd: exactly once, Opt: at
// most once, Col: a repeating element held in a collection). The sequence
// walker offers each record the element at the cursor in table order; a
// mandatory record that misses its element fails there, unless the context
// or a pseudo level above lets it pass.
#pragma once

#include <string>

#include "NxElementInfoTypes.h"
#include "NxNamespaceWildcard.h"
#include "NxMetadata.h"

namespace NxXmlLib9 {
class CXmlCollectionBase;
}

namespace NxXmlLib9Data {

class CElementInfoSeq : public CElementInfo {
public:
    using CElementInfo::CElementInfo;

    // The sequence walker settles every record as it reads it; asking
    // afterwards is a fault and throws.
    bool Validate(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                  bool found, bool mustThrow) const override;
};

// ---- Repeating elements ---------------------------------------------------

// The collection object reads its own run of elements and knows its bounds.
// Counts are checked on writing (unless the context ignores them) and on
// reading: at a real level a bad count fails, at a pseudo level it is a
// plain refusal.
class CElementInfoSeqCol : public CElementInfoSeq {
public:
    using CElementInfoSeq::CElementInfoSeq;

    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;

protected:
    // The verdict on a collection that has read its run.
    static bool CheckCountAfterRead(const NxXmlLib9::CXmlCollectionBase& collection,
                                    const NxXmlLib9::CXmlSerializationContext& context, XmlElementType parentType);
};

// Shared ground of the single-element records; it adds nothing.
class CElementInfoSeqNonCol : public CElementInfoSeq {
public:
    using CElementInfoSeq::CElementInfoSeq;
};

class CElementInfoSeqClsCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                          XmlElementType xmlElementType);
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
};

class CElementInfoSeqAbsClsCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqAbsClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                             XmlElementType xmlElementType);
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override;

private:
    XmlElementType m_xmlElementType;
};

class CElementInfoSeqPrimCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqPrimCol(const char* name, const char* elementNamespace, int propertyIndex);
};

class CElementInfoSeqEnumCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqEnumCol(const char* name, const char* elementNamespace, int propertyIndex);
};

// Named untyped elements are read by name: only the run of elements of this
// local name (and the namespace of the first) belongs to the collection.
class CElementInfoSeqUntpdCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqUntpdCol(const char* name, const char* elementNamespace, int propertyIndex);
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
};

// ---- Objects of a known class -----------------------------------------------

// The child exists already (the generated class makes it); a read fills it.
// A pseudo child whose content is required must consume an element.
class CElementInfoSeqClsMnd : public CElementInfoSeq {
public:
    CElementInfoSeqClsMnd(const char* name, const char* elementNamespace, int propertyIndex,
                          XmlElementType xmlElementType, ClassFactoryFunction factory, int classNumber,
                          bool contentRequired);
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
    bool m_contentRequired;
    ClassFactoryFunction m_factory;
    int m_classNumber;
};

// Made by the factory when its element comes; set after it has been read.
// A pseudo child that reads nothing is dropped.
class CElementInfoSeqClsOpt : public CElementInfoSeq {
public:
    CElementInfoSeqClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
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

// ---- Substitutable objects --------------------------------------------------

// The factory looks at the element (its xsi:type) and makes an object of the
// derived class, or none. Neither option of the context is looked at.
class CElementInfoSeqAbsClsMnd : public CElementInfoSeq {
public:
    CElementInfoSeqAbsClsMnd(const char* name, const char* elementNamespace, int propertyIndex,
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

class CElementInfoSeqAbsClsOpt : public CElementInfoSeq {
public:
    CElementInfoSeqAbsClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
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

// ---- Primitive values -------------------------------------------------------

// An unset value is left out on writing, mandatory or not; facets are
// checked on writing only.
class CElementInfoSeqPrimMnd : public CElementInfoSeq {
public:
    CElementInfoSeqPrimMnd(const char* name, const char* elementNamespace, int propertyIndex, NxXmlLib9::ItemType type,
                           const char* format, NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
                           const NxXmlLib9::CPrimitiveRestrictions& restrictions);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
};

class CElementInfoSeqPrimOpt : public CElementInfoSeq {
public:
    CElementInfoSeqPrimOpt(const char* name, const char* elementNamespace, int propertyIndex, NxXmlLib9::ItemType type,
                           const char* format, NxXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
                           const NxXmlLib9::CPrimitiveRestrictions& restrictions);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;
};

// ---- Enumerations -----------------------------------------------------------

class CElementInfoSeqEnumMnd : public CElementInfoSeq {
public:
    CElementInfoSeqEnumMnd(const char* name, const char* elementNamespace, int propertyIndex, EnumToTextFunction toText,
                           EnumFromTextFunction fromText);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;

private:
    // Kept in the opposite order to the constructor's arguments, unlike
    // the optional record.
    EnumFromTextFunction m_fromText;
    EnumToTextFunction m_toText;
};

class CElementInfoSeqEnumOpt : public CElementInfoSeq {
public:
    CElementInfoSeqEnumOpt(const char* name, const char* elementNamespace, int propertyIndex, EnumToTextFunction toText,
                           EnumFromTextFunction fromText);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;

private:
    EnumToTextFunction m_toText;
    EnumFromTextFunction m_fromText;
};

// ---- Untyped content --------------------------------------------------------

// Named "AnyElement", the record takes whatever element comes (xs:any);
// under any other name, only an element of that local name. The namespace
// wildcard is a text such as "##any".
class CElementInfoSeqUntpdMnd : public CElementInfoSeq {
public:
    CElementInfoSeqUntpdMnd(const char* name, const char* elementNamespace, int propertyIndex,
                            const char* namespaceWildcard, const char* targetNamespace);
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char* classNamespace,
                        XmlElementType parentType) override;

private:
    CNamespaceWildcard m_wildcard;
};

class CElementInfoSeqUntpdOpt : public CElementInfoSeq {
public:
    CElementInfoSeqUntpdOpt(const char* name, const char* elementNamespace, int propertyIndex,
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
