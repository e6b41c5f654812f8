#include "runtime/model/QzPkgPrivileges.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgStream.h"

#include "rtl/StringList.h"

namespace {

constexpr const char* TemplateSignature = "QzPrivilegesTemplate 1";

// Fields are separated by tabs; a tab, a line break or a backslash inside a
// field is written as \t, \n, \r or \\.
AnsiString EscapeField(const AnsiString& s)
{
    AnsiString out;
    for (char c : s) {
        switch (c) {
        case '\t':
            out += "\\t";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\\':
            out += "\\\\";
            break;
        default:
            out += c;
        }
    }
    return out;
}

bool UnescapeField(const AnsiString& s, AnsiString& out)
{
    out.clear();
    for (size_t i = 0; i < s.size(); ++i) {
        if (s[i] != '\\') {
            out += s[i];
            continue;
        }
        if (++i == s.size())
            return false;
        switch (s[i]) {
        case 't':
            out += '\t';
            break;
        case 'n':
            out += '\n';
            break;
        case 'r':
            out += '\r';
            break;
        case '\\':
            out += '\\';
            break;
        default:
            return false;
        }
    }
    return true;
}

std::vector<AnsiString> SplitTabs(const AnsiString& line)
{
    std::vector<AnsiString> fields;
    size_t start = 0;
    for (;;) {
        const size_t tab = line.find('\t', start);
        fields.push_back(line.substr(start, tab == std::string::npos ? std::string::npos : tab - start));
        if (tab == std::string::npos)
            return fields;
        start = tab + 1;
    }
}

bool ParseAccess(const AnsiString& text, TQzAccess& access)
{
    for (TQzAccess a : {qaN, qaR, qaRW}) {
        if (SameText(text, QzAccessText(a))) {
            access = a;
            return true;
        }
    }
    return false;
}

}  // namespace

// ---------------------------------------------------------------------------
// TQzPkgPrivilegesItem

void TQzPkgPrivilegesItem::DeclareProperties(TClassBuilder<TQzPkgPrivilegesItem>& b)
{
    b.Property("Id", &TQzPkgPrivilegesItem::Id, &TQzPkgPrivilegesItem::SetId).NoDefault();
    b.Property("Description", &TQzPkgPrivilegesItem::Description, &TQzPkgPrivilegesItem::SetDescription);
    b.Property("DescriptionId", [](TQzPkgPrivilegesItem& i) { return i.DescriptionId(); });
    b.Enum("Access", TypeInfo_TQzAccess(), &TQzPkgPrivilegesItem::Access, &TQzPkgPrivilegesItem::SetAccess, qaRW);
    b.Property("Visible", &TQzPkgPrivilegesItem::Visible, &TQzPkgPrivilegesItem::SetVisible).Default(true);
}

TQzPkgPrivilegesItem::TQzPkgPrivilegesItem(TQzPkgIdCollection* collection, Integer id)
    : TQzPkgIdItem(collection, id)
{
    FDescriptionId.SetOwner(this);
    FDescriptionId.OnChange = [this] { Changed(); };
}

void TQzPkgPrivilegesItem::SetDescription(const AnsiString& value)
{
    ChangeField(FDescription, value);
}

void TQzPkgPrivilegesItem::SetDescriptionId(TQzMemoryLabel* value)
{
    if (value)
        FDescriptionId.Assign(value);
}

void TQzPkgPrivilegesItem::SetAccess(TQzAccess value)
{
    if (value == FAccess)
        return;
    if (value < qaN || value > qaRW)
        throw EQzPkgError("Invalid access " + IntToStr(value));
    CheckChange();
    FAccess = value;
    Changed();
}

void TQzPkgPrivilegesItem::SetVisible(bool value)
{
    ChangeField(FVisible, value);
}

AnsiString TQzPkgPrivilegesItem::DisplayText() const
{
    return FDescription.empty() ? FDescriptionId.Text() : FDescription;
}

void TQzPkgPrivilegesItem::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzPkgPrivilegesItem*>(source);
    if (!other) {
        TQzPkgIdItem::Assign(source);
        return;
    }
    SetDescription(other->FDescription);
    FDescriptionId.Assign(&other->FDescriptionId);
    SetAccess(other->FAccess);
    SetVisible(other->FVisible);
}

TQzPkgPrivilegesItem* TQzPkgPrivilegesItems::Add(Integer id)
{
    CheckChange();
    CheckNewId(id);
    return new TQzPkgPrivilegesItem(this, id);
}

// ---------------------------------------------------------------------------
// TQzPkgPrivileges

TQzPkgPrivileges::TQzPkgPrivileges(TComponent* owner) : TQzPkgInfo(owner) {}

void TQzPkgPrivileges::SetKey(const AnsiString& value)
{
    ChangeField(FKey, value);
}

void TQzPkgPrivileges::SetReadStateDisableControl(bool value)
{
    ChangeField(FReadStateDisableControl, value);
}

void TQzPkgPrivileges::Clear()
{
    FItems.Clear();
}

