#include "vcl/QzDialogs.h"

#include "vcl/QzQtDialogs.h"

#include <QGuiApplication>

namespace {

IQzDialogs* Installed = nullptr;

IQzDialogs& QtDialogs()
{
    static TQzQtDialogs dialogs;
    return dialogs;
}

}  // namespace

std::vector<TMsgDlgBtn> TMsgDlgButtons::List() const
{
    std::vector<TMsgDlgBtn> list;
    for (int b = 0; b < QzMsgDlgBtnCount; ++b)
        if (Contains(static_cast<TMsgDlgBtn>(b)))
            list.push_back(static_cast<TMsgDlgBtn>(b));
    return list;
}

TModalResult QzButtonModalResult(TMsgDlgBtn button)
{
    switch (button) {
    case mbYes: return mrYes;
    case mbNo: return mrNo;
    case mbOK: return mrOk;
    case mbCancel: return mrCancel;
    case mbAbort: return mrAbort;
    case mbRetry: return mrRetry;
    case mbIgnore: return mrIgnore;
    case mbAll: return mrAll;
    case mbNoToAll: return mrNoToAll;
    case mbYesToAll: return mrYesToAll;
    }
    return mrNone;
}

const char* QzButtonCaption(TMsgDlgBtn button)
{
    switch (button) {
    case mbYes: return "&Yes";
    case mbNo: return "&No";
    case mbOK: return "OK";
    case mbCancel: return "Cancel";
    case mbAbort: return "&Abort";
    case mbRetry: return "&Retry";
    case mbIgnore: return "&Ignore";
    case mbAll: return "&All";
    case mbNoToAll: return "N&o to All";
    case mbYesToAll: return "Yes to &All";
    }
    return "";
}

AnsiString QzMessageCaption(TMsgDlgType type)
{
    switch (type) {
    case mtWarning: return "Warning";
    case mtError: return "Error";
    case mtInformation: return "Information";
    case mtConfirmation: return "Confirm";
    case mtCustom: break;
    }
    return QGuiApplication::applicationDisplayName().toStdString();
}

IQzDialogs& QzDialogs()
{
    return Installed != nullptr ? *Installed : QtDialogs();
}

IQzDialogs* SetQzDialogs(IQzDialogs* dialogs)
{
    IQzDialogs* previous = Installed;
    Installed = dialogs;
    return previous;
}

TModalResult QzMessage(const AnsiString& text, TMsgDlgType type, TMsgDlgButtons buttons,
                       TMsgDlgBtn defaultButton, QWidget* parent)
{
    TQzMessageRequest request;
    request.Text = text;
    request.Type = type;
    request.Buttons = buttons;
    request.DefaultButton = defaultButton;
    request.Parent = parent;
    return QzDialogs().MessageBox(request);
}

AnsiString QzOpenFile(const TQzFileRequest& request)
{
    const std::vector<AnsiString> files = QzDialogs().OpenFiles(request);
    return files.empty() ? AnsiString() : files.front();
}

AnsiString QzSaveFile(const TQzFileRequest& request)
{
    return QzDialogs().SaveFile(request);
}

bool QzChooseColor(QColor& color, QWidget* parent)
{
    return QzDialogs().ChooseColor(color, parent);
}

bool QzChooseFont(QFont& font, QWidget* parent)
{
    return QzDialogs().ChooseFont(font, parent);
}
