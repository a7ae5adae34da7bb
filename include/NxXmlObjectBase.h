// The root of every serializable object: generated classes, collections and
// the untyped element and attribute classes. It carries the element name and
// an intrusive reference count, and its public entries hand over to the
// protected walks ToXml_Int and FromXml_Int.
#pragma once

#include <atomic>
#include <string>

#include "NxBinaryData.h"
#include "NxOutputOptions.h"
#include "NxSerializationContext.h"

namespace NxXmlLib9Data {
class CElementInfo;
class CAttributeInfo;
} // namespace NxXmlLib9Data

namespace NxXmlLib9 {

class CXmlObjectBase;
class CXmlCollectionBase;
class CXmlElement;
class CElement;
class CXmlWriter;

// Generated code calls this before its first object is made; every public
// entry refuses to work unless the generator's version is the runtime's.
void RegisterGeneratorVersion(int major, int minor);

// When set, ToXmlFile without compression writes through a file text stream
// as the text is produced instead of building the document in memory first.
void AsyncToXmlFile(bool asyncToXmlFile);

class IEventSink {
public:
    enum MsgType : int {
        MsgType_CollectionChange = 0,
        MsgType_CollectionAdd = 1,
        MsgType_CollectionAddComplete = 2,
        MsgType_CollectionRemove = 3,
        MsgType_CollectionRemoveComplete = 4
    };

    virtual void OnEvent(CXmlObjectBase* source, IEventSink::MsgType type, void* data) = 0;
    virtual CXmlObjectBase* GetBase() = 0;

protected:
    ~IEventSink() = default;
};

class CXmlObjectBase : public IEventSink {
    friend class NxXmlLib9Data::CElementInfo;
    friend class NxXmlLib9Data::CAttributeInfo;
    friend class CXmlCollectionBase;

public:
    CXmlObjectBase();
    // A copy is a new object: it takes the name but starts uncounted.
    CXmlObjectBase(const CXmlObjectBase& other);
    CXmlObjectBase& operator=(const CXmlObjectBase& other);

    void OnEvent(CXmlObjectBase* source, IEventSink::MsgType type, void* data) override;
    CXmlObjectBase* GetBase() override = 0;

    // The virtual entries keep the slot order that generated code was built
    // against: the two file writers come before ToXml.

    // Encoded XML text saved to a file. The document is made in memory and
    // the file touched only once the walk has succeeded. zlib is refused.
    virtual void ToXmlFile(const char* fileName, bool includeDocHeader = true, bool format = true,
                           XmlEncoding encoding = XmlEncodingUTF8, EOLType eol = EOLTypeLF,
                           const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext,
                           CompressionType compression = CompressionTypeNone) const;
    // A binary document saved to a file, always in one piece. zlib is refused.
    virtual void ToFastInfosetFile(const char* fileName, FInfoDecl declaration = FInfoDeclNone,
                                   const CXmlSerializationContext& context =
                                       CXmlSerializationContext::m_defaultContext,
                                   CompressionType compression = CompressionTypeNone) const;

    // XML text of the object, written in memory. The stream has no encoding
    // of its own, so the declaration names none.
    virtual std::string ToXml(bool includeDocHeader = true, bool format = true, EOLType eol = EOLTypeLF,
                              const CXmlSerializationContext& context =
                                  CXmlSerializationContext::m_defaultContext) const;
    // XML text in the given encoding, compressed if asked.
    virtual CBinaryData ToXmlStream(bool includeDocHeader = true, bool format = true,
                                    XmlEncoding encoding = XmlEncodingUTF8, EOLType eol = EOLTypeLF,
                                    const CXmlSerializationContext& context =
                                        CXmlSerializationContext::m_defaultContext,
                                    CompressionType compression = CompressionTypeNone) const;
    // The binary document in memory, compressed if asked.
    virtual CBinaryData ToFastInfosetStream(FInfoDecl declaration = FInfoDeclNone,
                                            const CXmlSerializationContext& context =
                                                CXmlSerializationContext::m_defaultContext,
                                            CompressionType compression = CompressionTypeNone) const;

