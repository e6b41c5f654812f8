#include "design/strings/QzMemoryItemAdd.h"

#include "vcl/QzIdEdit.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

TQzMemoryItemAdd::TQzMemoryItemAdd(TQzMemoryFamily family, QWidget* parent) : TQzDialog(parent), FFamily(family) {}

void TQzMemoryItemAdd::Bind(QLineEdit* edId, QCheckBox* edProtected, QPushButton* btOk, QPushButton* btCancel)
{
    FEdId = edId;
    FEdProtected = edProtected;
    QzMakeIdEdit(FEdId);
    connect(btOk, &QPushButton::clicked, this, &TQzMemoryItemAdd::accept);
    connect(btCancel, &QPushButton::clicked, this, &TQzMemoryItemAdd::reject);
}

int TQzMemoryItemAdd::Execute(TQzPkgStrings* pkg, bool modify, Integer id)
{
    if (!pkg)
        return 0;
    FPkg = pkg;
    FModify = modify;
    FId = id;
    FItem = nullptr;
    TQzMemoryItemFields fields;
    if (modify) {
        if (const TQzPkgIdItem* item = QzMemoryItems(*pkg, FFamily)->FindIdItem(id))
            fields = QzMemoryFieldsOf(*item);
    }
    fields.IdText = id >= 0 ? IntToStr(id) : AnsiString();
    FEdId->setText(QzQString(fields.IdText));
    FEdProtected->setChecked(fields.Protected);
    FEdProtected->setVisible(pkg->IsSystem());
    ShowFields(fields);
    TextControl()->setFocus();
    return ShowModal() == mrOk ? 1 : 0;
}

void TQzMemoryItemAdd::accept()
{
    TQzMemoryItemFields fields;
    fields.IdText = QzAnsiString(FEdId->text());
    fields.Protected = FEdProtected->isChecked();
    ReadFields(fields);
    TQzPkgIdItem* written = nullptr;
    if (!QzRunReportingErrors(this, [&] { written = QzMemoryWriteItem(*FPkg, FFamily, FModify, FId, fields); })) {
        FEdId->setFocus();
        FEdId->selectAll();
        return;
    }
    FItem = written;
    TQzDialog::accept();
}

AnsiString QzMemoText(const QPlainTextEdit* memo)
{
    return StringReplace(QzAnsiString(memo->toPlainText()), "\n", "\r\n", rfReplaceAll);
}

void QzSetMemoText(QPlainTextEdit* memo, const AnsiString& text)
{
    memo->setPlainText(QzQString(StringReplace(text, "\r\n", "\n", rfReplaceAll)));
}
