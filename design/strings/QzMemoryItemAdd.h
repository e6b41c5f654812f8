#pragma once
// What the Add and Modify dialogs of labels, messages and texts share: the
// Id box, the "Protected" box shown for the "System" package only, and the
// writing of the item on Ok, which keeps the dialog open with the reason
// shown when the Id is bad or refused. Each dialog supplies its text fields.

#include "design/strings/QzMemoryEditorLogic.h"
#include "vcl/QzDialog.h"

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

class TQzMemoryItemAdd : public TQzDialog {
    Q_OBJECT

public:
    using TQzDialog::Execute;
    // modify=false adds a new item to pkg, the Id box preset to id (callers
    // pass the collection's UniqueId); modify=true edits the item whose Id
    // is id. The caller sets the caption. Returns 1 when the item was written.
    int Execute(TQzPkgStrings* pkg, bool modify, Integer id);

    TQzMemoryFamily Family() const { return FFamily; }
    // The item written by the last Ok; null before.
    TQzPkgIdItem* Item() const { return FItem; }

    void accept() override;

protected:
    TQzMemoryItemAdd(TQzMemoryFamily family, QWidget* parent);
    // The form's shared controls; call once its layout is set up.
    void Bind(QLineEdit* edId, QCheckBox* edProtected, QPushButton* btOk, QPushButton* btCancel);

    // The family's text fields (Id and Protected are the base's).
    virtual void ShowFields(const TQzMemoryItemFields& fields) = 0;
    virtual void ReadFields(TQzMemoryItemFields& fields) const = 0;
    virtual QWidget* TextControl() const = 0;

private:
    TQzMemoryFamily FFamily;
    TQzPkgStrings* FPkg = nullptr;
    bool FModify = false;
    Integer FId = -1;
    TQzPkgIdItem* FItem = nullptr;
    QLineEdit* FEdId = nullptr;
    QCheckBox* FEdProtected = nullptr;
};

// A memo's text with the line breaks the packages keep ("\r\n"), and back.
AnsiString QzMemoText(const QPlainTextEdit* memo);
void QzSetMemoText(QPlainTextEdit* memo, const AnsiString& text);
