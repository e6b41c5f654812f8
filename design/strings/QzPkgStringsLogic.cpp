#include "design/strings/QzPkgStringsLogic.h"

#include "runtime/model/QzPkgCollectionUpdate.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/util/QzFields.h"
#include "runtime/util/QzPaths.h"

#include <algorithm>

namespace {

constexpr char FieldSeparator = ',';

std::vector<TQzPkgIdItem*> ItemsById(const TQzPkgIdCollection& collection)
{
    std::vector<TQzPkgIdItem*> items(static_cast<size_t>(collection.Count()));
    for (int i = 0; i < collection.Count(); ++i)
        items[static_cast<size_t>(i)] = static_cast<TQzPkgIdItem*>(collection.Item(i));
    std::sort(items.begin(), items.end(), [](const TQzPkgIdItem* a, const TQzPkgIdItem* b) { return a->Id() < b->Id(); });
    return items;
}

const char* ItemWord(TQzMemoryFamily family)
{
    return QzMemoryFamilyInfo(family).ItemWord;
}

// The editor reads the package through the memory editors' helpers, which
// take it as changeable.
TQzPkgIdCollection& ItemsOf(const TQzPkgStrings& pkg, TQzMemoryFamily family)
{
    return *QzMemoryItems(const_cast<TQzPkgStrings&>(pkg), family);
}

void AddItem(TQzPkgStrings& pkg, TQzMemoryFamily family, TStringList& fields)
{
    const int wanted = family == TQzMemoryFamily::Labels ? 3 : 2;
    while (fields.Count() < wanted)
        fields.Add("");
    const Integer id = StrToInt(fields[0]);
    switch (family) {
    case TQzMemoryFamily::Labels: pkg.Labels()->Add(id, fields[1], fields[2]); break;
    case TQzMemoryFamily::Messages: pkg.Messages()->Add(id, fields[1]); break;
    case TQzMemoryFamily::Texts: pkg.Texts()->Add(id, fields[1]); break;
    }
}

}  // namespace

// ------------------------------------------------------------ status, report

AnsiString QzStringsCountText(int count, TQzMemoryFamily family)
{
    return IntToStr(count) + " " + ItemWord(family) + (count == 1 ? "" : "s");
}

AnsiString QzStringsStatusText(const TQzPkgStrings& pkg, TQzMemoryFamily family)
{
    AnsiString text = QzStringsCountText(ItemsOf(pkg, family).Count(), family) + " ";
    const auto* language = dynamic_cast<const TQzPkgLanguage*>(pkg.Owner());
    if (pkg.IsSystem() && language)
        text += "(LastUpdateFile:" + language->LastUpdateFile() + ") " +
                "(UpdateDateTime:" + DateTimeToStr(language->UpdateDateTime()) + ")";
    return text;
}

AnsiString QzStringsReportTitle(TQzMemoryFamily family)
{
    return AnsiString("**** ") + ItemWord(family) + "s Report ****";
}

std::vector<AnsiString> QzStringsReportLines(const TQzPkgIdItem* item)
{
    AnsiString row = IntToStr(item->Id()) + " - " + QzMemoryItemText(*item);
    const AnsiString hint = QzMemoryItemHint(*item);
    if (!Trim(hint).empty())
        row += " *Hint = " + hint;
    // The report is printed as a text file: each line break of the row
    // starts a new printed line.
    TStringList lines;
    lines.SetText(row);
    std::vector<AnsiString> printed;
    for (int i = 0; i < lines.Count(); ++i)
        printed.push_back(lines[i]);
    return printed;
}

// --------------------------------------------------------------- text files

void QzStringsExportText(const TQzPkgStrings& pkg, TQzMemoryFamily family, TStrings& lines)
{
    lines.Clear();
    TStringList fields;
    for (const TQzPkgIdItem* item : ItemsById(ItemsOf(pkg, family))) {
        fields.Clear();
        fields.Add(IntToStr(item->Id()));
        // An empty field is left out, so a label without text but with a
        // hint writes the hint second (and reads back as its text).
        for (const AnsiString& field : {QzMemoryItemText(*item), QzMemoryItemHint(*item)})
            if (!field.empty())
                fields.Add(field);
        lines.Add(QzTextFromStrings(&fields, FieldSeparator));
    }
}

void QzStringsExportFile(const TQzPkgStrings& pkg, TQzMemoryFamily family, const AnsiString& fileName)
{
    TStringList lines;
    QzStringsExportText(pkg, family, lines);
    lines.SaveToFile(fileName);
}

void QzStringsImportText(TQzPkgStrings& pkg, TQzMemoryFamily family, const TStrings& lines, const AnsiString& fileName)
{
    TQzPkgIdCollection& collection = ItemsOf(pkg, family);
    TQzPkgCollectionUpdate update(collection);
    collection.Clear();
    TStringList fields;
    for (int i = 0; i < lines.Count(); ++i) {
        const AnsiString line = lines[i];
        if (Trim(line).empty())
            continue;
        try {
            QzTextToStrings(line, &fields, FieldSeparator);
            AddItem(pkg, family, fields);
        } catch (const Exception& e) {
            throw EConvertError("The file: " + fileName + " can contain an error in the line: " + IntToStr(i + 1) +
                                " (" + e.Message() + ")");
        }
    }
}

void QzStringsImportFile(TQzPkgStrings& pkg, TQzMemoryFamily family, const AnsiString& fileName)
{
    TStringList lines;
    lines.LoadFromFile(fileName);
    QzStringsImportText(pkg, family, lines, fileName);
}

// ----------------------------------------------------------- system strings

AnsiString QzSystemStringsFile(const AnsiString& entry, const AnsiString& installPath)
{
    const AnsiString name = Trim(entry);
    const AnsiString file = !name.empty() && ExtractFilePath(name).empty() ? QzAddPathBar(installPath) + name : name;
    if (file.empty() || !FileExists(file))
        throw Exception("Invalidate FileName");
    return file;
}
