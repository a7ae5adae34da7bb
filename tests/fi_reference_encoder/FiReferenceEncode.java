// Encodes XML documents to Fast Infoset with the reference codec, through
// its SAX serializer and through its StAX serializer, for the reader's
// cross-check. Usage: FiReferenceEncode OUTDIR DOCUMENT.xml...
// Writes, for each document NAME.xml, NAME.xml (a copy), NAME.sax.fi and
// NAME.stax.fi; then generated documents and the documents that show where
// our reader differs from the standard; and manifest.txt listing the names
// of the pairs to compare.
import com.sun.xml.fastinfoset.sax.SAXDocumentSerializer;
import com.sun.xml.fastinfoset.stax.StAXDocumentSerializer;

import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.FileOutputStream;
import java.io.OutputStream;
import java.io.StringReader;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.List;
import javax.xml.parsers.SAXParserFactory;
import javax.xml.stream.XMLInputFactory;
import javax.xml.stream.XMLStreamConstants;
import javax.xml.stream.XMLStreamReader;
import javax.xml.stream.XMLStreamWriter;
import org.xml.sax.InputSource;
import org.xml.sax.XMLReader;
import org.xml.sax.helpers.AttributesImpl;

public class FiReferenceEncode {
    public static void main(String[] args) throws Exception {
        File out = new File(args[0]);
        out.mkdirs();
        List<String> names = new ArrayList<>();
        for (int i = 1; i < args.length; ++i) {
            File source = new File(args[i]);
            String name = source.getName().replaceFirst("\\.xml$", "");
            encodeBoth(out, name, new String(Files.readAllBytes(source.toPath()), StandardCharsets.UTF_8));
            names.add(name);
        }
        encodeBoth(out, "generated_tables", tablesDocument());
        names.add("generated_tables");
        encodeBoth(out, "generated_deep", deepDocument(3000));
        names.add("generated_deep");
        writeLimits(out);
        Files.write(new File(out, "manifest.txt").toPath(), names, StandardCharsets.UTF_8);
    }

    // Enough distinct names, values and texts for every index form up to
    // three octets, each repeated so that the repeats go out as indexes.
    static String tablesDocument() {
        StringBuilder xml = new StringBuilder("<root xmlns:p=\"urn:p\">");
        for (int round = 0; round < 2; ++round)
            for (int i = 0; i < 2500; ++i)
                xml.append("<e").append(i).append(" a").append(i % 100).append("=\"v").append(i)
                   .append("\" p:b=\"w").append(i % 70).append("\">t").append(i).append("</e").append(i).append('>');
        return xml.append("</root>").toString();
    }

    static String deepDocument(int depth) {
        StringBuilder xml = new StringBuilder();
        for (int i = 0; i < depth; ++i)
            xml.append("<d l=\"").append(i % 7).append("\">");
        xml.append("bottom");
        for (int i = 0; i < depth; ++i)
            xml.append("</d>");
        return xml.toString();
    }

    static void encodeBoth(File out, String name, String xml) throws Exception {
        Files.write(new File(out, name + ".xml").toPath(), xml.getBytes(StandardCharsets.UTF_8));
        write(new File(out, name + ".sax.fi"), bySax(xml, null));
        write(new File(out, name + ".stax.fi"), byStax(xml));
    }

    static void write(File file, byte[] bytes) throws Exception {
        try (OutputStream stream = new FileOutputStream(file)) {
            stream.write(bytes);
        }
    }

    static byte[] bySax(String xml, String characterEncodingScheme) throws Exception {
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        SAXDocumentSerializer serializer = new SAXDocumentSerializer();
        serializer.setOutputStream(bytes);
        if (characterEncodingScheme != null)
            serializer.setCharacterEncodingScheme(characterEncodingScheme);
        SAXParserFactory factory = SAXParserFactory.newInstance();
        factory.setNamespaceAware(true);
        XMLReader reader = factory.newSAXParser().getXMLReader();
        reader.setContentHandler(serializer);
        reader.setProperty("http://xml.org/sax/properties/lexical-handler", serializer);
        reader.parse(new InputSource(new StringReader(xml)));
        return bytes.toByteArray();
    }

