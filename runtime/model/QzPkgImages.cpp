#include "runtime/model/QzPkgImages.h"

#include "runtime/model/QzPkgStream.h"

#include "rtl/Streams.h"

#include <algorithm>

using namespace QzPkgStream;

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
void TQzPkgExtensions::Write(TWriter& w) const
{
    w.WriteListBegin();
    for (const auto& [name, value] : FBlocks) {
        WriteText(w, name);
        w.WriteBinary(value);
    }
    w.WriteListEnd();
}

void TQzPkgExtensions::Read(TReader& r)
{
    TQzPkgExtensions read;
    r.ReadListBegin();
    while (!r.EndOfList()) {
        const size_t at = r.Position();
        AnsiString name = ReadText(r);
        std::string value = r.ReadBinary();
        if (name.empty() || read.Has(name))
            r.Error("Invalid or repeated extension name \"" + name + "\"", at);
        read.FBlocks.emplace_back(std::move(name), std::move(value));
    }
    r.ReadListEnd();
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

// Protected GraphicClass Width Height Picture Extensions
void TQzPkgImagesImage::WriteData(TWriter& w) const
{
    w.WriteBoolean(Protected());
    WriteText(w, FGraphicClass);
    w.WriteInteger(FWidth);
    w.WriteInteger(FHeight);
    w.WriteBinary(FPictureData);
    FExtensions.Write(w);
}

void TQzPkgImagesImage::ReadData(TReader& r)
{
    SetProtected(r.ReadBoolean());
    FGraphicClass = ReadText(r);
    const size_t at = r.Position();
    FWidth = r.ReadInteger();
    FHeight = r.ReadInteger();
    if (FWidth < 0 || FHeight < 0)
        r.Error("Invalid picture size", at);
    FPictureData = r.ReadBinary();
    FExtensions.Read(r);
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

// Layout (version 1), after the common header:
//   Extensions                        package-wide blocks
//   ( Id Protected GraphicClass Width Height Picture Extensions )*
void TQzPkgImages::xSaveToStream(TWriter* writer)
{
    TWriter& w = *writer;
    WriteContentHeader(w, DataVersion, Placement());
    FExtensions.Write(w);
    w.WriteListBegin();
    for (int i = 0; i < FImages.Count(); ++i) {
        const TQzPkgImagesImage* image = FImages.GetItems(i);
        w.WriteInteger(image->Id());
        image->WriteData(w);
    }
    w.WriteListEnd();
}

void TQzPkgImages::xLoadFromStream(TReader* reader)
{
    TReader& r = *reader;
    Integer version = 0;
    const TQzWindowPlacement placement = ReadContentHeader(r, DataVersion, version);
    TQzPkgExtensions extensions;
    extensions.Read(r);
    TQzPkgImagesImages images(nullptr);
    r.ReadListBegin();
    while (!r.EndOfList())
        Checked(r, [&] { images.Add(r.ReadInteger())->ReadData(r); });
    r.ReadListEnd();

    FImages.TakeItems(images);
    FExtensions = std::move(extensions);
    SetPlacement(placement);
    Change();
}
