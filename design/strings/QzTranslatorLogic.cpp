#include "design/strings/QzTranslatorLogic.h"

#include "design/strings/QzStringsChecks.h"
#include "designide/QzPortDsgn.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/model/QzRegistry.h"

#include <algorithm>

namespace {

const TQzTranslatorTraits Traits[] = {
    {"Labels Translator", "Labels", "Add Label", "Modify Label", " Labels )", true},
    {"Messages Translator", "Messages", "Add Message", "Modify Message", " Messages )", false},
    {"Texts Translator", "Texts", "Add Text", "Modify Text", " Texts )", false},
};

AnsiString OrUnknown(const AnsiString& s)
{
    return Trim(s).empty() ? AnsiString("Unknown") : s;
}

int CountOf(const TQzPkgIdCollection* c)
{
    return c ? c->Count() : 0;
}

}  // namespace

const TQzTranslatorTraits& QzTranslatorTraits(TQzTranslatorKind kind)
{
    return Traits[static_cast<int>(kind)];
}

TQzPkgIdCollection* QzTranslatorCollection(TQzPkgStrings* pkg, TQzTranslatorKind kind)
{
    if (pkg == nullptr)
        return nullptr;
    switch (kind) {
    case TQzTranslatorKind::Labels: return pkg->Labels();
    case TQzTranslatorKind::Messages: return pkg->Messages();
    case TQzTranslatorKind::Texts: return pkg->Texts();
    }
    return nullptr;
}

const TQzPkgIdCollection* QzTranslatorCollection(const TQzPkgStrings* pkg, TQzTranslatorKind kind)
{
    return QzTranslatorCollection(const_cast<TQzPkgStrings*>(pkg), kind);
}

TQzTranslatorSide QzTranslatorSide(const TQzPkgStrings* pkg, TQzTranslatorKind kind, Integer id)
{
    TQzTranslatorSide side;
    const TQzPkgIdCollection* c = QzTranslatorCollection(pkg, kind);
    const TQzPkgIdItem* item = c ? c->FindIdItem(id) : nullptr;
    if (item == nullptr)
        return side;
    side.Present = true;
    if (auto* label = dynamic_cast<const TQzPkgStringsLabel*>(item)) {
        side.Text = label->Text();
        side.Hint = label->Hint();
    } else if (auto* text = dynamic_cast<const TQzPkgStringsTextItem*>(item)) {
        side.Text = text->Text();
    }
    return side;
}

void QzTranslatorWrite(TQzPkgStrings& pkg, TQzTranslatorKind kind, Integer id, const AnsiString& text,
                       const AnsiString& hint)
{
    switch (kind) {
    case TQzTranslatorKind::Labels:
        if (TQzPkgStringsLabel* label = pkg.Labels()->FindId(id)) {
            // Both fields or neither: the package refuses the first change
            // when it may not change, before anything is written.
            label->SetText(text);
            label->SetHint(hint);
        } else {
            pkg.Labels()->Add(id, text, hint);
        }
        break;
    case TQzTranslatorKind::Messages:
        if (TQzPkgStringsMessage* m = pkg.Messages()->FindId(id))
            m->SetText(text);
        else
            pkg.Messages()->Add(id, text);
        break;
    case TQzTranslatorKind::Texts:
        if (TQzPkgStringsText* t = pkg.Texts()->FindId(id))
            t->SetText(text);
        else
            pkg.Texts()->Add(id, text);
        break;
    }
}

