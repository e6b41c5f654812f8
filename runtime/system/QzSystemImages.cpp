#include "runtime/system/QzSystemImages.h"

#include "runtime/model/Qzmain.h"
#include "runtime/pictures/QzPicture.h"

#include "runtime/pictures/QzPng.h"

#include <QImage>
#include <QPainter>

namespace {

constexpr int Size = 16;

const std::vector<TQzSystemImage> Images = {
    {48, "New document"}, {49, "Open folder"}, {50, "Save"},  {51, "Cut"},  {52, "Copy"},
    {53, "Paste"},        {54, "Print"},       {55, "Find"},  {56, "Help"}, {57, "Exit"},
};

void Page(QPainter& p, QRectF r)
{
    p.setPen(QColor(70, 70, 70));
    p.setBrush(Qt::white);
    p.drawRect(r);
    p.setPen(QColor(150, 150, 150));
    for (qreal y = r.top() + 3; y < r.bottom() - 1; y += 2)
        p.drawLine(QPointF(r.left() + 2, y), QPointF(r.right() - 2, y));
}

// Each picture in a few strokes, readable at 16 pixels.
void Draw(QPainter& p, Integer id)
{
    p.setRenderHint(QPainter::Antialiasing, false);
    switch (id) {
    case 48:
        Page(p, QRectF(3, 1, 10, 13));
        p.setPen(QColor(230, 160, 0));
        p.drawLine(11, 0, 15, 4);
        p.drawLine(15, 0, 11, 4);
        break;
    case 49:
        p.setPen(QColor(140, 100, 20));
        p.setBrush(QColor(240, 200, 80));
        p.drawRect(1, 4, 13, 9);
        p.drawRect(1, 2, 5, 2);
        break;
    case 50:
        p.setPen(QColor(20, 40, 110));
        p.setBrush(QColor(60, 90, 190));
        p.drawRect(1, 1, 13, 13);
        p.setBrush(Qt::white);
        p.drawRect(4, 1, 7, 5);
        p.setBrush(QColor(200, 200, 200));
        p.drawRect(4, 9, 7, 5);
        break;
    case 51:
        p.setPen(QPen(QColor(60, 60, 60), 1));
        p.drawLine(5, 1, 10, 10);
        p.drawLine(10, 1, 5, 10);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(180, 30, 30), 1));
        p.drawEllipse(2, 10, 4, 4);
        p.drawEllipse(9, 10, 4, 4);
        break;
    case 52:
        Page(p, QRectF(1, 1, 8, 10));
        Page(p, QRectF(6, 5, 8, 10));
        break;
    case 53:
        p.setPen(QColor(110, 70, 20));
        p.setBrush(QColor(190, 140, 70));
        p.drawRect(2, 2, 10, 12);
        Page(p, QRectF(6, 6, 8, 9));
        break;
    case 54:
        p.setPen(QColor(60, 60, 60));
        p.setBrush(QColor(200, 200, 200));
        p.drawRect(1, 6, 14, 6);
        Page(p, QRectF(4, 1, 8, 5));
        p.setBrush(Qt::white);
        p.drawRect(4, 11, 8, 4);
        break;
    case 55:
        p.setRenderHint(QPainter::Antialiasing, true);
        p.setPen(QPen(QColor(40, 40, 40), 2));
        p.setBrush(QColor(180, 220, 255));
        p.drawEllipse(QRectF(1.5, 1.5, 8, 8));
        p.drawLine(QPointF(9, 9), QPointF(14, 14));
        break;
    case 56:
        // An "i" in a blue disc; shapes only, since the build draws these
        // without a font system.
        p.setRenderHint(QPainter::Antialiasing, true);
        p.setPen(QColor(20, 60, 150));
        p.setBrush(QColor(50, 110, 220));
        p.drawEllipse(QRectF(0.5, 0.5, 15, 15));
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        p.drawRect(QRectF(7, 3, 2, 2));
        p.drawRect(QRectF(7, 6.5, 2, 6));
        break;
    case 57:
        p.setPen(QColor(90, 60, 30));
        p.setBrush(QColor(160, 110, 60));
        p.drawRect(2, 1, 8, 14);
        p.setPen(QPen(QColor(190, 30, 30), 2));
        p.drawLine(9, 8, 15, 8);
        p.drawLine(13, 6, 15, 8);
        p.drawLine(13, 10, 15, 8);
        break;
    }
}

std::string Png(Integer id)
{
    QImage image(Size, Size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    {
        QPainter p(&image);
        Draw(p, id);
    }
    const QByteArray bytes = QzDrawnPicturePng(image);
    return std::string(bytes.constData(), size_t(bytes.size()));
}

} // namespace

const std::vector<TQzSystemImage>& QzSystemImages()
{
    return Images;
}

void QzFillSystemImages(TQzPkgImages& target)
{
    TQzDetachedPkgs detached;
    TQzPkgImages source(nullptr);
    for (const TQzSystemImage& s : Images) {
        TQzPkgImagesImage* image = source.Images()->Add(s.Id);
        TQzPicture(image).LoadFromBytes(Png(s.Id), s.Name);
    }
    QzMergeSystemImages(target, source, false);
}
