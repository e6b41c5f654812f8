#include "design/manager/QzManagerLogic.h"

#include "designide/ProjectServices.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzPkgPrivileges.h"
#include "runtime/util/QzDesigner.h"

#include "rtl/Collection.h"
#include "rtl/FormText.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <optional>

namespace {

constexpr const char* ImagesCheckPhase = "Images Check (SetsBackGround)";
constexpr const char* LabelsCheckPhase = "Labels Check (SetsBackGround, SetsColor, SetsFont, Privileges)";
constexpr const char* ExistCheckPhase = "Exist Check";

// Closes the progress window however the pass ends.
class TProgressWindow {
public:
    TProgressWindow(IQzManagerProgress& progress, const AnsiString& title, int total) : FProgress(progress)
    {
        FProgress.SetWindowProgress(true, title, total);
    }
    ~TProgressWindow() { FProgress.SetWindowProgress(false, {}, 0); }
    TProgressWindow(const TProgressWindow&) = delete;
    TProgressWindow& operator=(const TProgressWindow&) = delete;

private:
    IQzManagerProgress& FProgress;
};

bool ContainsText(const std::vector<AnsiString>& names, const AnsiString& name)
{
    for (const AnsiString& n : names)
        if (SameText(n, name))
            return true;
    return false;
}

// The object a property path ("Items[2].Caption") leads to from obj, or
// nullptr.
TObject* FollowPath(TObject* obj, const AnsiString& path)
{
    std::size_t start = 0;
    while (obj && start <= path.size() && !path.empty()) {
        const std::size_t dot = path.find('.', start);
        AnsiString part = path.substr(start, dot == AnsiString::npos ? AnsiString::npos : dot - start);
        int index = -1;
        const std::size_t open = part.find('[');
        if (open != AnsiString::npos) {
            index = StrToIntDef(part.substr(open + 1, part.size() - open - 2), -1);
            part.resize(open);
            if (index < 0)
                return nullptr;
        }
        const TPropInfo* prop = GetPropInfo(obj, part);
        if (!prop || !prop->PropType || prop->PropType->Kind != tkClass)
            return nullptr;
        obj = GetObjectProp(obj, prop);
        if (index >= 0) {
            auto* collection = dynamic_cast<TCollection*>(obj);
            if (!collection || index >= collection->Count())
                return nullptr;
            obj = collection->Items(index);
        }
        if (dot == AnsiString::npos)
            break;
        start = dot + 1;
    }
    return obj;
}

// Whether reference ref is one the pass looks for: the searched package
// and Id, or (any) one of packages.
bool RefMatches(const TQzMemoryRef& ref, bool any, const AnsiString& pkgName, const AnsiString& value,
                const std::vector<AnsiString>& packages)
{
    if (ref.PkgName().empty() || ref.Id() < 0)
        return false;
    if (any)
        return ContainsText(packages, ref.PkgName());
    Integer id = 0;
    return SameText(ref.PkgName(), pkgName) && TryStrToInt(Trim(value), id) && id == ref.Id();
}

}  // namespace

AnsiString QzCheckSearchInput(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value)
{
    if (QzDlgManagerUsesPackage(kind) && Trim(pkgName).empty())
        return "Enter the package name.";
    if (QzDlgManagerIsSet(kind)) {
        if (Trim(value).empty())
            return "Enter the set's name.";
        return {};
    }
    Integer id = 0;
    if (!TryStrToInt(Trim(value), id))
        return "Enter the Id as a number.";
    return {};
}

AnsiString QzLinesText(int count)
{
    return IntToStr(count) + (count == 1 ? " line" : " lines");
}

TQzManagerLogic::TQzManagerLogic(TProjectServices& project, IQzManagerPackages& packages, IQzManagerProgress* progress)
    : FProject(project), FPackages(packages), FProgress(progress ? progress : &FNoProgress)
{
}

