#include "runtime/model/QzPkgImages.h"

#include "runtime/model/QzPkgStream.h"

#include "rtl/Streams.h"

#include <algorithm>
#include <limits>

// ---------------------------------------------------------------------------
// TQzPkgExtensions

const std::string& TQzPkgExtensions::Get(const AnsiString& name) const
{
    static const std::string none;
    for (const auto& [key, value] : FBlocks)
        if (key == name)
            return value;
    return none;
}

bool TQzPkgExtensions::Has(const AnsiString& name) const
{
    return std::any_of(FBlocks.begin(), FBlocks.end(), [&](const auto& b) { return b.first == name; });
}

void TQzPkgExtensions::Set(const AnsiString& name, const std::string& value)
{
    auto it = std::find_if(FBlocks.begin(), FBlocks.end(), [&](const auto& b) { return b.first == name; });
    if (value.empty()) {
        if (it != FBlocks.end())
            FBlocks.erase(it);
    } else if (it != FBlocks.end()) {
        it->second = value;
    } else {
        FBlocks.emplace_back(name, value);
    }
}

// ( Name Bytes )*
void TQzPkgExtensions::Transfer(TQzPkgTransfer& t)
{
    TQzPkgExtensions read;
    t.Items(
        static_cast<int>(FBlocks.size()), [&](int i) { return FBlocks[static_cast<size_t>(i)]; },
        [&](std::pair<AnsiString, std::string>& block) {
            t.Value(block.first);
            t.Binary(block.second);
        },
        [&](std::pair<AnsiString, std::string>& block) {
            if (block.first.empty() || read.Has(block.first))
                throw EQzPkgError("Invalid or repeated extension name \"" + block.first + "\"");
            read.FBlocks.push_back(std::move(block));
        });
    if (t.Loading())
        *this = std::move(read);
}

// ---------------------------------------------------------------------------
// TQzPkgImagesImage

void TQzPkgImagesImage::DeclareProperties(TClassBuilder<TQzPkgImagesImage>& b)
{
    b.Property("Id", &TQzPkgImagesImage::Id, &TQzPkgImagesImage::SetId).NoDefault();
    b.Property("Protected", &TQzPkgImagesImage::Protected, &TQzPkgImagesImage::SetProtected).Default(false);
    b.Property("GraphicClass", &TQzPkgImagesImage::GraphicClass);
    b.Property("Width", &TQzPkgImagesImage::Width);
    b.Property("Height", &TQzPkgImagesImage::Height);
}

void TQzPkgImagesImage::SetPicture(const std::string& data, const AnsiString& graphicClass, Integer width,
                                   Integer height)
{
    CheckChange();
    FPictureData = data;
    FGraphicClass = data.empty() ? AnsiString() : graphicClass;
    FWidth = data.empty() ? 0 : std::max(0, width);
    FHeight = data.empty() ? 0 : std::max(0, height);
    Changed();
}

std::unique_ptr<TMemoryStream> TQzPkgImagesImage::ReadStream() const
{
    return std::make_unique<TMemoryStream>(FPictureData);
}

void TQzPkgImagesImage::Clear()
{
    if (Empty() && FExtensions.Empty())
        return;
    CheckChange();
    FPictureData.clear();
    FGraphicClass.clear();
    FWidth = FHeight = 0;
    FExtensions.Clear();
    Changed();
}

void TQzPkgImagesImage::SetExtension(const AnsiString& name, const std::string& value)
{
    CheckChange();
    FExtensions.Set(name, value);
    Changed();
}

void TQzPkgImagesImage::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzPkgImagesImage*>(source);
    if (!other) {
        TQzPkgIdItem::Assign(source);
        return;
    }
    if (other == this)
        return;
    CheckChange();
    FPictureData = other->FPictureData;
    FGraphicClass = other->FGraphicClass;
    FWidth = other->FWidth;
    FHeight = other->FHeight;
    FExtensions = other->FExtensions;
    SetProtected(other->Protected());
    Changed();
}

// Protected GraphicClass Width Height Picture Extensions; read only into
// an image of a free-standing list.
void TQzPkgImagesImage::TransferData(TQzPkgTransfer& t)
{
    bool isProtected = Protected();
    t.Value(isProtected);
    if (t.Loading())
        SetProtected(isProtected);
    t.Value(FGraphicClass);
    t.Value(FWidth, 0, std::numeric_limits<Integer>::max(), "picture width");
    t.Value(FHeight, 0, std::numeric_limits<Integer>::max(), "picture height");
    t.Binary(FPictureData);
    FExtensions.Transfer(t);
}

// ---------------------------------------------------------------------------
// Collection and package

TQzPkgImagesImage* TQzPkgImagesImages::Add(Integer id)
{
    CheckChange();
    CheckNewId(id);
    return new TQzPkgImagesImage(this, id);
}

void TQzPkgImages::DeclareProperties(TClassBuilder<TQzPkgImages>& b)
{
    b.Property("PkgName", &TQzPkgImages::PkgName, &TQzPkgImages::SetPkgName);
    b.Property("Active", &TQzPkgImages::Active, &TQzPkgImages::SetActive).Default(true);
}

TQzPkgImages::TQzPkgImages(TComponent* owner) : TQzPkgInfo(owner)
{
    JoinRegistry(pkImages);
}

TQzPkgImages::~TQzPkgImages()
{
    LeaveRegistry();
}

void TQzPkgImages::SetExtension(const AnsiString& name, const std::string& value)
{
    CheckChange();
    FExtensions.Set(name, value);
    Change();
}

void TQzPkgImages::Clear()
{
    CheckChange();
    FImages.Clear();
    if (!FExtensions.Empty()) {
        FExtensions.Clear();
        Change();
    }
}

bool TQzPkgImages::IsEmpty() const
{
    return FImages.Count() == 0 && FExtensions.Empty();
}

void TQzPkgImages::TakeContents(TQzPkgImages& source)
{
    FImages.TakeItems(source.FImages);
    FExtensions = std::move(source.FExtensions);
    source.FExtensions.Clear();
    SetPlacement(source.Placement());
    Change();
}

namespace {

// An image as it travels: its Id, then its data read into the image made
// for that Id.
struct TImageEntry {
    Integer Id = 0;
    TQzPkgImagesImage* Image = nullptr;
};

}  // namespace

// Layout (version 1), after the common header:
//   Extensions                        package-wide blocks
//   ( Id Protected GraphicClass Width Height Picture Extensions )*
void TQzPkgImages::Transfer(TQzPkgTransfer& t)
{
    const TQzWindowPlacement placement = TransferContentHeader(t, DataVersion);
    TQzPkgExtensions extensions = t.Loading() ? TQzPkgExtensions() : FExtensions;
    extensions.Transfer(t);
    TQzPkgImagesImages images(nullptr);
    t.Items(
        FImages.Count(), [&](int i) { return TImageEntry{FImages.GetItems(i)->Id(), FImages.GetItems(i)}; },
        [&](TImageEntry& e) {
            t.Value(e.Id);
            if (t.Loading())
                e.Image = images.Add(e.Id);
            e.Image->TransferData(t);
        },
        [](const TImageEntry&) {});
    if (!t.EndBlock())
        return;
    FImages.TakeItems(images);
    FExtensions = std::move(extensions);
    CommitContents(placement);
}

