#include "runtime/components/QzBars.h"

// ---- Tool bars ---------------------------------------------------------------------

void TQzToolBarBase::DeclareProperties(TClassBuilder<TQzToolBarBase>& b)
{
    b.Redeclare("Align").Default(alTop);
    b.Property("Flat", &TQzToolBarBase::FFlat).Default(true);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsBackGround);
}

TQzToolBarBase::TQzToolBarBase(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 185, 29);
    SetAlign(alTop);
}

void TQzMemoBar::DeclareProperties(TClassBuilder<TQzMemoBar>& b)
{
    b.Property("Memo", &TQzMemoBar::Memo, &TQzMemoBar::SetMemo);
}

void TQzMemoBar::Notification(TComponent* component, TOperation operation)
{
    TQzToolBarBase::Notification(component, operation);
    if (operation == opRemove)
        QzClearReference(FMemo, component);
}

void TQzRichEditBar::DeclareProperties(TClassBuilder<TQzRichEditBar>& b)
{
    b.Property("RichEdit", &TQzRichEditBar::RichEdit, &TQzRichEditBar::SetRichEdit);
}

void TQzRichEditBar::Notification(TComponent* component, TOperation operation)
{
    TQzToolBarBase::Notification(component, operation);
    if (operation == opRemove)
        QzClearReference(FRichEdit, component);
}

void TQzImageBar::DeclareProperties(TClassBuilder<TQzImageBar>& b)
{
    b.Property("Image", &TQzImageBar::Image, &TQzImageBar::SetImage);
}

void TQzImageBar::SetImage(TComponent* value)
{
    if (value == this)
        throw EInvalidOperation("An image bar cannot edit itself");
    QzSetReference(this, FImage, value);
}

void TQzImageBar::Notification(TComponent* component, TOperation operation)
{
    TQzToolBarBase::Notification(component, operation);
    if (operation == opRemove)
        QzClearReference(FImage, component);
}

// ---- Status bar ----------------------------------------------------------------

const TTypeInfo* TypeInfo_TStatusPanelBevel()
{
    static const TTypeInfo* t = DefineEnumType("TStatusPanelBevel", {"pbNone", "pbLowered", "pbRaised"});
    return t;
}

const TTypeInfo* TypeInfo_TStatusPanelStyle()
{
    static const TTypeInfo* t = DefineEnumType("TStatusPanelStyle", {"psText", "psOwnerDraw"});
    return t;
}

void TQzStatusBarPanel::DeclareProperties(TClassBuilder<TQzStatusBarPanel>& b)
{
    b.Enum("Alignment", TypeInfo_TAlignment(), &TQzStatusBarPanel::FAlignment, &TQzStatusBarPanel::FAlignment,
           taLeftJustify);
    b.Enum("Bevel", TypeInfo_TStatusPanelBevel(), &TQzStatusBarPanel::FBevel, &TQzStatusBarPanel::FBevel, pbLowered);
    b.Enum("DataType", TypeInfo_TQzDataType(), &TQzStatusBarPanel::FDataType, &TQzStatusBarPanel::FDataType,
           qdtString);
    b.Enum("Style", TypeInfo_TStatusPanelStyle(), &TQzStatusBarPanel::FStyle, &TQzStatusBarPanel::FStyle, psText);
    b.Property("Width", &TQzStatusBarPanel::Width, &TQzStatusBarPanel::SetWidth).Default(50);
}

void TQzStatusBarPanel::Assign(TPersistent* source)
{
    TQzCollectionItem::Assign(source);
    if (auto* panel = dynamic_cast<TQzStatusBarPanel*>(source)) {
        FAlignment = panel->FAlignment;
        FBevel = panel->FBevel;
        FDataType = panel->FDataType;
        FStyle = panel->FStyle;
        FWidth = panel->FWidth;
    }
}

void TQzStatusBar::DeclareProperties(TClassBuilder<TQzStatusBar>& b)
{
    b.Redeclare("Align").Default(alBottom);
    QzDeclareOwned<TQzStatusBar, TQzCollection>(b, "Panels", [](TQzStatusBar& s) { return s.Panels(); });
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
    b.Property("SimplePanel", &TQzStatusBar::FSimplePanel).Default(false);
    b.Property("SizeGrip", &TQzStatusBar::FSizeGrip).Default(true);
    DeclareClickEvents(b);
}