std::vector<AnsiString> TQzManagerLogic::FormFiles() const
{
    std::vector<AnsiString> files;
    for (int i = 0; i < FProject.ModuleCount(); ++i) {
        const TProjectModule& module = FProject.Module(i);
        if (module.HasForm())
            files.push_back(module.FormFile.empty() ? module.FormFileName() : module.FormFile);
    }
    return files;
}

bool TQzManagerLogic::ReadForm(const AnsiString& file, std::string& text)
{
    // A form on disk that no designer has open is read as bytes and scanned
    // as one text, without making a line list of it.
    if (auto* folder = dynamic_cast<TFolderProject*>(&FProject)) {
        const AnsiString onDisk = folder->FindFormFile(file);
        if (!onDisk.empty() && !folder->Designers().FindDesigner(onDisk)) {
            std::ifstream in(onDisk, std::ios::binary | std::ios::ate);
            if (!in)
                return false;
            text.resize(static_cast<std::size_t>(in.tellg()));
            in.seekg(0);
            in.read(text.data(), static_cast<std::streamsize>(text.size()));
            text.resize(static_cast<std::size_t>(in.gcount()));
            // Only a binary form needs the options that give its text.
            const TFormFormat format = DetectFormFormat(text);
            try {
                switch (format) {
                case TFormFormat::Resource:
                    text = FormResourceToText(text, DetectFormTextOptions(text));
                    return true;
                case TFormFormat::Binary:
                    text = FormBinaryToText(text, DetectFormTextOptions(text));
                    return true;
                case TFormFormat::Text:
                case TFormFormat::Unknown:
                    break;
                }
            } catch (Exception& e) {
                e.SetMessage(onDisk + ": " + e.Message());
                throw;
            }
            if (text.compare(0, 3, "\xEF\xBB\xBF") == 0)
                text.erase(0, 3);
            return true;
        }
    }
    TStringList lines;
    TStreamOriginalFormat format = sofUnknown;
    if (!FProject.ReadFormText(file, lines, format))
        return false;
    text = lines.Text();
    return true;
}

int TQzManagerLogic::CountLines(TQzDlgManager kind, std::vector<std::optional<std::string>>& texts)
{
    int total = 0;
    for (const AnsiString& file : FormFiles()) {
        std::string text;
        if (ReadForm(file, text)) {
            total += static_cast<int>(std::count(text.begin(), text.end(), '\n')) +
                     (!text.empty() && text.back() != '\n' ? 1 : 0);
            texts.emplace_back(std::move(text));
        } else {
            texts.emplace_back();
        }
    }
    const TQzPkgDisplay* display = FPackages.Display();
    if (display && (kind == TQzDlgManager::Images || kind == TQzDlgManager::Labels))
        total += display->SetsBackGround()->Count();
    if (display && kind == TQzDlgManager::Labels)
        total += display->SetsColor()->Count() + display->SetsFont()->Count();
    const TQzPkgPrivileges* privileges = FPackages.Privileges();
    if (privileges && kind == TQzDlgManager::Labels)
        total += privileges->Count();
    return total;
}

void TQzManagerLogic::ScanForms(TQzFormScanner& scanner, const AnsiString& phase, std::vector<TQzTokenRec1>& hits)
{
    // With a window to show progress in, the forms are read first to size
    // the bar, and those texts are what is scanned, line by line.
    const bool showing = FProgress != &FNoProgress;
    std::vector<std::optional<std::string>> texts;
    const int total = showing ? CountLines(scanner.Kind(), texts) : 0;
    FProgress->SetWindowProgress(true, FTitle, total);
    scanner.SetProgress(showing ? FProgress : nullptr);

    const std::vector<AnsiString> files = FormFiles();
    std::string own;
    for (std::size_t i = 0; i < files.size() && !FCancelled; ++i) {
        FProgress->ProgressLabel(phase.empty() ? ExtractFileName(files[i]) : phase);
        const std::string* text = showing ? (texts[i] ? &*texts[i] : nullptr) : (ReadForm(files[i], own) ? &own : nullptr);
        if (!text)
            continue;
        if (OpenFormsWhileScanning)
            FProject.DesignForm(files[i]);
        scanner.Scanner(std::string_view(*text), files[i], hits);
        FCancelled = scanner.Cancelled();
    }
}