    // Replays the events of a StAX reader into the StAX serializer.
    static byte[] byStax(String xml) throws Exception {
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        XMLStreamWriter writer = new StAXDocumentSerializer(bytes);
        XMLInputFactory factory = XMLInputFactory.newInstance();
        factory.setProperty(XMLInputFactory.IS_NAMESPACE_AWARE, true);
        XMLStreamReader reader = factory.createXMLStreamReader(new StringReader(xml));
        writer.writeStartDocument();
        while (reader.hasNext()) {
            switch (reader.next()) {
            case XMLStreamConstants.START_ELEMENT: {
                String prefix = reader.getPrefix() == null ? "" : reader.getPrefix();
                String uri = reader.getNamespaceURI() == null ? "" : reader.getNamespaceURI();
                writer.writeStartElement(prefix, reader.getLocalName(), uri);
                for (int i = 0; i < reader.getNamespaceCount(); ++i) {
                    String p = reader.getNamespacePrefix(i);
                    String u = reader.getNamespaceURI(i) == null ? "" : reader.getNamespaceURI(i);
                    if (p == null || p.isEmpty())
                        writer.writeDefaultNamespace(u);
                    else
                        writer.writeNamespace(p, u);
                }
                for (int i = 0; i < reader.getAttributeCount(); ++i) {
                    String p = reader.getAttributePrefix(i) == null ? "" : reader.getAttributePrefix(i);
                    String u = reader.getAttributeNamespace(i) == null ? "" : reader.getAttributeNamespace(i);
                    writer.writeAttribute(p, u, reader.getAttributeLocalName(i), reader.getAttributeValue(i));
                }
                break;
            }
            case XMLStreamConstants.END_ELEMENT:
                writer.writeEndElement();
                break;
            case XMLStreamConstants.CHARACTERS:
            case XMLStreamConstants.SPACE:
                writer.writeCharacters(reader.getText());
                break;
            case XMLStreamConstants.CDATA:
                writer.writeCData(reader.getText());
                break;
            case XMLStreamConstants.COMMENT:
                writer.writeComment(reader.getText());
                break;
            case XMLStreamConstants.PROCESSING_INSTRUCTION:
                writer.writeProcessingInstruction(reader.getPITarget(), reader.getPIData());
                break;
            // The StAX serializer implements no writeDTD: the declaration
            // goes through the SAX path only.
            default:
                break;
            }
        }
        writer.writeEndDocument();
        writer.close();
        return bytes.toByteArray();
    }

    // Where our reader differs from the standard, by design.
    static void writeLimits(File out) throws Exception {
        // Strings in UTF-16 are recognised and refused.
        write(new File(out, "limit_utf16.fi"), bySax("<a>text</a>", "UTF-16BE"));

        // Typed content through the encoding algorithms and the numeric
        // alphabet: ints, doubles and numbers read back, floats do not.
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        SAXDocumentSerializer serializer = new SAXDocumentSerializer();
        serializer.setOutputStream(bytes);
        serializer.startDocument();
        serializer.startElement("", "v", "v", new AttributesImpl());
        element(serializer, "i");
        serializer.ints(new int[] {42, -1}, 0, 2);
        serializer.endElement("", "i", "i");
        element(serializer, "d");
        serializer.doubles(new double[] {1.5}, 0, 1);
        serializer.endElement("", "d", "d");
        element(serializer, "n");
        char[] number = "-12.5 7".toCharArray();
        serializer.numericCharacters(number, 0, number.length);
        serializer.endElement("", "n", "n");
        element(serializer, "f");
        serializer.floats(new float[] {1.5f}, 0, 1);
        serializer.endElement("", "f", "f");
        serializer.endElement("", "v", "v");
        serializer.endDocument();
        write(new File(out, "limit_typed.fi"), bytes.toByteArray());
    }

    static void element(SAXDocumentSerializer serializer, String name) throws Exception {
        serializer.startElement("", name, name, new AttributesImpl());
    }
}
