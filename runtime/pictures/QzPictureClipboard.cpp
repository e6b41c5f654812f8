// The clipboard side of TQzPicture: the suite's own format CF_QZIMAGE keeps
// masks and design values between images; the ordinary picture beside it is
// for every other program.

#include "runtime/pictures/QzPicture.h"

#include "runtime/model/QzGlobals.h"
#include "runtime/model/QzPkgImages.h"

#include "runtime/pictures/QzPng.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

constexpr const char* ClipBoardName = "the clipboard";

QClipboard* ClipBoard()
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        return nullptr;
    return QGuiApplication::clipboard();
}

QClipboard* RequireClipBoard()
{
    QClipboard* clipboard = ClipBoard();
    if (clipboard == nullptr)
        throw EInvalidGraphic("The clipboard is not available without a window system");
    return clipboard;
}

} // namespace

void TQzPicture::SaveToClipBoard() const
{
    QClipboard* clipboard = RequireClipBoard();
    const std::string imqz = ImqzBytes();
    const QImage picture = Decode();
    auto* data = new QMimeData;
    data->setData(CF_QZIMAGE, QByteArray::fromStdString(imqz));
    data->setImageData(picture);
    clipboard->setMimeData(data);  // the clipboard takes it
}

void TQzPicture::LoadFromClipBoard()
{
    const QMimeData* data = RequireClipBoard()->mimeData();
    if (data != nullptr && data->hasFormat(CF_QZIMAGE)) {
        const QByteArray bytes = data->data(CF_QZIMAGE);
        LoadFromBytes(std::string_view(bytes.constData(), size_t(bytes.size())), ClipBoardName);
        return;
    }
    if (data == nullptr || !data->hasImage())
        throw EInvalidGraphic("The clipboard holds no picture");
    const QImage picture = qvariant_cast<QImage>(data->imageData());
    if (picture.isNull())
        throw EInvalidGraphic("The picture on the clipboard cannot be read");
    if (picture.width() > QzMaxPictureSide || picture.height() > QzMaxPictureSide)
        throw EInvalidGraphic("The picture on the clipboard is larger than " + IntToStr(QzMaxPictureSide) +
                              " pixels each way");
    // PNG keeps every pixel and the alpha channel of whatever was copied.
    const QByteArray png = QzPicturePng(picture);
    if (png.isEmpty())
        throw EInvalidGraphic("The picture on the clipboard cannot be stored as PNG");
    StorePlainPicture(png.toStdString(), "TPngImage", picture.size());
}

bool TQzPicture::ClipBoardHasImage()
{
    const QClipboard* clipboard = ClipBoard();
    const QMimeData* data = clipboard ? clipboard->mimeData() : nullptr;
    return data != nullptr && (data->hasFormat(CF_QZIMAGE) || data->hasImage());
}
