// The base of every generated class. A generated class holds typed fields
// and answers a few questions: what its element, attribute and class records
// are, and how property number N is read or written. The library walks those
// records to write and read the object.
#pragma once

#include <string>

#include "NxFoundation.h"
#include "NxMetadata.h"
#include "NxSerializationContext.h"
#include "NxVariant.h"
#include "NxXmlObjectBase.h"

namespace NxXmlLib9 {

class CXmlElement;
class CXmlWriter;

// Optional second base of a generated class whose element the schema marks
// as nillable. The library finds it by a cross-cast; a class without it can
// never be nil.
class INillable {
public:
    virtual bool IsNil() const = 0;
    virtual void SetNil(bool nil) = 0;
    virtual ~INillable() = default;
};

class CXmlGeneratedClass : public CXmlObjectBase {
public:
    CXmlGeneratedClass();
    ~CXmlGeneratedClass() override;

    // Reads (read true) or writes property number index. index is the
    // property index of a table entry or the class's text property index. A
    // read must leave the object unchanged.
    virtual void AccessProperty(int index, bool read, NxVariant& value) = 0;
    // The class's records. They are built once per class, on first use and
    // under m_csInit, and the pointers stay the same until CleanMetaData.
    // The arrays end in a null entry; neither they nor the record is null.
    virtual NxXmlLib9Data::CParentElementInfo* GetClassInfo() const = 0;
    virtual NxXmlLib9Data::CElementInfo** GetClassElementInfo() const = 0;
    virtual NxXmlLib9Data::CAttributeInfo** GetClassAttributeInfo() const = 0;
    // Returns the object to its just-constructed state; every read starts
    // with it.
    virtual void Init() = 0;

    // AccessProperty with read true, on a constant object.
    void ReadProperty(int index, NxVariant& value) const;
    // The number of element entries ahead of the null.
    int GetClassElementInfoCount() const;
    // True when some element entry of the class takes the element.
    bool IsElementInList(const CXmlSerializationContext& context, CXmlElement* element) const;

    // Deletes a class's records and nulls the three references: the parent
    // record first, then each element record, then each attribute record,
    // each array after its records. A null reference is skipped, so a second
    // call does nothing. Generated code calls it at shutdown.
    static void CleanMetaData(NxXmlLib9Data::CParentElementInfo*& parent, NxXmlLib9Data::CElementInfo**& elements,
                              NxXmlLib9Data::CAttributeInfo**& attributes);

    // Guards the building of the records of every generated class. The
    // library itself never takes it. It is not recursive: a class must not
    // reach another class's records while it holds it.
    static CNXCriticalSection m_csInit;

    // ---- The group walks ----------------------------------------------
    //
    // The steps of ToXml_Int and FromXml_Int, one per kind of group. Each
    // walks the records it is given in table order; a record decides for
    // itself what its property holds.

    // Every attribute record, then the attributes of pseudo children.
    void ProcessAttributesToXml(const CXmlSerializationContext& context, NxXmlLib9Data::CElementInfo** elements,
                                NxXmlLib9Data::CAttributeInfo** attributes, CXmlWriter* writer) const;
    // Every element record in table order; an all group keeps table order
    // on output.
    void ProcessElementSeqToXml(const CXmlSerializationContext& context, NxXmlLib9Data::CElementInfo** elements,
                                CXmlWriter* writer) const;
    void ProcessElementAllToXml(const CXmlSerializationContext& context, NxXmlLib9Data::CElementInfo** elements,
                                CXmlWriter* writer) const;
    // Writes the first member that has something to write. True when one
    // did, or when an empty choice is legal here.
    bool ProcessElementChoiceToXml(const CXmlSerializationContext& context, NxXmlLib9Data::CElementInfo** elements,
                                   CXmlWriter* writer, bool isOptionalChoice) const;

    // Offers each attribute of element to the records, handles xsi:nil and
    // checks the required ones.
    void ProcessAttributesFromXml(const CXmlSerializationContext& context, CXmlElement* element,
                                  bool rejectUnknown);
    // Each reads the children of element from cursor on and returns where
    // it stopped; a level without an element of its own (type 1) hands the
    // rest back to the level above.
    CXmlElement* ProcessElementSeqFromXml(const CXmlSerializationContext& context, CXmlElement* element,
                                          CXmlElement* cursor, NxXmlLib9Data::XmlElementType type);
    CXmlElement* ProcessElementAllFromXml(const CXmlSerializationContext& context, CXmlElement* element,
                                          CXmlElement* cursor, NxXmlLib9Data::XmlElementType type);
    CXmlElement* ProcessElementChoiceFromXml(const CXmlSerializationContext& context, CXmlElement* element,
                                             CXmlElement* cursor, NxXmlLib9Data::XmlElementType type,
                                             bool isOptionalChoice);

    // Whether the class, as a choice, may hold no member at all: true when
    // some member is optional, or is a collection that may be empty.
    bool DoesElementContainOptionalElements() const;

protected:
    // Writes root material (when isRoot), the start tag, the attributes,
    // the children, the text and the end tag. Every failure comes out
    // wrapped once for this level.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    // The type attribute, the attribute records and the attributes of
    // pseudo children.
    void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const override;
    // Starts from Init, takes the element's name and attributes, reads the
    // group from cursor and the text; returns where the group stopped.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;
};

} // namespace NxXmlLib9