std::vector<TQzTokenRec1> TQzManagerLogic::Scan(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value)
{
    FLastRun = TQzManagerRun::Scan;
    FCancelled = false;
    FFailures.clear();
    FTitle = "Scanning";
    std::vector<TQzTokenRec1> hits;
    struct TClose {
        IQzManagerProgress* P;
        ~TClose() { P->SetWindowProgress(false, {}, 0); }
    } close{FProgress};

    TQzFormScanner scanner(kind, &FTypes);
    scanner.SetSearch(pkgName, Trim(value));
    ScanForms(scanner, {}, hits);
    if (!FCancelled)
        CheckSets(kind, pkgName, Trim(value), false, {}, hits);
    return hits;
}

std::vector<AnsiString> TQzManagerLogic::CountPackages(TQzDlgManager kind) const
{
    std::vector<AnsiString> names = FPackages.PackageNames(kind);
    std::erase_if(names, [](const AnsiString& n) { return SameText(n, "System"); });
    return names;
}

std::vector<TQzTokenRec2> TQzManagerLogic::Count(TQzDlgManager kind, const std::vector<AnsiString>& packages)
{
    FLastRun = TQzManagerRun::Count;
    FCancelled = false;
    FFailures.clear();
    FTitle = "Counting";
    std::vector<TQzTokenRec1> found;
    struct TClose {
        IQzManagerProgress* P;
        ~TClose() { P->SetWindowProgress(false, {}, 0); }
    } close{FProgress};

    TQzFormScanner scanner(kind, &FTypes);
    scanner.SetCountMode();
    ScanForms(scanner, AnsiString(QzDlgManagerName(kind)) + " Search", found);
    if (QzDlgManagerUsesPackage(kind))
        std::erase_if(found, [&](const TQzTokenRec1& hit) { return !ContainsText(packages, hit.PkgName); });
    if (!FCancelled)
        CheckSets(kind, {}, {}, true, packages, found);

    std::vector<TQzTokenRec2> hits;
    if (FCancelled)
        return hits;
    FProgress->ProgressLabel(ExistCheckPhase);
    hits.reserve(found.size());
    for (TQzTokenRec1& hit : found) {
        TQzTokenRec2 row;
        static_cast<TQzTokenRec1&>(row) = std::move(hit);
        row.Exists = QzItemExists(FPackages, kind, row.PkgName, row.Value);
        if (!row.Exists)
            row.Text += QzNonexistentText;
        hits.push_back(std::move(row));
    }
    return hits;
}

