#pragma once
// The images package: pictures by Id. The model keeps each picture as the
// bytes of its file (PNG, JPEG, BMP, ...) with the name of its graphic
// class, plus named extension blocks (masks, regions, the mask editor's
// settings) that the picture code stores and reads back; the model carries
// them through forms and files untouched. Decoding, masks, regions and the
// clipboard live with the picture code, which builds on the accessors here.

#include "runtime/model/QzPkgCollection.h"
#include "runtime/model/QzPkgInfo.h"

#include <memory>
#include <utility>
#include <vector>

class TMemoryStream;

// Named blocks of bytes, kept in order; a name appears at most once.
class TQzPkgExtensions {
public:
    bool Empty() const { return FBlocks.empty(); }
    // Empty when absent.
    const std::string& Get(const AnsiString& name) const;
    bool Has(const AnsiString& name) const;
    // An empty value removes the block.
    void Set(const AnsiString& name, const std::string& value);
    void Clear() { FBlocks.clear(); }
    const std::vector<std::pair<AnsiString, std::string>>& Blocks() const { return FBlocks; }
    bool operator==(const TQzPkgExtensions&) const = default;

    // Saved as it is, or replaced whole by the blocks read.
    void Transfer(TQzPkgTransfer& t);

private:
    std::vector<std::pair<AnsiString, std::string>> FBlocks;
};

class TQzPkgImagesImage : public TQzPkgIdItem {
    QZ_CLASS(TQzPkgImagesImage, TQzPkgIdItem)

public:
    TQzPkgImagesImage(TQzPkgIdCollection* collection, Integer id) : TQzPkgIdItem(collection, id) {}

    // The picture's file bytes and the class that reads them ("TPngImage").
    const std::string& PictureData() const { return FPictureData; }
    const AnsiString& GraphicClass() const { return FGraphicClass; }
    void SetPicture(const std::string& data, const AnsiString& graphicClass, Integer width, Integer height);
    Integer Width() const { return FWidth; }
    Integer Height() const { return FHeight; }
    bool Empty() const { return FPictureData.empty(); }
    // Bytes of stored picture data.
    Int64 GetSize() const { return static_cast<Int64>(FPictureData.size()); }
    // The picture data as a stream positioned at its start.
    std::unique_ptr<TMemoryStream> ReadStream() const;
    // Drops picture and extensions; the Id and protection stay.
    void Clear();

    const TQzPkgExtensions& Extensions() const { return FExtensions; }
    void SetExtension(const AnsiString& name, const std::string& value);

    // Picture, size and extensions (not the Id: two images of one list
    // cannot share it).
    void Assign(TPersistent* source) override;

    // The fields that follow the Id (see docs/runtime-model.md).
    void TransferData(TQzPkgTransfer& t);

protected:
    std::string FPictureData;
    AnsiString FGraphicClass;
    Integer FWidth = 0;
    Integer FHeight = 0;
    TQzPkgExtensions FExtensions;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgImagesImage>& b);
};

class TQzPkgImagesImages : public TQzPkgIdCollection {
    QZ_CLASS(TQzPkgImagesImages, TQzPkgIdCollection)

public:
    explicit TQzPkgImagesImages(TQzPkgInfo* package) : TQzPkgIdCollection(package, "image") {}

    // A new empty image; raises EQzPkgError for a used or negative Id.
    TQzPkgImagesImage* Add(Integer id);
    TQzPkgImagesImage* GetItems(int index) const { return static_cast<TQzPkgImagesImage*>(Item(index)); }
    TQzPkgImagesImage* FindId(Integer id) const { return static_cast<TQzPkgImagesImage*>(FindIdItem(id)); }
};

class TQzPkgImages : public TQzPkgInfo {
    QZ_CLASS(TQzPkgImages, TQzPkgInfo)

public:
    static constexpr Integer DataVersion = 1;

    explicit TQzPkgImages(TComponent* owner);
    ~TQzPkgImages() override;

    TQzPkgImagesImages* Images() { return &FImages; }
    const TQzPkgImagesImages* Images() const { return &FImages; }
    // Package-wide settings of the picture code (the mask editor's).
    const TQzPkgExtensions& Extensions() const { return FExtensions; }
    void SetExtension(const AnsiString& name, const std::string& value);

    void Clear() override;
    bool IsEmpty() const override;
    void NotifyInit(TObject* sender) { NotifyEvt(peInit, sender); }
    // Moves source's contents here (source ends empty), without checks.
    void TakeContents(TQzPkgImages& source);

    AnsiString DefaultExt() const override { return "pim"; }
    AnsiString KindName() const override { return "PkgImages"; }

    void Transfer(TQzPkgTransfer& t) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgImages>& b);

    TQzPkgImagesImages FImages{this};
    TQzPkgExtensions FExtensions;
};
