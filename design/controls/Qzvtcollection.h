#pragma once
// TFrCollection: the editor of a collection, a window kept beside the
// designer for each collection. It lists the items; Add, Delete, Move Up,
// Move Down and Select All work on the chosen ones, and the chosen items
// are the designer's selection, so the property grid edits them (several
// at once) as it edits components. Every change is one change of the form.

#include "design/controls/QzDesignTarget.h"

#include "ui_TFrCollection.h"

#include <QWidget>

#include <vector>

class TCollection;

class TFrCollection : public QWidget, public Ui::TFrCollection {
    Q_OBJECT

public:
    explicit TFrCollection(QWidget* parent = nullptr);
    ~TFrCollection() override;

    // Shows collection, published by component as one of its properties.
    void Execute(TCollection* collection, TComponent* component, IDesigner* designer, const AnsiString& caption);
    // nullptr when the component is gone.
    TCollection* Collection();
    TComponent* Component() { return FTarget.Component(); }

    std::vector<int> Chosen() const;
    void Choose(const std::vector<int>& indices);

    void BtAddClick();
    void BtDeleteClick();
    void BtMoveUpClick() { Move(-1); }
    void BtMoveDownClick() { Move(1); }
    void BtSelectAllClick();

protected:
    // The list's keys: Ins, Del, Ctrl+Up, Ctrl+Down; Escape closes.
    bool eventFilter(QObject* watched, QEvent* event) override;
    // What the page collection editor does its own way.
    virtual void AddItem(TCollection* collection);
    virtual void DeleteItem(TCollection* collection, int index);
    virtual AnsiString ItemLine(TCollection* collection, int index);
    // The chosen items became the designer's selection.
    virtual void ItemsChosen(const std::vector<int>&) {}

    IDesigner* Designer() const { return FTarget.Designer(); }
    // Fills the list again, keeping what is chosen.
    void UpdateList();
    // A change made: chooses indices, tells the designer.
    void Changed(const std::vector<int>& indices);

private:
    void Move(int delta);
    void SelectInDesigner();
    void UpdateButtons();

    TQzDesignTarget FTarget;
    AnsiString FPropName;
    int FListener = 0;
    bool FFilling = false;
};

// The window open for collection, or nullptr.
TFrCollection* QzFindCollectionWindow(const TCollection* collection);
// Installs the openers of the collection and page collection editors.
void RegisterQzvtcollection();