bool TQzPkgPrivileges::IsEmpty() const
{
    return FItems.Count() == 0 && FKey.empty() && !FReadStateDisableControl;
}

AnsiString TQzPkgPrivileges::BasePath() const
{
    if (TQzCApplication* app = QzCApp(); app && !app->PathPrivileges().empty())
        return app->PathPrivileges();
    return TQzPkgInfo::BasePath();
}

namespace {

// A privilege as it travels.
struct TPrivilegeValues {
    Integer Id = 0;
    AnsiString Description;
    AnsiString LabelPkgName;
    Integer LabelId = 0;
    TQzAccess Access = qaRW;
    bool Visible = true;
};

}  // namespace

// Layout (version 1), after the common header:
//   Key ReadStateDisableControl
//   ( Id Description LabelPkgName LabelId Access Visible )*
void TQzPkgPrivileges::Transfer(TQzPkgTransfer& t)
{
    const TQzWindowPlacement placement = TransferContentHeader(t, DataVersion);
    AnsiString key = FKey;
    bool readStateDisable = FReadStateDisableControl;
    t.Value(key);
    t.Value(readStateDisable);
    TQzPkgPrivilegesItems items(nullptr);
    t.Items(
        FItems.Count(),
        [&](int i) {
            const TQzPkgPrivilegesItem* item = FItems.GetItems(i);
            return TPrivilegeValues{item->Id(),  item->Description(), item->DescriptionId()->PkgName(),
                                    item->DescriptionId()->Id(), item->Access(), item->Visible()};
        },
        [&](TPrivilegeValues& v) {
            t.Value(v.Id);
            t.Value(v.Description);
            t.Value(v.LabelPkgName);
            t.Value(v.LabelId);
            t.Enum(v.Access, qaRW);
            t.Value(v.Visible);
        },
        [&](const TPrivilegeValues& v) {
            TQzPkgPrivilegesItem* item = items.Add(v.Id);
            item->SetDescription(v.Description);
            item->DescriptionId()->PkgId(v.LabelPkgName, v.LabelId);
            item->SetAccess(v.Access);
            item->SetVisible(v.Visible);
        });
    if (!t.EndBlock())
        return;
    FItems.TakeItems(items);
    FKey = key;
    FReadStateDisableControl = readStateDisable;
    CommitContents(placement);
}

// The template: the signature line, then one line per privilege:
//   Id <tab> Access (N, R, R/W) <tab> Visible (1/0) <tab> LabelPkgName <tab> LabelId <tab> Description
void TQzPkgPrivileges::SaveTemplateToFile(const AnsiString& fileName)
{
    AnsiString text = AnsiString(TemplateSignature) + "\n";
    for (int i = 0; i < FItems.Count(); ++i) {
        const TQzPkgPrivilegesItem* item = FItems.GetItems(i);
        text += IntToStr(item->Id()) + "\t" + QzAccessText(item->Access()) + "\t" + (item->Visible() ? "1" : "0") +
                "\t" + EscapeField(item->DescriptionId()->PkgName()) + "\t" +
                IntToStr(item->DescriptionId()->Id()) + "\t" + EscapeField(item->Description()) + "\n";
    }
    WriteFileAtomic(fileName, text);
}

void TQzPkgPrivileges::LoadTemplateFromFile(const AnsiString& fileName)
{
    CheckChange();
    TStringList lines;
    lines.LoadFromFile(fileName);
    auto fail = [&](int line, const AnsiString& why) {
        throw EQzPkgError("The file: " + fileName + " can contain an error in the line: " + IntToStr(line) + " (" +
                          why + ")");
    };
    if (lines.Count() == 0 || Trim(lines[0]) != TemplateSignature)
        fail(1, "not a privileges template");
    TQzPkgPrivilegesItems items(nullptr);
    for (int i = 1; i < lines.Count(); ++i) {
        const AnsiString line = lines[i];
        if (Trim(line).empty())
            continue;
        const std::vector<AnsiString> f = SplitTabs(line);
        Integer id = 0;
        Integer labelId = 0;
        TQzAccess access = qaRW;
        AnsiString labelPkg;
        AnsiString description;
        if (f.size() != 6)
            fail(i + 1, "6 fields expected");
        if (!TryStrToInt(f[0], id) || id < 0)
            fail(i + 1, "bad Id");
        if (!ParseAccess(f[1], access))
            fail(i + 1, "bad access");
        if (f[2] != "0" && f[2] != "1")
            fail(i + 1, "bad visibility");
        if (!UnescapeField(f[3], labelPkg) || !TryStrToInt(f[4], labelId) || !UnescapeField(f[5], description))
            fail(i + 1, "bad description");
        if (items.FindId(id))
            fail(i + 1, "duplicate Id " + IntToStr(id));
        TQzPkgPrivilegesItem* item = items.Add(id);
        item->SetAccess(access);
        item->SetVisible(f[2] == "1");
        item->DescriptionId()->PkgId(labelPkg, labelId);
        item->SetDescription(description);
    }
    FItems.TakeItems(items);
    Change();
}
