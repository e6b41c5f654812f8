#include "designide/forms/QzIdeDesigner.h"

#include "vcl/QzQtString.h"

#include "runtime/components/Controls.h"

#include "rtl/ComponentStream.h"
#include "rtl/SysUtils.h"

#include <QUndoCommand>
#include <QUndoStack>

namespace {

// One change: the form before and after it.
class TSnapshotCommand final : public QUndoCommand {
public:
    TSnapshotCommand(TIdeDesigner* designer, const QString& text, std::string before, std::string after)
        : QUndoCommand(text), FDesigner(designer), FBefore(std::move(before)), FAfter(std::move(after))
    {
    }
    void undo() override { FDesigner->Restore(FBefore); }
    void redo() override
    {
        // Pushing runs redo once; the change is already made then.
        if (FFirst) {
            FFirst = false;
            return;
        }
        FDesigner->Restore(FAfter);
    }

private:
    TIdeDesigner* FDesigner;
    std::string FBefore;
    std::string FAfter;
    bool FFirst = true;
};

std::vector<AnsiString> NamesOf(const TDesignerSelections& selections)
{
    std::vector<AnsiString> names;
    for (TPersistent* p : selections)
        if (auto* c = dynamic_cast<TComponent*>(p))
            names.push_back(c->Name());
    return names;
}

bool IsInside(TComponent* component, TComponent* ancestor)
{
    for (TComponent* c = component; c; c = c->GetParentComponent())
        if (c == ancestor)
            return true;
    return false;
}

}  // namespace

std::unique_ptr<TIdeDesigner> TIdeDesigner::Load(const AnsiString& fileName)
{
    return std::make_unique<TIdeDesigner>(TFormDesigner::LoadFromFile(fileName));
}

TIdeDesigner::TIdeDesigner(std::unique_ptr<TFormDesigner> form)
    : FForm(std::move(form)), FUndo(new QUndoStack(this)), FRecorded(Snapshot())
{
    FForm->OnModified = [this] { emit Changed(); };
    // Undoing or redoing back to the state last saved (or read) is the file
    // as it is: nothing to save.
    connect(FUndo, &QUndoStack::cleanChanged, this, [this](bool clean) {
        if (!clean || !FForm->IsModified())
            return;
        FForm->ClearModified();
        emit Changed();
    });
}

TIdeDesigner::~TIdeDesigner() = default;

void TIdeDesigner::Modified()
{
    // A design window beside the designer (the menus or a collection
    // editor) changes the form outside any Change: each of its changes is
    // a step of its own, named as the host names it.
    if (FChangeDepth == 0)
        ChangedOutside(FOutsideStepName ? FOutsideStepName() : QStringLiteral("Change"));
    else
        FForm->Modified();
}

void TIdeDesigner::SetSelections(const TDesignerSelections& selections)
{
    if (selections == FForm->GetSelections())
        return;
    FForm->SetSelections(selections);
    emit SelectionChanged();
}

TComponent* TIdeDesigner::CreateComponent(TMetaClass* cls, TComponent* parent)
{
    return FForm->CreateComponent(cls, parent);
}

std::vector<TComponent*> TIdeDesigner::SelectedComponents() const
{
    std::vector<TComponent*> result;
    for (TPersistent* p : FForm->GetSelections())
        if (auto* c = dynamic_cast<TComponent*>(p))
            result.push_back(c);
    if (result.empty())
        result.push_back(GetRoot());
    return result;
}

std::string TIdeDesigner::Snapshot() const { return WriteComponentData(GetRoot(), FForm->TextOptions()); }

void TIdeDesigner::Restore(const std::string& snapshot)
{
    const std::vector<AnsiString> selected = NamesOf(FForm->GetSelections());
    const AnsiString fileName = FForm->FileName();
    const TFormFormat format = FForm->StoredFormat();
    const TFormTextOptions options = FForm->TextOptions();
    const int modifiedCount = FForm->ModifiedCount();
    const std::string current = Snapshot();
    const auto read = [&](const std::string& stream) {
        FForm = std::make_unique<TFormDesigner>(ReadForm(stream, options), fileName, format, options);
        FForm->OnModified = [this] { emit Changed(); };
        TDesignerSelections selections;
        for (const AnsiString& name : selected)
            if (TComponent* c = FForm->GetComponent(name))
                selections.push_back(c);
        FForm->SetSelections(selections);
        emit RootReplaced();
    };
    // The old components go first: some classes allow one instance per
    // project (the application object) and would refuse a second.
    FForm.reset();
    try {
        read(snapshot);
    } catch (...) {
        // Back as it stood, and as changed against its file as it was.
        read(current);
        for (int i = 0; i < modifiedCount; ++i)
            FForm->Modified();
        emit SelectionChanged();
        throw;
    }
    FRecorded = snapshot;
    // An undone change is still a change against the file on disk.
    for (int i = 0; i < std::max(1, modifiedCount); ++i)
        FForm->Modified();
    emit SelectionChanged();
}

void TIdeDesigner::Change(const QString& text, const std::function<void()>& change)
{
    std::string before = Snapshot();
    ++FChangeDepth;
    try {
        change();
    } catch (...) {
        --FChangeDepth;
        if (Snapshot() != before)
            Restore(before);
        throw;
    }
    --FChangeDepth;
    Record(text, std::move(before));
}

void TIdeDesigner::ChangedOutside(const QString& text)
{
    FForm->Modified();
    if (FChangeDepth == 0)
        Record(text, FRecorded);
}

void TIdeDesigner::Record(const QString& text, std::string before)
{
    std::string after = Snapshot();
    if (after == before)
        return;
    FRecorded = after;
    FUndo->push(new TSnapshotCommand(this, text, std::move(before), std::move(after)));
}

void TIdeDesigner::DeleteComponents(const std::vector<TComponent*>& components, const QString& verb)
{
    std::vector<TComponent*> doomed;
    for (TComponent* c : components)
        if (c && c != GetRoot())
            doomed.push_back(c);
    if (doomed.empty())
        return;
    Change(doomed.size() == 1 ? QStringLiteral("%1 %2").arg(verb, QzQString(doomed.front()->Name()))
                              : QStringLiteral("%1 %2 components").arg(verb).arg(doomed.size()),
           [&] {
               FForm->SetSelections({});
               // A component inside another that goes too goes with it.
               std::vector<TComponent*> top;
               for (TComponent* c : doomed) {
                   bool nested = false;
                   for (TComponent* other : doomed)
                       nested = nested || (other != c && IsInside(c->GetParentComponent(), other));
                   if (!nested)
                       top.push_back(c);
               }
               for (TComponent* c : top) {
                   QzFreeChildComponents(c);
                   delete c;
               }
               Modified();
           });
    emit SelectionChanged();
}

void TIdeDesigner::Save()
{
    FForm->Save();
    FUndo->setClean();
    emit Changed();
}