TQzStatusBar::TQzStatusBar(TComponent* owner)
    : TQzWinControl(owner), FPanels(std::make_unique<TQzCollection>(this, TQzStatusBarPanel::ClassInfo()))
{
    SetBounds(0, 0, 185, 19);
    SetAlign(alBottom);
}

// ---- Splitter, progress and scroll bars --------------------------------------------

const TTypeInfo* TypeInfo_TResizeStyle()
{
    static const TTypeInfo* t = DefineEnumType("TResizeStyle", {"rsNone", "rsLine", "rsUpdate", "rsPattern"});
    return t;
}

void TQzSplitter::DeclareProperties(TClassBuilder<TQzSplitter>& b)
{
    b.Redeclare("Align").Default(alLeft);
    b.Redeclare("Cursor").Default(crHSplit);
    b.Property("AutoSnap", &TQzSplitter::FAutoSnap).Default(true);
    b.Property("Beveled", &TQzSplitter::FBeveled).Default(false);
    b.Property("MinSize", &TQzSplitter::FMinSize).Default(30);
    b.Enum("ResizeStyle", TypeInfo_TResizeStyle(), &TQzSplitter::FResizeStyle, &TQzSplitter::FResizeStyle, rsPattern);
    QzDeclareSets(b, qsColor);
}

TQzSplitter::TQzSplitter(TComponent* owner) : TQzGraphicControl(owner)
{
    SetBounds(0, 0, 3, 100);
    SetAlign(alLeft);
    SetCursor(crHSplit);
}

const TTypeInfo* TypeInfo_TProgressBarOrientation()
{
    static const TTypeInfo* t = DefineEnumType("TProgressBarOrientation", {"pbHorizontal", "pbVertical"});
    return t;
}

void TQzProgressBar::DeclareProperties(TClassBuilder<TQzProgressBar>& b)
{
    b.Property("Max", &TQzProgressBar::FMax).Default(100);
    b.Property("Min", &TQzProgressBar::FMin).Default(0);
    b.Enum("Orientation", TypeInfo_TProgressBarOrientation(), &TQzProgressBar::FOrientation,
           &TQzProgressBar::FOrientation, pbHorizontal);
    b.Property("Position", &TQzProgressBar::FPosition).Default(0);
    QzDeclareSets(b, qsColor | qsBackGround);
    b.Property("Smooth", &TQzProgressBar::FSmooth).Default(false);
    b.Property("Step", &TQzProgressBar::FStep).Default(10);
}

TQzProgressBar::TQzProgressBar(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 150, 16);
}

void TQzExtScrollBar::DeclareProperties(TClassBuilder<TQzExtScrollBar>& b)
{
    b.Redeclare("TabStop").Default(true);
    b.Enum("Kind", TypeInfo_TScrollBarKind(), &TQzExtScrollBar::FKind, &TQzExtScrollBar::FKind, sbHorizontal);
    b.Property("LargeChange", &TQzExtScrollBar::FLargeChange).Default(1);
    b.Property("Max", &TQzExtScrollBar::FMax).Default(100);
    b.Property("Min", &TQzExtScrollBar::FMin).Default(0);
    b.Property("PageSize", &TQzExtScrollBar::FPageSize).Default(0);
    b.Property("Position", &TQzExtScrollBar::FPosition).Default(0);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsColor | qsBackGround);
    b.Property("SmallChange", &TQzExtScrollBar::FSmallChange).Default(1);
    DeclareEvent(b, "OnChange");
}

TQzExtScrollBar::TQzExtScrollBar(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 121, 17);
    SetTabStop(true);
}

// ---- Sets group --------------------------------------------------------------------

void TQzSetsGroup::DeclareProperties(TClassBuilder<TQzSetsGroup>& b)
{
    QzDeclareLabel(b);
    b.Property("Columns", &TQzSetsGroup::FColumns).Default(1);
    QzDeclareOwned<TQzSetsGroup, TQzCollection>(b, "Items", [](TQzSetsGroup& g) { return g.Items(); });
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
    DeclareClickEvents(b);
}

TQzSetsGroup::TQzSetsGroup(TComponent* owner) : TQzWinControl(owner), FItems(std::make_unique<TQzCollection>(this))
{
    SetBounds(0, 0, 185, 105);
}
