#include "runtime/model/QzMemory.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"

// ---------------------------------------------------------------------------
// TQzMemoryRef

// "PkgName" comes before "Id": the packages manager finds a reference in a
// form's text as those two lines in that order.
void TQzMemoryRef::DeclareProperties(TClassBuilder<TQzMemoryRef>& b)
{
    b.Property("PkgName", &TQzMemoryRef::PkgName, &TQzMemoryRef::SetPkgName);
    b.Property("Id", &TQzMemoryRef::Id, &TQzMemoryRef::SetId).NoDefault().Stored(&TQzMemoryRef::IsIdStored);
}

TQzMemoryRef::TQzMemoryRef(const AnsiString& defaultPkgName, Integer defaultId, bool hasDefault)
    : FId(hasDefault ? IdDefault : IdNone),
      FDefaultPkgName(defaultPkgName),
      FDefaultId(defaultId),
      FHasDefault(hasDefault),
      FInitialId(FId)
{
}

void TQzMemoryRef::Changed()
{
    if (OnChange)
        OnChange();
}

void TQzMemoryRef::SetPkgName(const AnsiString& value)
{
    if (value == FPkgName)
        return;
    FPkgName = value;
    Changed();
}

void TQzMemoryRef::SetId(Integer value)
{
    if (value == FId)
        return;
    FId = value;
    Changed();
}

void TQzMemoryRef::PkgId(const AnsiString& pkgName, Integer id)
{
    if (pkgName == FPkgName && id == FId)
        return;
    FPkgName = pkgName;
    FId = id;
    Changed();
}

bool TQzMemoryRef::Defined() const
{
    return FId >= 0 || (FId == IdDefault && FHasDefault);
}

bool TQzMemoryRef::Resolve(AnsiString& pkgName, Integer& id) const
{
    if (FId >= 0) {
        pkgName = FPkgName;
        id = FId;
        return true;
    }
    if (FId == IdDefault && FHasDefault && FDefaultId >= 0) {
        pkgName = FDefaultPkgName;
        id = FDefaultId;
        return true;
    }
    return false;
}

bool TQzMemoryRef::InfoHead(AnsiString& head) const
{
    if (FId == IdDefault) {
        head = "(Default)";
        return false;
    }
    if (FId < 0) {
        head = "(None)";
        return false;
    }
    head = "(" + IntToStr(FId) + ", " + FPkgName + ")";
    return true;
}

AnsiString TQzMemoryRef::Info() const
{
    AnsiString head;
    InfoHead(head);
    return head;
}

// The defaults belong to the property, not to the value: they stay.
void TQzMemoryRef::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzMemoryRef*>(source);
    if (!other || other->ClassType() != ClassType()) {
        TPersistent::Assign(source);
        return;
    }
    PkgId(other->FPkgName, other->FId);
}

// ---------------------------------------------------------------------------
// Labels, messages, texts

namespace {

TQzPkgStrings* ResolveStrings(const TQzMemoryRef& ref, Integer& id)
{
    AnsiString pkgName;
    if (!ref.Resolve(pkgName, id))
        return nullptr;
    return QzFindPkgStrings(pkgName);
}

}  // namespace

const TQzPkgStringsLabel* TQzMemoryLabel::Item() const
{
    Integer id = 0;
    TQzPkgStrings* pkg = ResolveStrings(*this, id);
    return pkg ? pkg->Labels()->FindId(id) : nullptr;
}

AnsiString TQzMemoryLabel::Text() const
{
    const TQzPkgStringsLabel* item = Item();
    return item ? item->Text() : AnsiString();
}

AnsiString TQzMemoryLabel::Hint() const
{
    const TQzPkgStringsLabel* item = Item();
    return item ? item->Hint() : AnsiString();
}

AnsiString TQzMemoryLabel::Info() const
{
    AnsiString head;
    if (!InfoHead(head))
        return head;
    AnsiString info = head + " " + Text();
    const AnsiString hint = Hint();
    if (!hint.empty())
        info += " - " + hint;
    return info;
}

AnsiString TQzMemoryMessage::Text() const
{
    Integer id = 0;
    TQzPkgStrings* pkg = ResolveStrings(*this, id);
    const TQzPkgStringsMessage* item = pkg ? pkg->Messages()->FindId(id) : nullptr;
    return item ? item->Text() : AnsiString();
}

AnsiString TQzMemoryMessage::Info() const
{
    AnsiString head;
    return InfoHead(head) ? head + " " + Text() : head;
}

AnsiString TQzMemoryText::Text() const
{
    Integer id = 0;
    TQzPkgStrings* pkg = ResolveStrings(*this, id);
    const TQzPkgStringsText* item = pkg ? pkg->Texts()->FindId(id) : nullptr;
    return item ? item->Text() : AnsiString();
}

AnsiString TQzMemoryText::Info() const
{
    AnsiString head;
    return InfoHead(head) ? head + " " + Text() : head;
}

// ---------------------------------------------------------------------------
// Images