std::vector<Integer> QzTranslatorIds(const TQzPkgIdCollection* edited, const TQzPkgIdCollection* translation)
{
    std::vector<Integer> ids;
    ids.reserve(static_cast<size_t>(CountOf(edited) + CountOf(translation)));
    for (const TQzPkgIdCollection* c : {edited, translation}) {
        for (int i = 0; i < CountOf(c); ++i)
            ids.push_back(static_cast<const TQzPkgIdItem*>(c->Item(i))->Id());
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

Integer QzTranslatorFreeId(const TQzPkgIdCollection* edited, const TQzPkgIdCollection* translation)
{
    Integer id = 0;
    for (Integer used : QzTranslatorIds(edited, translation)) {
        if (used != id)
            break;
        ++id;
    }
    return id;
}

// ---------------------------------------------------------------------------
// The other language

AnsiString QzProjectFormFileOf(const TComponent* root)
{
    TProjectServices* project = GetProjectServices();
    if (project == nullptr || root == nullptr)
        return {};
    // The form open in a designer is the surest sign; a project file's
    // form names serve for forms no designer has.
    auto* folder = dynamic_cast<TFolderProject*>(project);
    for (int i = 0; i < project->ModuleCount(); ++i) {
        const TProjectModule& m = project->Module(i);
        if (!m.HasForm())
            continue;
        const AnsiString file = m.FormFile.empty() ? m.FormFileName() : m.FormFile;
        IDesigner* designer = folder ? folder->Designers().FindDesigner(file) : nullptr;
        if (designer && designer->GetRoot() == root)
            return file;
        if (!m.FormName.empty() && SameText(m.FormName, root->Name()))
            return file;
    }
    return {};
}

bool QzTranslatedByLanguage(const TQzPkgStrings& edited)
{
    return dynamic_cast<const TQzPkgLanguage*>(edited.Owner()) != nullptr;
}

AnsiString QzDefaultTranslationFile(const TQzPkgStrings& edited, const TQzFormFileOf& formFileOf)
{
    if (auto* language = dynamic_cast<const TQzPkgLanguage*>(edited.Owner())) {
        if (Trim(language->FileName()).empty())
            return {};
        return ChangeFileExt(language->GetPathFileName(), ".lan");
    }
    const AnsiString form = edited.Owner() && formFileOf ? formFileOf(edited.Owner()) : AnsiString();
    if (form.empty())
        return {};
    return ChangeFileExt(form, "." + edited.DefaultExt());
}

TQzTranslation::TQzTranslation(const TQzPkgStrings& edited, const TQzFormFileOf& formFileOf)
{
    // A package of its own: it must not take the edited package's name
    // over in the registry, nor be found by it.
    TQzDetachedPkgs detached;
    if (QzTranslatedByLanguage(edited)) {
        auto language = std::make_unique<TQzPkgLanguage>(nullptr);
        FStrings = edited.IsSystem() ? language->PkgSystem() : language->PkgUser();
        FFilePackage = std::move(language);
    } else {
        auto strings = std::make_unique<TQzPkgStrings>(nullptr);
        FStrings = strings.get();
        FFilePackage = std::move(strings);
    }
    FFileName = QzDefaultTranslationFile(edited, formFileOf);
}

TQzTranslation::~TQzTranslation() = default;

AnsiString TQzTranslation::FileMask() const
{
    return "*." + FFilePackage->DefaultExt();
}

void TQzTranslation::Open(const AnsiString& fileName)
{
    if (!fileName.empty() && FileExists(fileName)) {
        FFilePackage->LoadFromFile(fileName);
        FLoadedFile = fileName;
    } else {
        FFilePackage->Clear();
        FLoadedFile.clear();
    }
    FFileName = fileName;
    FFilePackage->SetFileName(fileName);
    FFilePackage->SetInitMode(fileName.empty() ? imDFM : imFile);
}

bool TQzTranslation::SavesOwnFile() const
{
    return FFilePackage->InitMode() == imFile && !Trim(FFilePackage->FileName()).empty();
}

void TQzTranslation::Save()
{
    if (!SavesOwnFile())
        return;
    FFilePackage->SetModified(true);
    FFilePackage->SaveFile();
}

// ---------------------------------------------------------------------------
// Window texts

TQzTranslatorMenu QzTranslatorMenuState(bool rowSelected, bool inEdited, bool savesOwnFile)
{
    TQzTranslatorMenu m;
    m.Add = !rowSelected || !inEdited;
    m.Modify = rowSelected && inEdited;
    m.Delete = m.Modify;
    m.Save = savesOwnFile;
    return m;
}

AnsiString QzTranslatorStatusText(TQzTranslatorKind kind, const TQzPkgStrings& edited, const TQzTranslation& translation)
{
    const char* word = QzTranslatorTraits(kind).CountWord;
    const TQzPkgStrings* other = translation.Strings();
    return "( " + OrUnknown(edited.PkgName()) + " : " + IntToStr(CountOf(QzTranslatorCollection(&edited, kind))) +
           word + "  ( " + OrUnknown(other->PkgName()) + " - " + OrUnknown(translation.FileName()) + " : " +
           IntToStr(CountOf(QzTranslatorCollection(other, kind))) + word;
}

AnsiString QzTranslatorCurrentFileText(const TQzTranslation& translation)
{
    return "Current File : " + translation.FileName();
}

AnsiString QzTranslatorLoadFileText(const TQzTranslation& translation)
{
    return "Load File : " + (translation.LoadedFile().empty() ? AnsiString("(Unknown)") : translation.LoadedFile());
}

// ---------------------------------------------------------------------------
// Filters and checks

const std::vector<const char*>& QzTranslatorFilterNames()
{
    static const std::vector<const char*> names{"All rows", "Missing in the edited package",
                                                "Missing in the translation", "Differs in placeholders",
                                                "Fails a check"};
    return names;
}

namespace {

// The problems of the row's texts, and of its hints when either has one;
// the translation file holds the language translated from.
unsigned TextProblems(const TQzTranslatorSide& edited, const TQzTranslatorSide& translation)
{
    return QzCheckTranslation(translation.Text, edited.Text);
}

unsigned HintProblems(const TQzTranslatorSide& edited, const TQzTranslatorSide& translation)
{
    if (edited.Hint.empty() && translation.Hint.empty())
        return spNone;
    return QzCheckTranslation(translation.Hint, edited.Hint);
}

bool BothPresent(const TQzTranslatorSide& edited, const TQzTranslatorSide& translation)
{
    return edited.Present && translation.Present;
}

}  // namespace

bool QzTranslatorPlaceholdersDiffer(const TQzTranslatorSide& edited, const TQzTranslatorSide& translation)
{
    return BothPresent(edited, translation) &&
           ((TextProblems(edited, translation) | HintProblems(edited, translation)) & spPlaceholders) != 0;
}

std::vector<AnsiString> QzTranslatorRowChecks(const TQzTranslatorSide& edited, const TQzTranslatorSide& translation)
{
    std::vector<AnsiString> failed;
    if (!BothPresent(edited, translation))
        return failed;
    const unsigned text = TextProblems(edited, translation);
    const unsigned hint = HintProblems(edited, translation);
    for (unsigned flag : {spPlaceholders, spBlanks, spAccelerator, spSameText}) {
        if (text & flag)
            failed.push_back(QzStringProblemsText(flag));
        if (hint & flag)
            failed.push_back("hint: " + QzStringProblemsText(flag));
    }
    return failed;
}

bool QzTranslatorRowPasses(TQzTranslatorFilter filter, const TQzTranslatorSide& edited,
                           const TQzTranslatorSide& translation)
{
    switch (filter) {
    case TQzTranslatorFilter::All: return true;
    case TQzTranslatorFilter::MissingInEdited: return !edited.Present && translation.Present;
    case TQzTranslatorFilter::MissingInTranslation: return edited.Present && !translation.Present;
    case TQzTranslatorFilter::DiffersInPlaceholders:
        return edited.Present && translation.Present && QzTranslatorPlaceholdersDiffer(edited, translation);
    case TQzTranslatorFilter::FailsChecks: return !QzTranslatorRowChecks(edited, translation).empty();
    }
    return true;
}

std::vector<Integer> QzTranslatorFilterIds(const std::vector<Integer>& ids, TQzTranslatorFilter filter,
                                           TQzTranslatorKind kind, const TQzPkgStrings* edited,
                                           const TQzPkgStrings* translation)
{
    if (filter == TQzTranslatorFilter::All)
        return ids;
    std::vector<Integer> kept;
    for (Integer id : ids) {
        if (QzTranslatorRowPasses(filter, QzTranslatorSide(edited, kind, id), QzTranslatorSide(translation, kind, id)))
            kept.push_back(id);
    }
    return kept;
}
