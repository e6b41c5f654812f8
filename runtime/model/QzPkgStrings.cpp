#include "runtime/model/QzPkgStrings.h"

#include "runtime/model/QzPkgStream.h"

using namespace QzPkgStream;

// ---------------------------------------------------------------------------
// Items

void TQzPkgStringsLabel::DeclareProperties(TClassBuilder<TQzPkgStringsLabel>& b)
{
    b.Property("Id", &TQzPkgStringsLabel::Id, &TQzPkgStringsLabel::SetId).NoDefault();
    b.Property("Text", &TQzPkgStringsLabel::Text, &TQzPkgStringsLabel::SetText);
    b.Property("Hint", &TQzPkgStringsLabel::Hint, &TQzPkgStringsLabel::SetHint);
    b.Property("Protected", &TQzPkgStringsLabel::Protected, &TQzPkgStringsLabel::SetProtected).Default(false);
}

void TQzPkgStringsLabel::SetText(const AnsiString& value)
{
    ChangeField(FText, value);
}

void TQzPkgStringsLabel::SetHint(const AnsiString& value)
{
    ChangeField(FHint, value);
}

// Copies the data, not the Id: two items of one list cannot share it.
void TQzPkgStringsLabel::Assign(TPersistent* source)
{
    if (auto* other = dynamic_cast<TQzPkgStringsLabel*>(source)) {
        SetText(other->FText);
        SetHint(other->FHint);
        SetProtected(other->Protected());
        return;
    }
    TQzPkgIdItem::Assign(source);
}

void TQzPkgStringsTextItem::DeclareProperties(TClassBuilder<TQzPkgStringsTextItem>& b)
{
    b.Property("Id", &TQzPkgStringsTextItem::Id, &TQzPkgStringsTextItem::SetId).NoDefault();
    b.Property("Text", &TQzPkgStringsTextItem::Text, &TQzPkgStringsTextItem::SetText);
    b.Property("Protected", &TQzPkgStringsTextItem::Protected, &TQzPkgStringsTextItem::SetProtected).Default(false);
}

void TQzPkgStringsTextItem::SetText(const AnsiString& value)
{
    ChangeField(FText, value);
}

void TQzPkgStringsTextItem::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzPkgStringsTextItem*>(source);
    if (other && other->ClassType() == ClassType()) {
        SetText(other->FText);
        SetProtected(other->Protected());
        return;
    }
    TQzPkgIdItem::Assign(source);
}

// ---------------------------------------------------------------------------
// Collections

TQzPkgStringsLabel* TQzPkgStringsLabels::Add(Integer id, const AnsiString& text, const AnsiString& hint)
{
    CheckChange();
    CheckNewId(id);
    BeginUpdate();
    auto* item = new TQzPkgStringsLabel(this, id);
    item->SetText(text);
    item->SetHint(hint);
    EndUpdate();
    return item;
}

TQzPkgStringsLabel* TQzPkgStringsLabels::FindLabel(const AnsiString& text) const
{
    for (int i = 0; i < Count(); ++i)
        if (GetItems(i)->Text() == text)
            return GetItems(i);
    return nullptr;
}

TQzPkgStringsMessage* TQzPkgStringsMessages::Add(Integer id, const AnsiString& text)
{
    CheckChange();
    CheckNewId(id);
    BeginUpdate();
    auto* item = new TQzPkgStringsMessage(this, id);
    item->SetText(text);
    EndUpdate();
    return item;
}

TQzPkgStringsText* TQzPkgStringsTexts::Add(Integer id, const AnsiString& text)
{
    CheckChange();
    CheckNewId(id);
    BeginUpdate();
    auto* item = new TQzPkgStringsText(this, id);
    item->SetText(text);
    EndUpdate();
    return item;
}

// ---------------------------------------------------------------------------
// The package

void TQzPkgStrings::DeclareProperties(TClassBuilder<TQzPkgStrings>& b)
{
    b.Property("PkgName", &TQzPkgStrings::PkgName, &TQzPkgStrings::SetPkgName);
    b.Property("Active", &TQzPkgStrings::Active, &TQzPkgStrings::SetActive).Default(true);
}

