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

void QzOpenTextFile(QWidget* parent, const AnsiString& filter,
                    const std::function<void(const AnsiString& fileName, const TStrings& lines)>& show)
{
    TQzFileRequest request;
    request.Title = "Open";
    request.Filter = filter;
    request.Parent = parent;
    const AnsiString fileName = QzOpenFile(request);
    if (fileName.empty())
        return;
    QzRunReportingErrors(parent, [&] {
        TStringList lines;
        lines.LoadFromFile(fileName);
        show(fileName, lines);
    });
}

void QzSaveTextFile(QWidget* parent, const AnsiString& filter, const AnsiString& defaultExt,
                    const std::function<AnsiString(const AnsiString& fileName)>& text)
{
    TQzFileRequest request;
    request.Title = "Save As";
    request.Filter = filter;
    request.DefaultExt = defaultExt;
    request.Parent = parent;
    const AnsiString fileName = QzSaveFile(request);
    if (fileName.empty())
        return;
    QzRunReportingErrors(parent, [&] {
        TStringList lines;
        lines.SetText(text(fileName));
        lines.SaveToFile(fileName);
    });
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
    return QzExecuteOnLines(*this, Memo, caption, lines);
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
    QzOpenTextFile(this, QzTextFileFilter, [this](const AnsiString&, const TStrings& lines) { SetText(lines.Text()); });
}

void TFrMemoE::BtSaveClick()
{
    QzSaveTextFile(this, QzTextFileFilter, "txt", [this](const AnsiString&) { return Text(); });
}

void TFrMemoE::UpdatePosition()
{
    const QTextCursor cursor = Memo->textCursor();
    LabPosition->setText(QStringLiteral("Line %1, Column %2 of %3 lines")
                             .arg(cursor.blockNumber() + 1)
                             .arg(cursor.positionInBlock() + 1)
                             .arg(Memo->document()->blockCount()));
}
