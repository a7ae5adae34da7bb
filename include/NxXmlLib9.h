// NxXmlLib9: runtime library of the XML data binder. Include this header
// alone; it brings in every public class of the library.
#pragma once

#include "NxFoundation.h"
#include "NxException.h"
#include "NxSmartPtr.h"

#include "NxTextStream.h"
#include "NxXmlWriter.h"
#include "NxBinaryStream.h"
#include "NxZip.h"
#include "NxOutputOptions.h"

#include "NxFastInfosetContext.h"
#include "NxFastInfosetBinaryData.h"
#include "NxFastInfosetWriter.h"
#include "NxSerializationContext.h"
#include "NxXmlDocument.h"
#include "NxExpatReader.h"
#include "NxFastInfosetReader.h"

#include "NxConversions.h"
#include "NxBigInteger.h"
#include "NxDecimal.h"
#include "NxBinaryData.h"
#include "NxEncoder.h"
#include "NxDateTimeSpan.h"
#include "NxDateTime.h"

#include "NxXmlObjectBase.h"
#include "NxCollectionBase.h"
#include "NxVariant.h"

#include "NxRegEx.h"
#include "NxPrimitiveRestrictions.h"
#include "NxXmlObjectHelper.h"

#include "NxMetadata.h"
#include "NxNamespaceWildcard.h"
#include "NxAttributeInfos.h"
#include "NxElementInfoTypes.h"
#include "NxElementInfoSeq.h"
#include "NxElementInfoAll.h"
#include "NxElementInfoChoice.h"
#include "NxGeneratedClass.h"
#include "NxClassFactory.h"
#include "NxUntyped.h"
#include "NxTypedCollections.h"
