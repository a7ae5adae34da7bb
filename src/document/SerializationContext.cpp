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
      m_additionalRootAttributes(other.m_additionalRootAttributes),
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

CXmlSerializationContext& CXmlSerializationContext::operator=(const CXmlSerializationContext& other) = default;

CXmlSerializationContext::~CXmlSerializationContext() = default;

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

CSmartPtr<CAttributeCol> CXmlSerializationContext::GetAdditionalRootAttributes() const
{
    if (!m_additionalRootAttributes)
        m_additionalRootAttributes = new CAttributeCol("", "##any", "");
    return m_additionalRootAttributes;
}

void CXmlSerializationContext::SetDefaultNamespaceURI(const char* uri)
{
    m_defaultNamespaceURI = TextArgument(uri);
}

void CXmlSerializationContext::SetInLineSchema(const char* schema)
{
    m_inLineSchema = TextArgument(schema);
}

} // namespace NxXmlLib9
