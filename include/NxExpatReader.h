// The bridge from the XML text parser to the document tree: one parser for
// one parse, whose callbacks become calls on CXmlDocument. Names and text
// arrive as UTF-8 and enter the tree in the local code page.
#pragma once

#include <exception>
#include <string>

#include "NxFoundation.h"

// The parser's handle type, left incomplete so that no user of this header
// depends on the parser's own headers.
struct XML_ParserStruct;

namespace NxXmlLib9 {

class CXmlDocument;
struct CXmlNodeName;

class CExpatReader : public CInstanceMonitor {
public:
    explicit CExpatReader(CXmlDocument& document);
    // Frees the scratch buffer and a parser that a parse left alive.
    ~CExpatReader() override;
    CExpatReader(const CExpatReader&) = delete;
    CExpatReader& operator=(const CExpatReader&) = delete;

    // Frees the scratch buffer; the parser is left alone.
    void Cleanup();
    // Makes the parser for the document's schema type: with namespace
    // processing, names come as "URI|local", unless the schema type is
    // SchemaTypeNoNamespaces. CDATA delimiters are kept in the text when
    // the context does not strip them.
    void CreateParser();
    // Parses the document's whole input. A final parse frees the parser, so
    // a reader serves one parse. Malformed input throws a CNxException
    // "<parser's error text> at line <n>"; a failure raised while the tree
    // was being fed (by the filter, say) is rethrown as it was. Either way
    // the parser is freed first. Throws CNxInvalidStateException when there
    // is no parser.
    void Parse(bool isFinal);

    // The parser's callbacks; the user data is the reader.
    static void FnStartElement(void* userData, const char* name, const char** attributes);
    static void FnEndElement(void* userData, const char* name);
    static void FnStartNamespace(void* userData, const char* prefix, const char* uri);
    static void FnText(void* userData, const char* text, int length);
    static void FnStartCDATA(void* userData);
    static void FnEndCDATA(void* userData);

private:
    template <class Step>
    static void Guarded(void* userData, Step step);
    std::string ToLocal(const char* text, int length);
    static std::string ToLocal(const char* text);
    // The document's record of a name as the parser reports it.
    const CXmlNodeName& NameOf(const char* name, bool useScratch);
    // Text is gathered here while it arrives in pieces, and goes into the
    // element at its next tag: each text enters the tree at its final size.
    void AddText(const char* text, size_t length);
    void FlushText();
    void FreeParser();

    CXmlDocument& m_document;
    char* m_scratch;
    unsigned long m_scratchSize;
    XML_ParserStruct* m_parser;
    // Character data of the open element not yet in the tree.
    std::string m_pendingText;
    // A failure raised inside a callback, kept until the parser has
    // returned: it must not unwind through the parser's C frames.
    std::exception_ptr m_pendingFailure;
};

} // namespace NxXmlLib9