void TQzManagerLogic::CheckSets(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value, bool any,
                                const std::vector<AnsiString>& packages, std::vector<TQzTokenRec1>& hits)
{
    if (kind != TQzDlgManager::Images && kind != TQzDlgManager::Labels)
        return;
    FProgress->ProgressLabel(kind == TQzDlgManager::Images ? ImagesCheckPhase : LabelsCheckPhase);

    const auto check = [&](const TQzMemoryRef& ref, TQzHitSource source, const AnsiString& itemName) {
        if (FCancelled)
            return;
        if (RefMatches(ref, any, pkgName, value, packages)) {
            TQzTokenRec1 hit;
            hit.Kind = kind;
            hit.Source = source;
            hit.Id = ref.Id();
            hit.Value = IntToStr(ref.Id());
            hit.PkgName = ref.PkgName();
            hit.ItemName = itemName;
            hit.Text = QzLineString(hit);
            if (any)
                hit.Text += " (" + hit.Value + ", " + hit.PkgName + ")";
            hits.push_back(std::move(hit));
        }
        FProgress->IncProgressBar(1);
        FCancelled = FProgress->CheckCancel();
    };

    if (TQzPkgDisplay* display = FPackages.Display()) {
        for (int i = 0; i < display->SetsBackGround()->Count(); ++i) {
            TQzPkgDisplaySetBackGround* set = display->SetsBackGround()->GetSetBackGround(i);
            const TQzMemoryRef& ref = kind == TQzDlgManager::Images ? static_cast<const TQzMemoryRef&>(*set->Image())
                                                                    : *set->DescriptionId();
            check(ref, TQzHitSource::SetBackGround, set->Name());
        }
        if (kind == TQzDlgManager::Labels) {
            for (int i = 0; i < display->SetsColor()->Count(); ++i) {
                TQzPkgDisplaySetColor* set = display->SetsColor()->GetSetColor(i);
                check(*set->DescriptionId(), TQzHitSource::SetColor, set->Name());
            }
            for (int i = 0; i < display->SetsFont()->Count(); ++i) {
                TQzPkgDisplaySetFont* set = display->SetsFont()->GetSetFont(i);
                check(*set->DescriptionId(), TQzHitSource::SetFont, set->Name());
            }
        }
    }
    if (kind != TQzDlgManager::Labels)
        return;
    if (TQzPkgPrivileges* privileges = FPackages.Privileges())
        for (int i = 0; i < privileges->Count(); ++i) {
            TQzPkgPrivilegesItem* item = privileges->GetItems(i);
            check(*item->DescriptionId(), TQzHitSource::Privilege, IntToStr(item->Id()));
        }
}

int TQzManagerLogic::Replace(const std::vector<const TQzTokenRec1*>& hits, const AnsiString& newPkg,
                             const AnsiString& newValue)
{
    FTitle = "Replacing";
    return ChangeHits(hits, false, newPkg, Trim(newValue));
}

int TQzManagerLogic::Clear(const std::vector<const TQzTokenRec1*>& hits)
{
    FTitle = "Cleaning";
    return ChangeHits(hits, true, {}, {});
}

int TQzManagerLogic::ChangeHits(const std::vector<const TQzTokenRec1*>& hits, bool clear, const AnsiString& newPkg,
                                const AnsiString& newValue)
{
    FCancelled = false;
    FFailures.clear();
    if (!clear)
        for (const TQzTokenRec1* hit : hits) {
            const AnsiString problem = QzCheckSearchInput(hit->Kind, newPkg, newValue);
            if (!problem.empty())
                throw Exception(problem);
        }
    TProgressWindow window(*FProgress, FTitle, static_cast<int>(hits.size()));
    int changed = 0;

    // Form hits form by form, in the order the forms first appear, so each
    // form is opened once and told once that it changed.
    std::vector<AnsiString> order;
    std::map<AnsiString, std::vector<const TQzTokenRec1*>> byForm;
    for (const TQzTokenRec1* hit : hits)
        if (hit->Source == TQzHitSource::Form) {
            auto& list = byForm[hit->FileName];
            if (list.empty())
                order.push_back(hit->FileName);
            list.push_back(hit);
        }
    for (const AnsiString& file : order) {
        if (FCancelled)
            break;
        FProgress->ProgressLabel(ExtractFileName(file));
        TComponent* root = FProject.DesignForm(file);
        if (!root) {
            FFailures.push_back(Format("Unable to modified %s", ExtractFileName(file)));
            continue;
        }
        int formChanged = 0;
        for (const TQzTokenRec1* hit : byForm[file]) {
            if (ChangeFormHit(root, *hit, clear, newPkg, newValue))
                ++formChanged;
            FProgress->IncProgressBar(1);
            if ((FCancelled = FProgress->CheckCancel()))
                break;
        }
        if (formChanged > 0)
            FormChanged(file, root);
        changed += formChanged;
    }

    // The packages holding sets and privileges are told once each, after
    // all their changes, so a run is one step of their form's history.
    std::vector<TComponent*> owners;
    for (const TQzTokenRec1* hit : hits) {
        if (FCancelled)
            break;
        if (hit->Source == TQzHitSource::Form)
            continue;
        if (TComponent* owner = ChangeItemHit(*hit, clear, newPkg, newValue)) {
            ++changed;
            if (std::find(owners.begin(), owners.end(), owner) == owners.end())
                owners.push_back(owner);
        }
        FProgress->IncProgressBar(1);
        FCancelled = FProgress->CheckCancel();
    }
    for (TComponent* owner : owners)
        QzDesignerModified(owner);
    return changed;
}

