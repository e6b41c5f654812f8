// XLIFF 1.2: one trans-unit per item, its id and resname the context, the
// source and target texts, the hint as its note and protection as
// extradata="protected". Every unit preserves its blanks; a carriage
// return is written as a character reference, which XML keeps.

#include "design/strings/QzStringsExchange.h"

#include <QByteArray>
#include <QXmlStreamReader>

namespace {

AnsiString Xml(const AnsiString& text, const AnsiString& context, bool attribute)
{
    AnsiString out;
    out.reserve(text.size());
    for (char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += attribute ? "&quot;" : "\""; break;
        case '\r': out += "&#13;"; break;
        case '\n': out += attribute ? "&#10;" : "\n"; break;
        case '\t': out += attribute ? "&#9;" : "\t"; break;
        default:
            if (static_cast<unsigned char>(c) < 0x20)
                throw EQzExchangeError("\"" + context + "\" holds a control character (" +
                                       IntToStr(static_cast<unsigned char>(c)) + ") that XLIFF cannot carry");
            out += c;
        }
    }
    return out;
}

AnsiString Ansi(const QString& s)
{
    return s.toStdString();
}

} // namespace

std::string QzWriteXliff(const std::vector<TQzStringsEntry>& entries, const AnsiString& name)
{
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<xliff version=\"1.2\" xmlns=\"urn:oasis:names:tc:xliff:document:1.2\">\n";
    out += " <file original=\"" + Xml(name, name, true) +
           "\" source-language=\"und\" datatype=\"plaintext\" tool-id=\"qzpkg\">\n";
    out += "  <header>\n   <tool tool-id=\"qzpkg\" tool-name=\"qzpkg\"/>\n  </header>\n  <body>\n";
    for (const TQzStringsEntry& e : entries) {
        const AnsiString context = QzStringsContext(e.Kind, e.Id);
        out += "   <trans-unit id=\"" + context + "\" resname=\"" + context + "\" xml:space=\"preserve\"";
        if (e.Protected)
            out += " extradata=\"protected\"";
        out += ">\n";
        out += "    <source>" + Xml(e.Source, context, false) + "</source>\n";
        out += "    <target>" + Xml(e.Text, context, false) + "</target>\n";
        if (!e.Hint.empty())
            out += "    <note>" + Xml(e.Hint, context, false) + "</note>\n";
        out += "   </trans-unit>\n";
    }
    out += "  </body>\n </file>\n</xliff>\n";
    return out;
}

std::vector<TQzStringsEntry> QzReadXliff(const std::string& bytes, const AnsiString& fileName)
{
    QXmlStreamReader xml(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())));
    const auto line = [&] { return static_cast<int>(xml.lineNumber()); };
    std::vector<TQzStringsEntry> entries;
    bool root = false;
    TQzStringsEntry* unit = nullptr;
    bool hasNote = false;
    // Only a unit's own children count: the source and target of an
    // alt-trans inside it are a tool's suggestions, not the translation.
    int depth = 0;
    int unitDepth = -1;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement()) {
            if (depth == unitDepth) {
                unit = nullptr;
                unitDepth = -1;
            }
            --depth;
            continue;
        }
        if (!xml.isStartElement())
            continue;
        ++depth;
        if (!root) {
            if (xml.name() != u"xliff")
                QzExchangeFail(fileName, line(), "not an XLIFF file (its root is <" + Ansi(xml.name().toString()) + ">)");
            root = true;
            continue;
        }
        if (xml.name() == u"trans-unit" && !unit) {
            const QXmlStreamAttributes attributes = xml.attributes();
            const AnsiString context =
                Ansi(attributes.hasAttribute("resname") ? attributes.value("resname").toString()
                                                        : attributes.value("id").toString());
            TQzStringsEntry entry;
            entry.Line = line();
            if (!QzParseStringsContext(context, entry.Kind, entry.Id))
                QzExchangeFail(fileName, line(), "\"" + context + "\" names no label, message or text (\"label:12\")");
            entry.Protected = attributes.value("extradata").toString().split(' ').contains("protected");
            entries.push_back(std::move(entry));
            unit = &entries.back();
            unitDepth = depth;
            hasNote = false;
            continue;
        }
        const QStringView element = xml.name();
        if (!unit || depth != unitDepth + 1 ||
            (element != u"source" && element != u"target" && element != u"note"))
            continue;
        const AnsiString text = Ansi(xml.readElementText(QXmlStreamReader::IncludeChildElements));
        --depth;   // the element's end was read with its text
        if (xml.hasError())
            break;
        if (element == u"source")
            unit->Source = text;
        else if (element == u"target")
            unit->Text = text;
        else if (!hasNote && unit->Kind == TQzStringsKind::Label) {
            // The first note is the hint; later ones are the translators' own.
            unit->Hint = text;
            hasNote = true;
        }
    }
    if (xml.hasError())
        QzExchangeFail(fileName, line(), Ansi(xml.errorString()));
    if (!root)
        QzExchangeFail(fileName, 1, "not an XLIFF file (it holds no element)");
    return entries;
}
