#include "vcl/QzQtDialogs.h"

#include "vcl/QzFileFilter.h"
#include "vcl/QzQtString.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QGridLayout>
#include <QImageReader>
#include <QImageWriter>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

#include <map>
#include <set>

namespace {

constexpr int PreviewSize = 160;

QWidget* ParentOr(QWidget* parent)
{
    return parent != nullptr ? parent : QApplication::activeWindow();
}

QMessageBox::Icon IconFor(TMsgDlgType type)
{
    switch (type) {
    case mtWarning: return QMessageBox::Warning;
    case mtError: return QMessageBox::Critical;
    case mtInformation: return QMessageBox::Information;
    case mtConfirmation: return QMessageBox::Question;
    case mtCustom: break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::ButtonRole RoleFor(TMsgDlgBtn button)
{
    switch (button) {
    case mbYes:
    case mbAll:
    case mbYesToAll: return QMessageBox::YesRole;
    case mbNo:
    case mbNoToAll: return QMessageBox::NoRole;
    case mbCancel:
    case mbAbort: return QMessageBox::RejectRole;
    case mbOK:
    case mbRetry:
    case mbIgnore: break;
    }
    return QMessageBox::AcceptRole;
}

// The button Escape presses: Cancel, else No, else the only button.
QAbstractButton* EscapeButton(const std::map<TMsgDlgBtn, QPushButton*>& buttons)
{
    for (TMsgDlgBtn b : {mbCancel, mbNo})
        if (auto it = buttons.find(b); it != buttons.end())
            return it->second;
    return buttons.size() == 1 ? buttons.begin()->second : nullptr;
}

QString MessageText(const AnsiString& text)
{
    QString qtext = QzQString(text);
    qtext.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return qtext;
}

void SetUpFileDialog(QFileDialog& dialog, const TQzFileRequest& request)
{
    dialog.setWindowTitle(QzQString(request.Title));
    if (!request.InitialDir.empty())
        dialog.setDirectory(QzQString(request.InitialDir));
    const QStringList filters = QzConvertFilter(request.Filter);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        if (request.FilterIndex >= 1 && request.FilterIndex <= filters.size())
            dialog.selectNameFilter(filters[request.FilterIndex - 1]);
    }
    AnsiString ext = request.DefaultExt;
    if (!ext.empty() && ext.front() == '.')
        ext.erase(0, 1);
    dialog.setDefaultSuffix(QzQString(ext));
    if (!request.FileName.empty())
        dialog.selectFile(QzQString(request.FileName));
}

void SetUpOpen(QFileDialog& dialog, const TQzFileRequest& request)
{
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    if (request.MultiSelect)
        dialog.setFileMode(QFileDialog::ExistingFiles);
    else
        dialog.setFileMode(request.FileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
}

void SetUpSave(QFileDialog& dialog, const TQzFileRequest& request)
{
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.OverwritePrompt);
}

std::vector<AnsiString> RunFileDialog(QFileDialog& dialog)
{
    std::vector<AnsiString> files;
    if (dialog.exec() == QDialog::Accepted)
        for (const QString& file : dialog.selectedFiles())
            files.push_back(file.toStdString());
    return files;
}

// The picture under the cursor and its size, beside Qt's own file dialog
// (the native one cannot take a widget).
void AddPicturePreview(QFileDialog& dialog)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    auto* layout = qobject_cast<QGridLayout*>(dialog.layout());
    if (layout == nullptr)
        return;
    auto* panel = new QWidget(&dialog);
    auto* column = new QVBoxLayout(panel);
    auto* picture = new QLabel(panel);
    picture->setObjectName(QStringLiteral("PicturePreview"));
    picture->setFixedSize(PreviewSize, PreviewSize);
    picture->setAlignment(Qt::AlignCenter);
    picture->setFrameShape(QFrame::StyledPanel);
    auto* info = new QLabel(panel);
    info->setAlignment(Qt::AlignCenter);
    column->addWidget(picture);
    column->addWidget(info);
    column->addStretch();
    layout->addWidget(panel, 0, layout->columnCount(), layout->rowCount(), 1);

    QObject::connect(&dialog, &QFileDialog::currentChanged, panel, [picture, info](const QString& path) {
        QImageReader reader(path);
        const QSize size = reader.size();
        if (!reader.canRead() || !size.isValid()) {
            picture->clear();
            info->clear();
            return;
        }
        if (size.width() > PreviewSize || size.height() > PreviewSize)
            reader.setScaledSize(size.scaled(PreviewSize, PreviewSize, Qt::KeepAspectRatio));
        picture->setPixmap(QPixmap::fromImage(reader.read()));
        info->setText(QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()));
    });
}

TQzFileRequest WithPictureFilter(const TQzFileRequest& request, bool forWriting)
{
    TQzFileRequest copy = request;
    if (copy.Filter.empty())
        copy.Filter = QzPictureFilter(forWriting);
    return copy;
}

}  // namespace

