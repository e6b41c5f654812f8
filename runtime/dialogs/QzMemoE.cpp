#include "runtime/dialogs/QzMemoE.h"

#include "rtl/StringList.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QTextBlock>

const char* const QzTextFileFilter = "Text files (*.txt)|*.txt|All files (*.*)|*.*";

AnsiString QzEditorText(const TStrings& lines)
{
    TStringList copy;
    copy.Assign(lines);
    copy.SetLineBreak("\n");
    copy.SetTrailingLineBreak(false);
    return copy.Text();
}

TFrMemoE::TFrMemoE(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    connect(BtOpen, &QPushButton::clicked, this, &TFrMemoE::BtOpenClick);
    connect(BtSave, &QPushButton::clicked, this, &TFrMemoE::BtSaveClick);
    connect(CBWordWrap, &QCheckBox::toggled, this, [this](bool wrap) {
        Memo->setLineWrapMode(wrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    });
    connect(Memo, &QPlainTextEdit::cursorPositionChanged, this, &TFrMemoE::UpdatePosition);
    connect(BtOk, &QPushButton::clicked, this, &TFrMemoE::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrMemoE::reject);
}

bool TFrMemoE::Execute(const AnsiString& caption, TStrings* lines)
{
    if (!caption.empty())
        setWindowTitle(QzQString(caption));
    SetText(lines ? QzEditorText(*lines) : AnsiString());
    Memo->setFocus();
    if (Execute() != mrOk)
        return false;
    if (lines)
        lines->SetText(Text());
    return true;
}

AnsiString TFrMemoE::Text() const
{
    return QzAnsiString(Memo->toPlainText());
}

void TFrMemoE::SetText(const AnsiString& text)
{
    TStringList lines;
    lines.SetText(text);
    Memo->setPlainText(QzQString(QzEditorText(lines)));
    UpdatePosition();
}

void TFrMemoE::BtOpenClick()
{
    TQzFileRequest request;
    request.Title = "Open";
    request.Filter = QzTextFileFilter;
    request.Parent = this;
    const AnsiString fileName = QzOpenFile(request);
    if (fileName.empty())
        return;
    QzRunReportingErrors(this, [&] {
        TStringList lines;
        lines.LoadFromFile(fileName);
        SetText(lines.Text());
    });
}

void TFrMemoE::BtSaveClick()
{
    TQzFileRequest request;
    request.Title = "Save As";
    request.Filter = QzTextFileFilter;
    request.DefaultExt = "txt";
    request.Parent = this;
    const AnsiString fileName = QzSaveFile(request);
    if (fileName.empty())
        return;
    QzRunReportingErrors(this, [&] {
        TStringList lines;
        lines.SetText(Text());
        lines.SaveToFile(fileName);
    });
}

void TFrMemoE::UpdatePosition()
{
    const QTextCursor cursor = Memo->textCursor();
    LabPosition->setText(QStringLiteral("Line %1, Column %2 of %3 lines")
                             .arg(cursor.blockNumber() + 1)
                             .arg(cursor.positionInBlock() + 1)
                             .arg(Memo->document()->blockCount()));
}