    // Fill the object from XML: each entry loads a document of its own,
    // which dies with the call, and reads the object from its root element,
    // whatever that is named. Failures of the loading and of the read pass
    // through unchanged; the object keeps what was read up to a failure.
    virtual void FromXmlFile(const char* fileName,
                             const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext);
    virtual void FromXml(const char* xml,
                         const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext);
    virtual void FromXml(const wchar_t* xml,
                         const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext);
    // Bytes may be compressed or binary as well as XML text.
    virtual void FromXmlStream(unsigned char* data, unsigned long length,
                               const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext);
    virtual void FromXmlStream(const CBinaryData& data,
                               const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext);
    // Reads the object from an element of a document the caller holds.
    virtual void FromXmlElement(const CXmlElement* element,
                                const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext);
    // Reads an untyped element: it is written out as text under the default
    // context and that text is read under the given one.
    virtual void FromXmlElement(const CElement* element,
                                const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext);

    virtual ~CXmlObjectBase();

    virtual std::string GetTargetNamespace() const = 0;
    virtual std::string GetNamespace() const = 0;

    // Reference count, an atomic: it is the only state a lock would guard.
    // Release deletes the object when the count reaches zero. Both return
    // the new count.
    long long AddRef();
    long long Release();

    std::string GetElementName() const;
    void SetElementName(const char* name);

    // Non-virtual form for constant access; a class that overrides the
    // virtual GetBase hides this one by name.
    CXmlObjectBase* GetBase() const;

    // Helpers that deliver the collection events to one listener.
    static void FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection);
    static void FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection, void* item);
    static void FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection, void* item);
    static void FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection, int index);
    static void FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection, int index);

    // Argument guards for generated setters.
    static void Throw_IfPropertyIsNull(CXmlObjectBase* value, const char* name);
    static void Throw_IfElementNameDiffers(CXmlObjectBase* value, const char* name);

    // ---- Choice selection --------------------------------------------
    //
    // Generated choice classes hold the name of their selected member in a
    // string, empty when none is; their setters keep it through these.

    // valid false empties the selection; valid true requires the member to
    // be the one selected already and throws CNxInvalidStateException
    // otherwise, also when nothing is selected.
    static void Choice_SetElementValid(bool valid, const char* name, std::string& selected);
    // Selects the member when nothing is selected (even for a null value);
    // a null value for the selected member clears the selection; a value
    // for another member throws CNxInvalidStateException.
    static void Choice_SelectElement(const char* name, CXmlObjectBase* value, std::string& selected);
    // For a collection member whose count changed to count: a positive
    // count selects it when nothing is selected, 0 clears its selection,
    // and a non-zero count while another member is selected throws.
    static void Choice_CollectionChanged(const char* name, long count, std::string& selected);
    // Reads a collection member at cursor unless count says it was read
    // already; when it consumed something, moves cursor on, checks the
    // collection's bounds and raises count.
    static void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* element, CXmlElement*& cursor,
                                       long& count, const CXmlSerializationContext& context);

    // Element name and namespace matching, as CXmlObjectHelper answers it;
    // a null text counts as an empty one.
    bool DoesElementNameMatch(const CXmlSerializationContext& context, const CXmlElement* element,
                              const char* name, const char* elementNamespace) const;
    bool IsNamespaceValid(const char* namespaceUri, const char* wildcard,
                          const char* targetNamespace) const;
    void TestNamespace(const char* namespaceUri, const char* wildcard, const char* targetNamespace) const;

protected:
    // The element name in place, for the walks that only read it.
    const std::string& GetElementNameRef() const { return m_elementName; }

    virtual void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const;
    virtual void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                           const CXmlSerializationContext& context, bool isOptionalChoice) const = 0;
    virtual CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor,
                                     const CXmlSerializationContext& context, bool isOptionalChoice) = 0;

    // Forwarders that let helper classes reach the protected walks of
    // another object.
    static void AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                    const CXmlSerializationContext& context);
    static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                          const char* elementNamespace, const CXmlSerializationContext& context,
                          bool isOptionalChoice);
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* cursor,
                                    const CXmlSerializationContext& context);

private:
    // The text, byte and file entries: after the version check, load fills a
    // document of the entry's own and the object is read from its root.
    template <class Load>
    void FromLoadedDocument(const CXmlSerializationContext& context, Load load);

    std::string m_elementName;
    std::atomic<long long> m_refCount;
};

} // namespace NxXmlLib9