AnsiString QzPictureFilter(bool forWriting)
{
    const QList<QByteArray> formats =
        forWriting ? QImageWriter::supportedImageFormats() : QImageReader::supportedImageFormats();
    std::set<QString> suffixes;
    for (const QByteArray& format : formats)
        suffixes.insert(QString::fromLatin1(format).toLower());
    QStringList all;
    QStringList pairs;
    for (const QString& suffix : suffixes) {
        all.append("*." + suffix);
        pairs.append(QStringLiteral("%1 (*.%2)|*.%2").arg(suffix.toUpper(), suffix));
    }
    const QString allMasks = all.join(';');
    pairs.prepend(QStringLiteral("All pictures (%1)|%1").arg(allMasks));
    return pairs.join('|').toStdString();
}

TModalResult TQzQtDialogs::MessageBox(const TQzMessageRequest& request)
{
    const AnsiString caption = request.Caption.empty() ? QzMessageCaption(request.Type) : request.Caption;
    QMessageBox box(IconFor(request.Type), QzQString(caption), MessageText(request.Text), QMessageBox::NoButton,
                    ParentOr(request.Parent));
    const TMsgDlgButtons buttons = request.Buttons.Empty() ? TMsgDlgButtons{mbOK} : request.Buttons;
    std::map<TMsgDlgBtn, QPushButton*> added;
    for (TMsgDlgBtn b : buttons.List()) {
        QPushButton* button = box.addButton(QString::fromLatin1(QzButtonCaption(b)), RoleFor(b));
        button->setObjectName(QString::fromLatin1(QzButtonCaption(b)).remove('&').remove(' '));
        added[b] = button;
    }
    const TMsgDlgBtn defaultButton = buttons.Contains(request.DefaultButton) ? request.DefaultButton : buttons.List().front();
    box.setDefaultButton(added[defaultButton]);
    box.setEscapeButton(EscapeButton(added));
    box.exec();
    for (const auto& [kind, button] : added)
        if (box.clickedButton() == button)
            return QzButtonModalResult(kind);
    return mrCancel;
}

std::vector<AnsiString> TQzQtDialogs::OpenFiles(const TQzFileRequest& request)
{
    QFileDialog dialog(ParentOr(request.Parent));
    SetUpFileDialog(dialog, request);
    SetUpOpen(dialog, request);
    return RunFileDialog(dialog);
}

AnsiString TQzQtDialogs::SaveFile(const TQzFileRequest& request)
{
    QFileDialog dialog(ParentOr(request.Parent));
    SetUpFileDialog(dialog, request);
    SetUpSave(dialog, request);
    const std::vector<AnsiString> files = RunFileDialog(dialog);
    return files.empty() ? AnsiString() : files.front();
}

AnsiString TQzQtDialogs::SelectFolder(const AnsiString& title, const AnsiString& initialDir, QWidget* parent)
{
    return QFileDialog::getExistingDirectory(ParentOr(parent), QzQString(title), QzQString(initialDir)).toStdString();
}

std::vector<AnsiString> TQzQtDialogs::OpenPictures(const TQzFileRequest& request)
{
    const TQzFileRequest pictures = WithPictureFilter(request, false);
    QFileDialog dialog(ParentOr(request.Parent));
    SetUpFileDialog(dialog, pictures);
    SetUpOpen(dialog, pictures);
    AddPicturePreview(dialog);
    return RunFileDialog(dialog);
}

AnsiString TQzQtDialogs::SavePicture(const TQzFileRequest& request)
{
    const TQzFileRequest pictures = WithPictureFilter(request, true);
    QFileDialog dialog(ParentOr(request.Parent));
    SetUpFileDialog(dialog, pictures);
    SetUpSave(dialog, pictures);
    AddPicturePreview(dialog);
    const std::vector<AnsiString> files = RunFileDialog(dialog);
    return files.empty() ? AnsiString() : files.front();
}

bool TQzQtDialogs::PrinterSetup(QPrinter& printer, QWidget* parent)
{
    QPrintDialog dialog(&printer, ParentOr(parent));
    return dialog.exec() == QDialog::Accepted;
}

std::unique_ptr<QPrinter> TQzQtDialogs::CreatePrinter()
{
    return std::make_unique<QPrinter>(QPrinter::HighResolution);
}

bool TQzQtDialogs::ChooseColor(QColor& color, QWidget* parent)
{
    const QColor chosen = QColorDialog::getColor(color, ParentOr(parent));
    if (!chosen.isValid())
        return false;
    color = chosen;
    return true;
}

bool TQzQtDialogs::ChooseFont(QFont& font, QWidget* parent)
{
    bool ok = false;
    const QFont chosen = QFontDialog::getFont(&ok, font, ParentOr(parent));
    if (ok)
        font = chosen;
    return ok;
}
