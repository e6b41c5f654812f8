#pragma once
// The suite's form and frame, and the two components that change how their
// form behaves: one shapes the window after a picture, one lets the user
// drag the window by a control.

#include "runtime/components/Forms.h"
#include "runtime/components/QzCollection.h"

// A data source the form opens with it, by name.
class TQzFormDataSource : public TQzCollectionItem {
    QZ_CLASS(TQzFormDataSource, TQzCollectionItem)

public:
    explicit TQzFormDataSource(TCollection* collection) : TQzCollectionItem(collection) {}
    const AnsiString& DataSource() const { return FDataSource; }
    void SetDataSource(const AnsiString& value) { FDataSource = value; }
    AnsiString GetDisplayName() override;

private:
    static void DeclareProperties(TClassBuilder<TQzFormDataSource>& b);

    AnsiString FDataSource;
};

class TQzCForm : public TForm {
    QZ_CLASS(TQzCForm, TForm)

public:
    explicit TQzCForm(TComponent* owner);
    ~TQzCForm() override;

    TQzControlParts& Parts() { return FParts; }
    // The variables package the form reads its settings from, by name.
    const AnsiString& PkgVars() const { return FPkgVars; }
    void SetPkgVars(const AnsiString& value) { FPkgVars = value; }
    // The controls that Enter and Escape press.
    TControl* BtnOk() const { return FBtnOk; }
    void SetBtnOk(TControl* value);
    TControl* BtnCancel() const { return FBtnCancel; }
    void SetBtnCancel(TControl* value);
    TQzCollection* DataSources() const { return FDataSources.get(); }

    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzCForm>& b);

    TQzControlParts FParts;
    AnsiString FPkgVars;
    TControl* FBtnOk = nullptr;
    TControl* FBtnCancel = nullptr;
    std::unique_ptr<TQzCollection> FDataSources;
};

class TQzCFrame : public TFrame {
    QZ_CLASS(TQzCFrame, TFrame)

public:
    explicit TQzCFrame(TComponent* owner) : TFrame(owner), FParts(this) {}
    TQzControlParts& Parts() { return FParts; }

private:
    static void DeclareProperties(TClassBuilder<TQzCFrame>& b);

    TQzControlParts FParts;
};

// Gives its form the outline of a picture: the picture's transparent parts
// are cut out of the window.
class TQzImageForm : public TNonVisualComponent {
    QZ_CLASS(TQzImageForm, TNonVisualComponent)

public:
    explicit TQzImageForm(TComponent* owner);
    ~TQzImageForm() override;
    TQzMemoryImage* Picture() const { return FPicture.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzImageForm>& b);

    bool FActive = true;
    bool FDraggable = true;
    std::unique_ptr<TQzMemoryImage> FPicture;
};

// Lets the user move its form by dragging Control (the whole form when
// there is none).
class TQzMoveForm : public TNonVisualComponent {
    QZ_CLASS(TQzMoveForm, TNonVisualComponent)

public:
    explicit TQzMoveForm(TComponent* owner) : TNonVisualComponent(owner) {}
    TControl* Control() const { return FControl; }
    void SetControl(TControl* value);
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzMoveForm>& b);

    bool FActive = true;
    TControl* FControl = nullptr;
};
