#include "runtime/components/QzDbCtrls.h"

void TQzDbPageControl::DeclareProperties(TClassBuilder<TQzDbPageControl>& b)
{
    QzDeclareDataLink(b);
    QzDeclareValue(b);
}

const TTypeInfo* TypeInfo_TQzNavigateBtn()
{
    static const TTypeInfo* t = DefineEnumType("TQzNavigateBtn", {"nbFirst", "nbPrior", "nbNext", "nbLast", "nbInsert",
                                                                  "nbDelete", "nbEdit", "nbPost", "nbCancel",
                                                                  "nbRefresh"});
    return t;
}

const TTypeInfo* TypeInfo_TQzNavigateBtns()
{
    static const TTypeInfo* t = DefineSetType("TQzNavigateBtns", TypeInfo_TQzNavigateBtn());
    return t;
}

namespace {

const TQzNavigateBtns AllNavigateBtns{nbFirst, nbPrior,  nbNext, nbLast,   nbInsert,
                                      nbDelete, nbEdit, nbPost, nbCancel, nbRefresh};

}  // namespace

void TQzDbNavigator::DeclareProperties(TClassBuilder<TQzDbNavigator>& b)
{
    b.Property("ConfirmDelete", &TQzDbNavigator::FConfirmDelete).Default(true);
    QzDeclareDataLink(b, false);
    QzDeclareOwned<TQzDbNavigator, TQzMemoryMessage>(b, "DeleteMessage",
                                                     [](TQzDbNavigator& n) { return n.DeleteMessage(); });
    b.Property("Flat", &TQzDbNavigator::FFlat).Default(false);
    QzDeclarePrivilege(b);
    b.Set("VisibleButtons", TypeInfo_TQzNavigateBtns(), &TQzDbNavigator::VisibleButtons,
          &TQzDbNavigator::SetVisibleButtons, AllNavigateBtns);
    DeclareClickEvents(b);
}

TQzDbNavigator::TQzDbNavigator(TComponent* owner)
    : TQzWinControl(owner), FVisibleButtons(AllNavigateBtns), FDeleteMessage(std::make_unique<TQzMemoryMessage>())
{
    SetBounds(0, 0, 240, 25);
}

TQzDbNavigator::~TQzDbNavigator() = default;

void TQzDbBitBtn::DeclareProperties(TClassBuilder<TQzDbBitBtn>& b)
{
    QzDeclareDataLink(b, false);
    QzDeclareOwned<TQzDbBitBtn, TQzCollection>(b, "Items", [](TQzDbBitBtn& c) { return c.Items(); });
}

TQzDbBitBtn::TQzDbBitBtn(TComponent* owner) : TQzCustomBitBtn(owner), FItems(std::make_unique<TQzCollection>(this)) {}

void TQzDbSpeedButton::DeclareProperties(TClassBuilder<TQzDbSpeedButton>& b)
{
    QzDeclareDataLink(b, false);
    QzDeclareOwned<TQzDbSpeedButton, TQzCollection>(b, "Items", [](TQzDbSpeedButton& c) { return c.Items(); });
}

TQzDbSpeedButton::TQzDbSpeedButton(TComponent* owner)
    : TQzCustomSpeedButton(owner), FItems(std::make_unique<TQzCollection>(this))
{
}
