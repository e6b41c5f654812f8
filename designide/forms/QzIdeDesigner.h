#pragma once
// The designer of one form open in the host: the IDesigner the editors and
// the design package see, over a TFormDesigner that owns the form, with
// the form's undo history.
//
// Every change is recorded as the form's stream before and after it, so
// moving, sizing, a property typed in the inspector, a verb of a component
// editor, adding and deleting all undo the same way and nothing can be
// forgotten. Undoing reads the form again from its stream, after freeing
// the components it replaces; the host rebuilds its views on RootReplaced.

#include "designide/FormDesigner.h"

#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QUndoStack;

class TIdeDesigner : public QObject, public IDesigner {
    Q_OBJECT

public:
    // Reads the form file; raises with a message naming the file (and the
    // line of a text form) when it cannot be read.
    static std::unique_ptr<TIdeDesigner> Load(const AnsiString& fileName);
    explicit TIdeDesigner(std::unique_ptr<TFormDesigner> form);
    ~TIdeDesigner() override;

    // IDesigner. Outside a Change, Modified records the change as a step.
    void Modified() override;
    TComponent* GetRoot() const override { return FForm->GetRoot(); }
    TComponent* GetComponent(const AnsiString& name) const override { return FForm->GetComponent(name); }
    void GetComponentNames(const TTypeInfo* typeData, const TGetStrProc& proc) const override
    {
        FForm->GetComponentNames(typeData, proc);
    }
    AnsiString GetObjectName(TPersistent* obj) const override { return FForm->GetObjectName(obj); }
    TDesignerSelections GetSelections() const override { return FForm->GetSelections(); }
    void SetSelections(const TDesignerSelections& selections) override;
    bool MethodExists(const AnsiString& name) const override { return FForm->MethodExists(name); }
    AnsiString CreateMethod(const AnsiString& name, const TTypeInfo* typeData) override
    {
        return FForm->CreateMethod(name, typeData);
    }
    void GetMethods(const TTypeInfo* typeData, const TGetStrProc& proc) const override { FForm->GetMethods(typeData, proc); }
    AnsiString UniqueName(const AnsiString& baseName) const override { return FForm->UniqueName(baseName); }
    TComponent* CreateComponent(TMetaClass* cls, TComponent* parent) override;

    TFormDesigner& Form() const { return *FForm; }
    const AnsiString& FileName() const { return FForm->FileName(); }
    bool IsModified() const { return FForm->IsModified(); }
    // The selected components (the root when nothing else is).
    std::vector<TComponent*> SelectedComponents() const;

    QUndoStack* UndoStack() const { return FUndo; }
    // The form's stream as it stands.
    std::string Snapshot() const;
    // Puts the form back to a snapshot, keeping the selection by name.
    void Restore(const std::string& snapshot);
    // Runs change as one step of the undo history named text; nothing is
    // recorded when the form came out the same. An exception from change
    // puts the form back as it was and passes on.
    void Change(const QString& text, const std::function<void()>& change);
    // Records a change already made to the form since the snapshot before.
    void Record(const QString& text, std::string before);
    // A change made to the form outside Change (a package editor's, told
    // through the runtime's hook) becomes a step of its own: otherwise
    // undoing an earlier step would take it back unseen, and undoing to the
    // saved state would call the form unchanged. Within a running Change it
    // only marks the form, the running step records it.
    void ChangedOutside(const QString& text);
    // Removes the components (and what they hold) as one step, named after
    // verb and what goes.
    void DeleteComponents(const std::vector<TComponent*>& components, const QString& verb = QStringLiteral("Delete"));

    // Writes the form in the format it was read in, keeping Name.~dfm.
    void Save();

    // Names the step of a change a window beside the designer makes
    // (Modified outside any Change); "Change" without one. The host knows
    // which window the user works in.
    void SetOutsideStepName(std::function<QString()> name) { FOutsideStepName = std::move(name); }

signals:
    // The form changed (or was saved): titles and the inspector follow.
    void Changed();
    void SelectionChanged();
    // Undo or redo read the form again: every component pointer is new.
    void RootReplaced();

private:
    std::unique_ptr<TFormDesigner> FForm;
    QUndoStack* FUndo;
    // The form's stream as the undo history last saw it.
    std::string FRecorded;
    int FChangeDepth = 0;
    std::function<QString()> FOutsideStepName;
};