TQzMemoryImage::TQzMemoryImage(TQzPkgImagesImage* image) : FImage(image)
{
    if (image) {
        TQzPkgInfo* pkg = image->Package();
        PkgId(pkg ? pkg->PkgName() : AnsiString(), image->Id());
    }
}

TQzPkgImagesImage* TQzMemoryImage::Image() const
{
    if (FImage)
        return FImage;
    AnsiString pkgName;
    Integer id = 0;
    if (!Resolve(pkgName, id))
        return nullptr;
    TQzPkgImages* pkg = QzFindPkgImages(pkgName);
    return pkg ? pkg->Images()->FindId(id) : nullptr;
}

bool TQzMemoryImage::Empty() const
{
    const TQzPkgImagesImage* image = Image();
    return !image || image->Empty();
}

AnsiString TQzMemoryImage::Info() const
{
    AnsiString head;
    InfoHead(head);
    return head;
}

// ---------------------------------------------------------------------------
// Privileges

void TQzPrivilege::DeclareProperties(TClassBuilder<TQzPrivilege>& b)
{
    b.Property("Id", &TQzPrivilege::Id, &TQzPrivilege::SetId).Default(IdNone);
}

void TQzPrivilege::SetId(Integer value)
{
    if (value < 0)
        value = IdNone;
    if (value == FId)
        return;
    FId = value;
    if (OnChange)
        OnChange();
}

namespace {

const TQzPkgPrivilegesItem* PrivilegeItem(Integer id)
{
    TQzCApplication* app = QzCApp();
    if (id < 0 || !app || !app->Privileges())
        return nullptr;
    return app->Privileges()->FindId(id);
}

}  // namespace

TQzAccess TQzPrivilege::Access() const
{
    if (FId < 0)
        return qaRW;
    const TQzPkgPrivilegesItem* item = PrivilegeItem(FId);
    return item ? item->Access() : qaN;
}

AnsiString TQzPrivilege::Info() const
{
    const TQzPkgPrivilegesItem* item = PrivilegeItem(FId);
    return item ? item->DisplayText() : AnsiString();
}

void TQzPrivilege::Assign(TPersistent* source)
{
    if (auto* other = dynamic_cast<TQzPrivilege*>(source)) {
        SetId(other->FId);
        return;
    }
    TPersistent::Assign(source);
}

// ---------------------------------------------------------------------------
// Display sets

void TQzSetRef::DeclareProperties(TClassBuilder<TQzSetRef>& b)
{
    b.Property("Name", &TQzSetRef::Name, &TQzSetRef::SetName);
}

void TQzSetRef::SetName(const AnsiString& value)
{
    if (value == FName)
        return;
    FName = value;
    if (OnChange)
        OnChange();
}

void TQzSetRef::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzSetRef*>(source);
    if (!other || other->ClassType() != ClassType()) {
        TPersistent::Assign(source);
        return;
    }
    SetName(other->FName);
}

namespace {

TQzPkgDisplay* Display()
{
    TQzCApplication* app = QzCApp();
    return app ? app->PkgDisplay() : nullptr;
}

}  // namespace

TQzSetBackGround::TQzSetBackGround(const TQzDefaultSetBackGround* defaultSet, bool useDefault)
    : FDefault(defaultSet), FUseDefault(useDefault)
{
}

const TQzPkgDisplaySetBackGround* TQzSetBackGround::Found() const
{
    const TQzPkgDisplay* display = Display();
    return display ? display->SetsBackGround()->Find(Name()) : nullptr;
}

TQzBackGroundValues TQzSetBackGround::Values() const
{
    if (const TQzPkgDisplaySetBackGround* set = Found())
        return set->Values();
    return FUseDefault && FDefault ? FDefault->Values : TQzBackGroundValues{};
}

const TQzMemoryImage* TQzSetBackGround::Image() const
{
    const TQzPkgDisplaySetBackGround* set = Found();
    return set ? set->Image() : nullptr;
}

TQzSetColor::TQzSetColor(const TQzDefaultSetColor* defaultSet, bool useDefault)
    : FDefault(defaultSet), FUseDefault(useDefault)
{
}

const TQzPkgDisplaySetColor* TQzSetColor::Found() const
{
    const TQzPkgDisplay* display = Display();
    return display ? display->SetsColor()->Find(Name()) : nullptr;
}

TColor TQzSetColor::Color() const
{
    if (const TQzPkgDisplaySetColor* set = Found())
        return set->Color();
    return FUseDefault && FDefault ? FDefault->Color : TColor(0);
}

TQzSetFont::TQzSetFont(const TQzDefaultSetFont* defaultSet, bool useDefault)
    : FDefault(defaultSet), FUseDefault(useDefault)
{
}

const TQzPkgDisplaySetFont* TQzSetFont::Found() const
{
    const TQzPkgDisplay* display = Display();
    return display ? display->SetsFont()->Find(Name()) : nullptr;
}

TQzFontValues TQzSetFont::Values() const
{
    if (const TQzPkgDisplaySetFont* set = Found())
        return set->Values();
    return FUseDefault && FDefault ? FDefault->Values : TQzFontValues{};
}
