// Defaults, the two options that exclude each other, and the copy of a
// serialization context.
#include "NxSerializationContext.h"

#include "NxUntyped.h"
#include "NxException.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

namespace {

// Deep enough for any real document, shallow enough that the recursive
// reading walks stay far inside a default thread stack.
const unsigned long DEFAULT_MAXIMUM_DEPTH = 10000;

} // namespace

CXmlSerializationContext CXmlSerializationContext::m_defaultContext;

CXmlSerializationContext::CXmlSerializationContext()
    : m_writeTypeAttribute(true),
      m_additionalRootAttributes(nullptr),
      m_ignoreInvalidCollectionCounts(false),
      m_ignoreMissingChoice(false),
      m_ignoreMissingMandatoryElements(false),
      m_ignoreUnknownElements(false),
      m_ignoreUnknownAttributes(false),
      m_ignoreNamespaces(false),
      m_schemaType(SchemaTypeDefault),
      m_noOptionalAttributeDefaultOutput(false),
      m_stripCDATA(true),
      m_maximumDepth(DEFAULT_MAXIMUM_DEPTH)
{
}

CXmlSerializationContext::CXmlSerializationContext(const CXmlSerializationContext& other)
    : m_defaultNamespaceURI(other.m_defaultNamespaceURI),
      m_writeTypeAttribute(other.m_writeTypeAttribute),
      m_namespaceAliases(other.m_namespaceAliases),
      m_additionalRootAttributes(Share(other.m_additionalRootAttributes)),
      m_processingInstructions(other.m_processingInstructions),
      m_inLineSchema(other.m_inLineSchema),
      m_ignoreInvalidCollectionCounts(other.m_ignoreInvalidCollectionCounts),
      m_ignoreMissingChoice(other.m_ignoreMissingChoice),
      m_ignoreMissingMandatoryElements(other.m_ignoreMissingMandatoryElements),
      m_ignoreUnknownElements(other.m_ignoreUnknownElements),
      m_ignoreUnknownAttributes(other.m_ignoreUnknownAttributes),
      m_ignoreNamespaces(other.m_ignoreNamespaces),
      m_schemaType(other.m_schemaType),
      m_noOptionalAttributeDefaultOutput(other.m_noOptionalAttributeDefaultOutput),
      m_fiContext(other.m_fiContext),
      m_stripCDATA(other.m_stripCDATA),
      m_maximumDepth(other.m_maximumDepth)
{
}

CXmlSerializationContext& CXmlSerializationContext::operator=(const CXmlSerializationContext& other)
{
    if (this == &other)
        return *this;
    CXmlSerializationContext copy(other);
    m_defaultNamespaceURI = std::move(copy.m_defaultNamespaceURI);
    m_writeTypeAttribute = copy.m_writeTypeAttribute;
    m_namespaceAliases = std::move(copy.m_namespaceAliases);
    // The copy's reference moves over; ours goes with the copy.
    m_additionalRootAttributes = copy.m_additionalRootAttributes.exchange(m_additionalRootAttributes.load());
    m_processingInstructions = std::move(copy.m_processingInstructions);
    m_inLineSchema = std::move(copy.m_inLineSchema);
    m_ignoreInvalidCollectionCounts = copy.m_ignoreInvalidCollectionCounts;
    m_ignoreMissingChoice = copy.m_ignoreMissingChoice;
    m_ignoreMissingMandatoryElements = copy.m_ignoreMissingMandatoryElements;
    m_ignoreUnknownElements = copy.m_ignoreUnknownElements;
    m_ignoreUnknownAttributes = copy.m_ignoreUnknownAttributes;
    m_ignoreNamespaces = copy.m_ignoreNamespaces;
    m_schemaType = copy.m_schemaType;
    m_noOptionalAttributeDefaultOutput = copy.m_noOptionalAttributeDefaultOutput;
    m_fiContext = copy.m_fiContext;
    m_stripCDATA = copy.m_stripCDATA;
    m_maximumDepth = copy.m_maximumDepth;
    return *this;
}

CXmlSerializationContext::~CXmlSerializationContext()
{
    if (CAttributeCol* attributes = m_additionalRootAttributes.load())
        attributes->Release();
}

CAttributeCol* CXmlSerializationContext::Share(const std::atomic<CAttributeCol*>& attributes)
{
    CAttributeCol* shared = attributes.load(std::memory_order_acquire);
    if (shared)
        shared->AddRef();
    return shared;
}

void CXmlSerializationContext::SetIgnoreUnknownElements(bool value)
{
    if (value && m_ignoreMissingMandatoryElements)
        throw CNxInvalidStateException(
            "The parser can only ignore additional elements, or ignore the fact that some required ones are "
            "missing, you can not ignore both\n"
            "Set IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
    m_ignoreUnknownElements = value;
}

void CXmlSerializationContext::SetIgnoreMissingMandatoryElements(bool value)
{
    if (value && m_ignoreUnknownElements)
        throw CNxInvalidStateException(
            "The parser can only ignore additional elements, or ignore the fact that some required ones are "
            "missing, you can not ignore both\n"
            "Set IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
    m_ignoreMissingMandatoryElements = value;
}

// Threads that ask first at the same time each make a collection; one
// publishes its own and the others drop theirs and take the published one.
// Later requests only load the pointer.
CSmartPtr<CAttributeCol> CXmlSerializationContext::GetAdditionalRootAttributes() const
{
    CAttributeCol* attributes = m_additionalRootAttributes.load(std::memory_order_acquire);
    if (!attributes) {
        CSmartPtr<CAttributeCol> made(new CAttributeCol("", "##any", ""));
        made->AddRef();
        if (m_additionalRootAttributes.compare_exchange_strong(attributes, made, std::memory_order_acq_rel))
            attributes = made;
        else
            made->Release();
    }
    return attributes;
}

void CXmlSerializationContext::SetDefaultNamespaceURI(const char* uri)
{
    m_defaultNamespaceURI = OrEmpty(uri);
}

void CXmlSerializationContext::SetInLineSchema(const char* schema)
{
    m_inLineSchema = OrEmpty(schema);
}

} // namespace NxXmlLib9
