// The steps that the primitive and the enumeration attribute records share;
// each record supplies only its text conversion, its facet check and the
// item type it writes.
#pragma once

#include <string>

#include "NxMetadata.h"
#include "NxSerializationContext.h"
#include "NxVariant.h"
#include "NxXmlWriter.h"

namespace NxXmlLib9Data {

// Writes the attribute of entry from its property. toText(value, buffer)
// gives the attribute's text: a text the value holds, or one made in the
// buffer; check runs the facet checks (on a value that
// is written); itemType gives the item type to write under.
//
// An unset optional attribute is left out. An optional attribute whose text
// equals its default is left out too when the context asks for it; the
// comparison is of the text forms, byte for byte, and an empty default means
// there is none. A required attribute is written even when unset: its
// value's own text decides what appears.
template <class ToText, class Check, class TypeOf>
void WriteValueAttribute(const CAttributeInfo& entry, const NxXmlLib9::CXmlSerializationContext& context,
                         const NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlWriter* writer,
                         ToText toText, Check check, TypeOf typeOf)
{
    NxXmlLib9::NxVariant value;
    entry.ReadProperty(object, value);
    if (entry.IsOptional() && !value.IsValid())
        return;
    std::string buffer;
    const std::string& text = toText(value, buffer);
    if (entry.IsOptional() && !entry.GetDefaultValue().empty() && context.GetNoOptionalAttributeDefaultOutput() &&
        text == entry.GetDefaultValue())
        return;
    check(value);
    writer->WriteAttributeString(entry.GetName(), entry.GetNamespace(), text, typeOf(value));
}

// The check after a read of the value records: a required attribute must
// have been there, whatever the context's options.
void ValidateRequiredAttribute(const CAttributeInfo& entry, bool found);

} // namespace NxXmlLib9Data
