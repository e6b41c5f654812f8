#pragma once
// The strings translators: one collection of the edited strings package
// (labels, messages or texts) beside the same collection of another
// language, Id by Id, so that the user writes the edited package's texts
// while reading the other language. The three translators are one window,
// TFrPkgStringsTranslator; its members only choose the collection, which
// also names the list and the memos as the suite names them ("Labels",
// "MeHint1", ...). The translation belongs to the window and is never
// changed by it, except by Save, which writes it back to its file.

#include "design/strings/QzTranslatorLogic.h"
#include "vcl/QzDialog.h"

#include "ui_TFrPkgStringsTranslator.h"
#include "ui_TFrPkgStringsTranslatorAdd.h"

#include <functional>
#include <memory>
#include <vector>

class QAction;
class QMenu;
class TQzTranslatorListModel;

// Writes one item of the edited package while showing the other
// language's texts of the same Id. The item is written on Ok; a change the
// package refuses is shown and the dialog stays open.
class TFrPkgStringsTranslatorAdd : public TQzDialog, public Ui::TFrPkgStringsTranslatorAdd {
    Q_OBJECT

public:
    TFrPkgStringsTranslatorAdd(TQzTranslatorKind kind, QWidget* parent = nullptr);

    // modify false: the edited package has no item with id and gets one;
    // true: its item is rewritten, the edits starting from it.
    using TQzDialog::Execute;
    TModalResult Execute(TQzPkgStrings* edited, const TQzPkgStrings* translation, Integer id, bool modify);

protected:
    void accept() override;

private:
    TQzTranslatorKind FKind;
    TQzPkgStrings* FEdited = nullptr;
    Integer FId = 0;
};

class TFrPkgStringsLabelsTranslatorAdd : public TFrPkgStringsTranslatorAdd {
    Q_OBJECT
public:
    explicit TFrPkgStringsLabelsTranslatorAdd(QWidget* parent = nullptr)
        : TFrPkgStringsTranslatorAdd(TQzTranslatorKind::Labels, parent) {}
};

class TFrPkgStringsMessagesTranslatorAdd : public TFrPkgStringsTranslatorAdd {
    Q_OBJECT
public:
    explicit TFrPkgStringsMessagesTranslatorAdd(QWidget* parent = nullptr)
        : TFrPkgStringsTranslatorAdd(TQzTranslatorKind::Messages, parent) {}
};

class TFrPkgStringsTextsTranslatorAdd : public TFrPkgStringsTranslatorAdd {
    Q_OBJECT
public:
    explicit TFrPkgStringsTextsTranslatorAdd(QWidget* parent = nullptr)
        : TFrPkgStringsTranslatorAdd(TQzTranslatorKind::Texts, parent) {}
};

class TFrPkgStringsTranslator : public TQzDialog, public Ui::TFrPkgStringsTranslator {
    Q_OBJECT

public:
    // Deletes the edited package's item with that Id the way the strings
    // editor deletes (its confirmation included); true when it was deleted.
    using TDeleteById = std::function<bool(Integer id)>;

    TFrPkgStringsTranslator(TQzTranslatorKind kind, QWidget* parent = nullptr);
    ~TFrPkgStringsTranslator() override;

    void SetPackage(TQzPkgStrings* package) { FPackage = package; }
    TQzPkgStrings* Package() const { return FPackage; }
    // Where a form's file is found (the open project by default).
    void SetFormFileOf(TQzFormFileOf formFileOf) { FFormFileOf = std::move(formFileOf); }
    // Without one, Delete asks and deletes itself.
    void SetDeleteById(TDeleteById deleteById) { FDeleteById = std::move(deleteById); }

    // Creates the translation, reads its file when there is one, and shows
    // the rows; returns when the window is closed.
    TModalResult Execute() override;

    TQzTranslatorKind Kind() const { return FKind; }
    TQzTranslation* Translation() const { return FTranslation.get(); }
    // The Ids of the rows shown, in their order.
    const std::vector<Integer>& RowIds() const { return FIds; }
    // The selected row's Id; false when no row is selected.
    bool SelectedId(Integer& id) const;
    bool SelectId(Integer id);
    void SetFilter(TQzTranslatorFilter filter);
    // Reads another translation file (as the path button does once a file
    // was picked).
    void OpenTranslation(const AnsiString& fileName);

    // The commands, as the menus run them.
    void Add1Click();
    void Modify1Click();
    void Delete1Click();
    void Save1Click();
    void SBPathClick();
    // Enables the menus' commands for the selected row.
    void PopupMenu1Popup();

    QMenu* PopupMenu1;  // Add, Modify, Delete, Save
    QMenu* PopupMenu2;  // Save only: for a click below the rows
    QAction* Add1;
    QAction* Modify1;
    QAction* Delete1;
    QAction* Save1;
    QAction* Save2;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void CreateMenus();
    void Load();
    void UpdateBar();
    void UpdateCaptions();
    void AlignTitles();
    void LabelsClick();
    bool ListMouse(QMouseEvent* event);
    void Modified();
    // The checks the row of id fails (the marker and its tooltip).
    std::vector<AnsiString> RowChecks(Integer id) const;
    void RunAddDialog(Integer id, bool modify);
    std::unique_ptr<TFrPkgStringsTranslatorAdd> CreateAddDialog();

    TQzTranslatorKind FKind;
    TQzPkgStrings* FPackage = nullptr;
    TQzFormFileOf FFormFileOf = QzProjectFormFileOf;
    TDeleteById FDeleteById;
    std::unique_ptr<TQzTranslation> FTranslation;
    TQzTranslatorFilter FFilter = TQzTranslatorFilter::All;
    std::vector<Integer> FIds;
    TQzTranslatorListModel* FModel;
};

class TFrPkgStringsLabelsTranslator : public TFrPkgStringsTranslator {
    Q_OBJECT
public:
    explicit TFrPkgStringsLabelsTranslator(QWidget* parent = nullptr)
        : TFrPkgStringsTranslator(TQzTranslatorKind::Labels, parent) {}
};

class TFrPkgStringsMessagesTranslator : public TFrPkgStringsTranslator {
    Q_OBJECT
public:
    explicit TFrPkgStringsMessagesTranslator(QWidget* parent = nullptr)
        : TFrPkgStringsTranslator(TQzTranslatorKind::Messages, parent) {}
};

class TFrPkgStringsTextsTranslator : public TFrPkgStringsTranslator {
    Q_OBJECT
public:
    explicit TFrPkgStringsTextsTranslator(QWidget* parent = nullptr)
        : TFrPkgStringsTranslator(TQzTranslatorKind::Texts, parent) {}
};

// Runs the translator of kind on package, as the strings editor's
// "&Translator" button does; deleteById is the editor's own Delete.
TModalResult QzExecuteStringsTranslator(TQzPkgStrings* package, TQzTranslatorKind kind,
                                        TFrPkgStringsTranslator::TDeleteById deleteById = {},
                                        QWidget* parent = nullptr);
