#include "ide/QzPalette.h"

#include "vcl/QzQtString.h"

#include "runtime/components/QzPaletteBitmaps.h"

#include "designide/DesignIntf.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QPixmap>
#include <QToolButton>

namespace {

// The letters that tell classes apart: "TQzPkgStrings" gives "PS".
QString Initials(const AnsiString& className)
{
    QString name = QzQString(className);
    if (name.startsWith("TQz"))
        name = name.mid(3);
    else if (name.startsWith('T'))
        name = name.mid(1);
    QString letters;
    for (QChar c : name)
        if (c.isUpper() && letters.size() < 2)
            letters += c;
    return letters.isEmpty() ? name.left(2) : letters;
}

QColor ColourOf(const AnsiString& className)
{
    const size_t h = std::hash<std::string>()(className);
    return QColor::fromHsv(static_cast<int>(h % 360), 90, 200);
}

}  // namespace

QIcon QzPaletteIcon(const AnsiString& className)
{
    const QImage shipped = QzPaletteBitmap(className);
    if (!shipped.isNull())
        return QIcon(QPixmap::fromImage(shipped));
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(ColourOf(className));
    p.setPen(QColor(60, 60, 60));
    p.drawRoundedRect(QRectF(1.5, 1.5, 21, 21), 3, 3);
    QFont font = p.font();
    font.setPixelSize(10);
    font.setBold(true);
    p.setFont(font);
    p.setPen(Qt::black);
    p.drawText(QRect(0, 0, 24, 24), Qt::AlignCenter, Initials(className));
    return QIcon(pixmap);
}

QIcon QzPaletteIcon(const TMetaClass* cls) { return QzPaletteIcon(cls ? cls->ClassName() : AnsiString("?")); }

TQzPalette::TQzPalette(QWidget* parent) : QTabWidget(parent), FGroup(new QButtonGroup(this))
{
    FGroup->setExclusive(true);
    setDocumentMode(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    Refresh();
}

void TQzPalette::Refresh()
{
    FSelected = nullptr;
    for (QAbstractButton* b : FGroup->buttons())
        FGroup->removeButton(b);
    while (count() > 0) {
        QWidget* page = widget(0);
        removeTab(0);
        delete page;
    }
    for (const TPalettePage& page : DesignRegistry().Pages()) {
        auto* strip = new QWidget;
        auto* layout = new QHBoxLayout(strip);
        layout->setContentsMargins(2, 2, 2, 2);
        layout->setSpacing(1);
        auto* arrow = new QToolButton;
        arrow->setText(QStringLiteral("\u2196"));
        arrow->setToolTip(tr("Select"));
        arrow->setCheckable(true);
        arrow->setAutoRaise(true);
        arrow->setFixedSize(30, 30);
        FGroup->addButton(arrow);
        connect(arrow, &QToolButton::clicked, this, [this] { SelectClass(nullptr); });
        layout->addWidget(arrow);
        for (TMetaClass* cls : page.Classes) {
            auto* button = new QToolButton;
            button->setIcon(QzPaletteIcon(cls));
            button->setIconSize(QSize(24, 24));
            button->setFixedSize(30, 30);
            button->setToolTip(QzQString(cls->ClassName()));
            button->setObjectName(QzQString(cls->ClassName()));
            button->setCheckable(true);
            button->setAutoRaise(true);
            FGroup->addButton(button);
            connect(button, &QToolButton::clicked, this, [this, cls] { SelectClass(cls); });
            layout->addWidget(button);
        }
        layout->addStretch();
        addTab(strip, QzQString(page.Name));
    }
    setFixedHeight(count() ? sizeHint().height() : 0);
}

void TQzPalette::SelectClass(TMetaClass* cls)
{
    FSelected = cls;
    if (QToolButton* button = cls ? ButtonOf(cls) : nullptr) {
        button->setChecked(true);
    } else if (QAbstractButton* checked = FGroup->checkedButton()) {
        FGroup->setExclusive(false);
        checked->setChecked(false);
        FGroup->setExclusive(true);
    }
    emit ClassSelected(cls);
}

QStringList TQzPalette::PageNames() const
{
    QStringList names;
    for (int i = 0; i < count(); ++i)
        names << tabText(i);
    return names;
}

QToolButton* TQzPalette::ButtonOf(TMetaClass* cls) const
{
    return cls ? findChild<QToolButton*>(QzQString(cls->ClassName())) : nullptr;
}
