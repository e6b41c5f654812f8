#pragma once
// Bars: the tool bars of a memo, a rich edit and an image, the status bar
// with its panels, the splitter, the progress bar, the scroll bar, and the
// group of display-set choices.

#include "runtime/components/QzCollection.h"
#include "runtime/components/QzStdCtrls.h"

// A tool bar that works on one other component.
class TQzToolBarBase : public TQzWinControl {
    QZ_CLASS(TQzToolBarBase, TQzWinControl)

public:
    explicit TQzToolBarBase(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzToolBarBase>& b);

    bool FFlat = true;
};

class TQzMemoBar : public TQzToolBarBase {
    QZ_CLASS(TQzMemoBar, TQzToolBarBase)

public:
    explicit TQzMemoBar(TComponent* owner) : TQzToolBarBase(owner) {}
    TQzCustomMemo* Memo() const { return FMemo; }
    void SetMemo(TQzCustomMemo* value) { QzSetReference(this, FMemo, value); }
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzMemoBar>& b);

    TQzCustomMemo* FMemo = nullptr;
};

class TQzRichEditBar : public TQzToolBarBase {
    QZ_CLASS(TQzRichEditBar, TQzToolBarBase)

public:
    explicit TQzRichEditBar(TComponent* owner) : TQzToolBarBase(owner) {}
    TQzCustomRichEdit* RichEdit() const { return FRichEdit; }
    void SetRichEdit(TQzCustomRichEdit* value) { QzSetReference(this, FRichEdit, value); }
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzRichEditBar>& b);

    TQzCustomRichEdit* FRichEdit = nullptr;
};

// The tool bar of an image: Image is the component whose picture it edits
// (any component with a picture, so a plain component reference).
class TQzImageBar : public TQzToolBarBase {
    QZ_CLASS(TQzImageBar, TQzToolBarBase)

public:
    explicit TQzImageBar(TComponent* owner) : TQzToolBarBase(owner) {}
    TComponent* Image() const { return FImage; }
    void SetImage(TComponent* value);
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzImageBar>& b);

    TComponent* FImage = nullptr;
};

// ---- Status bar ----------------------------------------------------------------

enum TStatusPanelBevel { pbNone, pbLowered, pbRaised };
const TTypeInfo* TypeInfo_TStatusPanelBevel();

enum TStatusPanelStyle { psText, psOwnerDraw };
const TTypeInfo* TypeInfo_TStatusPanelStyle();

// A panel shows its Value, converted by its own data type, or its caption.
class TQzStatusBarPanel : public TQzCollectionItem {
    QZ_CLASS(TQzStatusBarPanel, TQzCollectionItem)

public:
    explicit TQzStatusBarPanel(TCollection* collection) : TQzCollectionItem(collection) {}
    TQzDataType GetDataType() const override { return FDataType; }
    void SetDataType(TQzDataType value) { FDataType = value; }
    Integer Width() const { return FWidth; }
    void SetWidth(Integer value) { FWidth = value; }
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TQzStatusBarPanel>& b);

    TAlignment FAlignment = taLeftJustify;
    TStatusPanelBevel FBevel = pbLowered;
    TQzDataType FDataType = qdtString;
    TStatusPanelStyle FStyle = psText;
    Integer FWidth = 50;
};

class TQzStatusBar : public TQzWinControl {
    QZ_CLASS(TQzStatusBar, TQzWinControl)

public:
    explicit TQzStatusBar(TComponent* owner);
    TQzCollection* Panels() const { return FPanels.get(); }
    TQzStatusBarPanel* Panel(int index) const { return static_cast<TQzStatusBarPanel*>(FPanels->Items(index)); }

private:
    static void DeclareProperties(TClassBuilder<TQzStatusBar>& b);

    std::unique_ptr<TQzCollection> FPanels;
    bool FSimplePanel = false;
    bool FSizeGrip = true;
};

// ---- Splitter, progress and scroll bars --------------------------------------------

enum TResizeStyle { rsNone, rsLine, rsUpdate, rsPattern };
const TTypeInfo* TypeInfo_TResizeStyle();

class TQzSplitter : public TQzGraphicControl {
    QZ_CLASS(TQzSplitter, TQzGraphicControl)

public:
    explicit TQzSplitter(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzSplitter>& b);

    bool FAutoSnap = true;
    bool FBeveled = false;
    Integer FMinSize = 30;
    TResizeStyle FResizeStyle = rsPattern;
};

enum TProgressBarOrientation { pbHorizontal, pbVertical };
const TTypeInfo* TypeInfo_TProgressBarOrientation();

class TQzProgressBar : public TQzWinControl {
    QZ_CLASS(TQzProgressBar, TQzWinControl)

public:
    explicit TQzProgressBar(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzProgressBar>& b);

    Integer FMax = 100;
    Integer FMin = 0;
    TProgressBarOrientation FOrientation = pbHorizontal;
    Integer FPosition = 0;
    bool FSmooth = false;
    Integer FStep = 10;
};

class TQzExtScrollBar : public TQzWinControl {
    QZ_CLASS(TQzExtScrollBar, TQzWinControl)

public:
    explicit TQzExtScrollBar(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzExtScrollBar>& b);

    TScrollBarKind FKind = sbHorizontal;
    Integer FLargeChange = 1;
    Integer FMax = 100;
    Integer FMin = 0;
    Integer FPageSize = 0;
    Integer FPosition = 0;
    Integer FSmallChange = 1;
};

// ---- Sets group --------------------------------------------------------------------

// A group of choices, each a collection entry, with which the user picks
// the display sets the application uses.
class TQzSetsGroup : public TQzWinControl {
    QZ_CLASS(TQzSetsGroup, TQzWinControl)

public:
    explicit TQzSetsGroup(TComponent* owner);
    TQzCollection* Items() const { return FItems.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzSetsGroup>& b);

    std::unique_ptr<TQzCollection> FItems;
    Integer FColumns = 1;
};