bool TQzManagerLogic::ChangeFormHit(TComponent* root, const TQzTokenRec1& hit, bool clear, const AnsiString& newPkg,
                                    const AnsiString& newValue)
{
    TComponent* component = hit.ObjectName.empty() ? nullptr : root->FindComponent(hit.ObjectName);
    if (!component)
        return false;
    TObject* target = nullptr;
    try {
        target = FollowPath(component, hit.PropPath);
    } catch (const EPropertyError&) {
        return false;
    }
    if (auto* ref = dynamic_cast<TQzMemoryRef*>(target)) {
        if (!QzDlgManagerUsesPackage(hit.Kind))
            return false;
        if (clear)
            ref->PkgId({}, TQzMemoryRef::IdNone);
        else
            ref->PkgId(newPkg, StrToInt(newValue));
        return true;
    }
    if (auto* set = dynamic_cast<TQzSetRef*>(target)) {
        set->SetName(clear ? AnsiString() : newValue);
        return true;
    }
    if (auto* privilege = dynamic_cast<TQzPrivilege*>(target)) {
        privilege->SetId(clear ? TQzPrivilege::IdNone : StrToInt(newValue));
        return true;
    }
    return false;
}

TComponent* TQzManagerLogic::ChangeItemHit(const TQzTokenRec1& hit, bool clear, const AnsiString& newPkg,
                                           const AnsiString& newValue)
{
    TQzMemoryRef* ref = nullptr;
    TComponent* owner = nullptr;
    TQzPkgDisplay* display = FPackages.Display();
    switch (hit.Source) {
    case TQzHitSource::SetBackGround:
        if (TQzPkgDisplaySetBackGround* set = display ? display->SetsBackGround()->Find(hit.ItemName) : nullptr)
            ref = hit.Kind == TQzDlgManager::Images ? static_cast<TQzMemoryRef*>(set->Image()) : set->DescriptionId();
        owner = display;
        break;
    case TQzHitSource::SetColor:
        if (TQzPkgDisplaySetColor* set = display ? display->SetsColor()->Find(hit.ItemName) : nullptr)
            ref = set->DescriptionId();
        owner = display;
        break;
    case TQzHitSource::SetFont:
        if (TQzPkgDisplaySetFont* set = display ? display->SetsFont()->Find(hit.ItemName) : nullptr)
            ref = set->DescriptionId();
        owner = display;
        break;
    case TQzHitSource::Privilege: {
        TQzPkgPrivileges* privileges = FPackages.Privileges();
        if (TQzPkgPrivilegesItem* item = privileges ? privileges->FindId(StrToIntDef(hit.ItemName, -1)) : nullptr)
            ref = item->DescriptionId();
        owner = privileges;
        break;
    }
    case TQzHitSource::Form:
        break;
    }
    if (!ref)
        return nullptr;
    if (clear)
        ref->SetId(TQzMemoryRef::IdNone);
    else
        ref->PkgId(newPkg, StrToInt(newValue));
    return owner;
}

void TQzManagerLogic::FormChanged(const AnsiString& formFile, TComponent* root)
{
    if (OnFormChanged) {
        OnFormChanged(formFile, root);
        return;
    }
    auto* folder = dynamic_cast<TFolderProject*>(&FProject);
    if (!folder)
        return;
    const AnsiString onDisk = folder->FindFormFile(formFile);
    if (IDesigner* designer = folder->Designers().FindDesigner(onDisk.empty() ? formFile : onDisk))
        designer->Modified();
}
