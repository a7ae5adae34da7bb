// Decodes binary XML (Fast Infoset) files to XML text with the reference
// codec's SAX parser: java FIDecode in.fi out.xml [in.fi out.xml ...].
// Exits 0 when every file decoded; otherwise prints the failures and exits 1.
import com.sun.xml.fastinfoset.sax.SAXDocumentParser;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.InputStream;
import java.io.OutputStream;
import javax.xml.transform.TransformerFactory;
import javax.xml.transform.sax.SAXTransformerFactory;
import javax.xml.transform.sax.TransformerHandler;
import javax.xml.transform.stream.StreamResult;

public class FIDecode {
    public static void main(String[] args) throws Exception {
        int failures = 0;
        SAXTransformerFactory factory = (SAXTransformerFactory) TransformerFactory.newInstance();
        for (int i = 0; i + 1 < args.length; i += 2) {
            try (InputStream in = new FileInputStream(args[i]); OutputStream out = new FileOutputStream(args[i + 1])) {
                TransformerHandler handler = factory.newTransformerHandler();
                handler.setResult(new StreamResult(out));
                SAXDocumentParser parser = new SAXDocumentParser();
                parser.setFeature("http://xml.org/sax/features/namespaces", true);
                parser.setFeature("http://xml.org/sax/features/namespace-prefixes", false);
                parser.setContentHandler(handler);
                parser.parse(in);
            } catch (Exception e) {
                ++failures;
                System.out.println("FAILED " + args[i] + ": " + e);
            }
        }
        System.exit(failures == 0 ? 0 : 1);
    }
}
