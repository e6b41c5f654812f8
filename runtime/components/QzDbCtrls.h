#pragma once
// The data-aware controls: each shows and edits one field (DataField) of the
// data source named by DataSource, on the common base of its plain sibling.
// The navigator and the data buttons act on a data source's records.

#include "runtime/components/QzExtCtrls.h"
#include "runtime/components/QzPages.h"
#include "runtime/components/QzStdCtrls.h"

#define QZ_DB_CONTROL(Name, Base)                                         \
    class Name : public Base, public TQzDataLink {                        \
        QZ_CLASS(Name, Base)                                              \
                                                                          \
    public:                                                               \
        explicit Name(TComponent* owner) : Base(owner) {}                 \
                                                                          \
    private:                                                              \
        static void DeclareProperties(TClassBuilder<Name>& b)             \
        {                                                                 \
            QzDeclareDataLink(b);                                         \
        }                                                                 \
    };

QZ_DB_CONTROL(TQzDbLabel, TQzCustomLabel)
QZ_DB_CONTROL(TQzDbEdit, TQzCustomEdit)
QZ_DB_CONTROL(TQzDbComboBox, TQzCustomComboBox)
QZ_DB_CONTROL(TQzDbListBox, TQzCustomListBox)
QZ_DB_CONTROL(TQzDbMemo, TQzCustomMemo)
QZ_DB_CONTROL(TQzDbRichEdit, TQzCustomRichEdit)
QZ_DB_CONTROL(TQzDbImage, TQzCustomImage)
QZ_DB_CONTROL(TQzDbFocusImage, TQzCustomFocusImage)
QZ_DB_CONTROL(TQzDbCheckBox, TQzCustomCheckBox)
QZ_DB_CONTROL(TQzDbRadioGroup, TQzCustomRadioGroup)
// The field holds the Id of the picture in the package PkgName.
QZ_DB_CONTROL(TQzDbPkgImage, TQzCustomPkgImage)
#undef QZ_DB_CONTROL

// The field's value chooses the tab whose Value it equals.
class TQzDbPageControl : public TQzCustomPageControl, public TQzValueHolder, public TQzDataLink {
    QZ_CLASS(TQzDbPageControl, TQzCustomPageControl)

public:
    explicit TQzDbPageControl(TComponent* owner) : TQzCustomPageControl(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzDbPageControl>& b);
};

enum TQzNavigateBtn { nbFirst, nbPrior, nbNext, nbLast, nbInsert, nbDelete, nbEdit, nbPost, nbCancel, nbRefresh };
using TQzNavigateBtns = TEnumSet<TQzNavigateBtn>;
const TTypeInfo* TypeInfo_TQzNavigateBtn();
const TTypeInfo* TypeInfo_TQzNavigateBtns();

class TQzDbNavigator : public TQzWinControl, public TQzDataLink {
    QZ_CLASS(TQzDbNavigator, TQzWinControl)

public:
    explicit TQzDbNavigator(TComponent* owner);
    ~TQzDbNavigator() override;
    TQzNavigateBtns VisibleButtons() const { return FVisibleButtons; }
    void SetVisibleButtons(TQzNavigateBtns value) { FVisibleButtons = value; }
    // Asked before a record is deleted, when ConfirmDelete is set.
    TQzMemoryMessage* DeleteMessage() const { return FDeleteMessage.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzDbNavigator>& b);

    TQzNavigateBtns FVisibleButtons;
    bool FConfirmDelete = true;
    std::unique_ptr<TQzMemoryMessage> FDeleteMessage;
    bool FFlat = false;
};

// Buttons that act on the records of DataSource; Items are the fields
// they fill (each entry's Value a field name and its caption the text).
class TQzDbBitBtn : public TQzCustomBitBtn, public TQzDataLink {
    QZ_CLASS(TQzDbBitBtn, TQzCustomBitBtn)

public:
    explicit TQzDbBitBtn(TComponent* owner);
    TQzCollection* Items() const { return FItems.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzDbBitBtn>& b);

    std::unique_ptr<TQzCollection> FItems;
};

class TQzDbSpeedButton : public TQzCustomSpeedButton, public TQzDataLink {
    QZ_CLASS(TQzDbSpeedButton, TQzCustomSpeedButton)

public:
    explicit TQzDbSpeedButton(TComponent* owner);
    TQzCollection* Items() const { return FItems.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzDbSpeedButton>& b);

    std::unique_ptr<TQzCollection> FItems;
};