TQzPkgStrings::TQzPkgStrings(TComponent* owner) : TQzPkgInfo(owner)
{
    JoinRegistry(pkStrings);
}

TQzPkgStrings::~TQzPkgStrings()
{
    LeaveRegistry();
}

void TQzPkgStrings::Clear()
{
    CheckChange();
    FLabels.BeginUpdate();
    FLabels.Clear();
    FMessages.Clear();
    FTexts.Clear();
    FLabels.EndUpdate();
}

bool TQzPkgStrings::IsEmpty() const
{
    return FLabels.Count() == 0 && FMessages.Count() == 0 && FTexts.Count() == 0;
}

// Layout (version 1), after the common header:
//   ( Id Text Hint Protected )*   labels, in list order
//   ( Id Text Protected )*        messages
//   ( Id Text Protected )*        texts
void TQzPkgStrings::xSaveToStream(TWriter* writer)
{
    TWriter& w = *writer;
    WriteContentHeader(w, DataVersion, Placement());
    w.WriteListBegin();
    for (int i = 0; i < FLabels.Count(); ++i) {
        const TQzPkgStringsLabel* item = FLabels.GetItems(i);
        w.WriteInteger(item->Id());
        WriteText(w, item->Text());
        WriteText(w, item->Hint());
        w.WriteBoolean(item->Protected());
    }
    w.WriteListEnd();
    w.WriteListBegin();
    for (int i = 0; i < FMessages.Count(); ++i) {
        const TQzPkgStringsMessage* item = FMessages.GetItems(i);
        w.WriteInteger(item->Id());
        WriteText(w, item->Text());
        w.WriteBoolean(item->Protected());
    }
    w.WriteListEnd();
    w.WriteListBegin();
    for (int i = 0; i < FTexts.Count(); ++i) {
        const TQzPkgStringsText* item = FTexts.GetItems(i);
        w.WriteInteger(item->Id());
        WriteText(w, item->Text());
        w.WriteBoolean(item->Protected());
    }
    w.WriteListEnd();
}

void TQzPkgStrings::xLoadFromStream(TReader* reader)
{
    TReader& r = *reader;
    Integer version = 0;
    const TQzWindowPlacement placement = ReadContentHeader(r, DataVersion, version);

    // Read whole into free-standing lists first, so a failure changes nothing.
    TQzPkgStringsLabels labels(nullptr);
    TQzPkgStringsMessages messages(nullptr);
    TQzPkgStringsTexts texts(nullptr);
    r.ReadListBegin();
    while (!r.EndOfList()) {
        Checked(r, [&] {
            const Integer id = r.ReadInteger();
            AnsiString text = ReadText(r);
            AnsiString hint = ReadText(r);
            labels.Add(id, text, hint)->SetProtected(r.ReadBoolean());
        });
    }
    r.ReadListEnd();
    r.ReadListBegin();
    while (!r.EndOfList()) {
        Checked(r, [&] {
            const Integer id = r.ReadInteger();
            AnsiString text = ReadText(r);
            messages.Add(id, text)->SetProtected(r.ReadBoolean());
        });
    }
    r.ReadListEnd();
    r.ReadListBegin();
    while (!r.EndOfList()) {
        Checked(r, [&] {
            const Integer id = r.ReadInteger();
            AnsiString text = ReadText(r);
            texts.Add(id, text)->SetProtected(r.ReadBoolean());
        });
    }
    r.ReadListEnd();

    FLabels.TakeItems(labels);
    FMessages.TakeItems(messages);
    FTexts.TakeItems(texts);
    SetPlacement(placement);
    Change();
}

void TQzPkgStrings::TakeContents(TQzPkgStrings& source)
{
    FLabels.TakeItems(source.FLabels);
    FMessages.TakeItems(source.FMessages);
    FTexts.TakeItems(source.FTexts);
    SetPlacement(source.Placement());
    Change();
}
