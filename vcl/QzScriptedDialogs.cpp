#include "vcl/QzScriptedDialogs.h"

#include "vcl/QzPrinter.h"
#include "vcl/QzQtString.h"

#include <QPrinter>
#include <QtGlobal>

namespace {

AnsiString ButtonName(TMsgDlgBtn button)
{
    AnsiString name;
    for (const char* c = QzButtonCaption(button); *c != '\0'; ++c)
        if (*c != '&')
            name += *c;
    return name;
}

AnsiString ButtonList(TMsgDlgButtons buttons)
{
    AnsiString list;
    for (TMsgDlgBtn b : buttons.List())
        list += (list.empty() ? "" : ", ") + ButtonName(b);
    return list;
}

AnsiString FileList(const std::vector<AnsiString>& files)
{
    if (files.empty())
        return "(cancel)";
    AnsiString list;
    for (const AnsiString& f : files)
        list += (list.empty() ? "\"" : ", \"") + f + "\"";
    return list;
}

TMsgDlgBtn DefaultOf(const TQzMessageRequest& request)
{
    if (request.Buttons.Contains(request.DefaultButton))
        return request.DefaultButton;
    const std::vector<TMsgDlgBtn> list = request.Buttons.List();
    return list.empty() ? mbOK : list.front();
}

// What Escape would give: Cancel, else No, else the only button.
TModalResult EscapeResult(const TQzMessageRequest& request)
{
    for (TMsgDlgBtn b : {mbCancel, mbNo})
        if (request.Buttons.Contains(b))
            return QzButtonModalResult(b);
    const std::vector<TMsgDlgBtn> list = request.Buttons.List();
    return list.size() == 1 ? QzButtonModalResult(list.front()) : mrCancel;
}

bool IsFileKind(TQzDialogKind kind)
{
    return kind == TQzDialogKind::OpenFiles || kind == TQzDialogKind::SaveFile ||
           kind == TQzDialogKind::OpenPictures || kind == TQzDialogKind::SavePicture;
}

}  // namespace

const char* QzDialogKindName(TQzDialogKind kind)
{
    switch (kind) {
    case TQzDialogKind::Message: return "message box";
    case TQzDialogKind::OpenFiles: return "open dialog";
    case TQzDialogKind::SaveFile: return "save dialog";
    case TQzDialogKind::Folder: return "folder dialog";
    case TQzDialogKind::OpenPictures: return "open picture dialog";
    case TQzDialogKind::SavePicture: return "save picture dialog";
    case TQzDialogKind::PrinterSetup: return "printer set-up";
    case TQzDialogKind::Printer: return "printer";
    case TQzDialogKind::Color: return "colour dialog";
    case TQzDialogKind::Font: return "font dialog";
    }
    return "dialog";
}

AnsiString TQzDialogCall::Description() const
{
    AnsiString text = QzDialogKindName(Kind);
    if (Kind == TQzDialogKind::Message)
        text += " \"" + Message.Text + "\" (" + QzMessageCaption(Message.Type) + "; " + ButtonList(Message.Buttons) + ")";
    else if (IsFileKind(Kind) || Kind == TQzDialogKind::Folder)
        text += " \"" + File.Title + "\"";
    return text;
}

AnsiString TQzScriptedDialogs::TAnswer::Description() const
{
    AnsiString text = QzDialogKindName(Kind);
    switch (Kind) {
    case TQzDialogKind::Message:
        return text + " answered " + (Button ? ButtonName(*Button) : AnsiString("with its default button"));
    case TQzDialogKind::PrinterSetup:
        return text + (Accepted ? " accepted" : " cancelled");
    case TQzDialogKind::Color:
        return text + (Accepted ? " answered " + QzAnsiString(Color.name()) : AnsiString(" cancelled"));
    case TQzDialogKind::Font:
        return text + (Accepted ? " answered " + QzAnsiString(Font.family()) : AnsiString(" cancelled"));
    case TQzDialogKind::Printer:
        return text + " printing to \"" + Files.front() + "\"";
    default:
        return text + " answered " + FileList(Files);
    }
}

TQzScriptedDialogs::TQzScriptedDialogs()
    : FOnFailure([](const AnsiString& message) { qWarning("Scripted dialogs: %s", message.c_str()); })
{
}

TQzScriptedDialogs& TQzScriptedDialogs::Queue(TAnswer answer)
{
    FAnswers.push_back(std::move(answer));
    return *this;
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerMessage(TMsgDlgBtn button)
{
    return Queue({TQzDialogKind::Message, button, {}, false});
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerMessageDefault()
{
    return Queue({TQzDialogKind::Message, std::nullopt, {}, false});
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerOpen(std::vector<AnsiString> files)
{
    return Queue({TQzDialogKind::OpenFiles, std::nullopt, std::move(files), false});
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerSave(AnsiString file)
{
    std::vector<AnsiString> files;
    if (!file.empty())
        files.push_back(std::move(file));
    return Queue({TQzDialogKind::SaveFile, std::nullopt, std::move(files), false});
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerFolder(AnsiString folder)
{
    std::vector<AnsiString> files;
    if (!folder.empty())
        files.push_back(std::move(folder));
    return Queue({TQzDialogKind::Folder, std::nullopt, std::move(files), false});
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerOpenPictures(std::vector<AnsiString> files)
{
    return Queue({TQzDialogKind::OpenPictures, std::nullopt, std::move(files), false});
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerSavePicture(AnsiString file)
{
    std::vector<AnsiString> files;
    if (!file.empty())
        files.push_back(std::move(file));
    return Queue({TQzDialogKind::SavePicture, std::nullopt, std::move(files), false});
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerColor(const QColor& color)
{
    TAnswer answer{TQzDialogKind::Color, std::nullopt, {}, color.isValid()};
    answer.Color = color;
    return Queue(std::move(answer));
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerFont(const QFont& font, bool accepted)
{
    TAnswer answer{TQzDialogKind::Font, std::nullopt, {}, accepted};
    answer.Font = font;
    return Queue(std::move(answer));
}

TQzScriptedDialogs& TQzScriptedDialogs::AnswerPrinterSetup(bool accepted)
{
    return Queue({TQzDialogKind::PrinterSetup, std::nullopt, {}, accepted});
}

TQzScriptedDialogs& TQzScriptedDialogs::PrintTo(AnsiString pdfFile)
{
    return Queue({TQzDialogKind::Printer, std::nullopt, {std::move(pdfFile)}, false});
}

std::vector<TQzDialogCall> TQzScriptedDialogs::CallsOf(TQzDialogKind kind) const
{
    std::vector<TQzDialogCall> calls;
    for (const TQzDialogCall& call : FCalls)
        if (call.Kind == kind)
            calls.push_back(call);
    return calls;
}

std::vector<AnsiString> TQzScriptedDialogs::Pending() const
{
    std::vector<AnsiString> pending;
    for (const TAnswer& answer : FAnswers)
        pending.push_back(answer.Description());
    return pending;
}

void TQzScriptedDialogs::Fail(const AnsiString& message)
{
    FFailures.push_back(message);
    if (FOnFailure)
        FOnFailure(message);
}

std::optional<TQzScriptedDialogs::TAnswer> TQzScriptedDialogs::Take(TQzDialogCall call)
{
    const bool matches = !FAnswers.empty() && FAnswers.front().Kind == call.Kind;
    call.Scripted = matches;
    FCalls.push_back(call);
    if (!matches) {
        // The queue stays as it is: the scripted question may still come.
        Fail("unexpected " + call.Description() + (FAnswers.empty() ? AnsiString(": nothing was scripted")
                                                                    : ": the script expects a " + FAnswers.front().Description()));
        return std::nullopt;
    }
    TAnswer answer = std::move(FAnswers.front());
    FAnswers.pop_front();
    return answer;
}

TModalResult TQzScriptedDialogs::MessageBox(const TQzMessageRequest& request)
{
    TQzDialogCall call;
    call.Kind = TQzDialogKind::Message;
    call.Message = request;
    if (request.Buttons.Empty())
        call.Message.Buttons = {mbOK};
    const std::optional<TAnswer> answer = Take(call);
    if (!answer)
        return EscapeResult(call.Message);
    const TMsgDlgBtn button = answer->Button.value_or(DefaultOf(call.Message));
    if (!call.Message.Buttons.Contains(button)) {
        Fail("the script answers " + ButtonName(button) + " to " + call.Description() + ", which has no such button");
        return EscapeResult(call.Message);
    }
    return QzButtonModalResult(button);
}

std::vector<AnsiString> TQzScriptedDialogs::AnswerFiles(TQzDialogKind kind, const TQzFileRequest& request)
{
    TQzDialogCall call;
    call.Kind = kind;
    call.File = request;
    std::optional<TAnswer> answer = Take(call);
    if (!answer)
        return {};
    if (answer->Files.size() > 1 && !request.MultiSelect) {
        Fail("the script answers " + FileList(answer->Files) + " to " + call.Description() +
             ", which allows one file only");
        return {};
    }
    return std::move(answer->Files);
}

std::vector<AnsiString> TQzScriptedDialogs::OpenFiles(const TQzFileRequest& request)
{
    return AnswerFiles(TQzDialogKind::OpenFiles, request);
}

AnsiString TQzScriptedDialogs::SaveFile(const TQzFileRequest& request)
{
    const std::vector<AnsiString> files = AnswerFiles(TQzDialogKind::SaveFile, request);
    return files.empty() ? AnsiString() : files.front();
}

AnsiString TQzScriptedDialogs::SelectFolder(const AnsiString& title, const AnsiString& initialDir, QWidget* parent)
{
    TQzFileRequest request;
    request.Title = title;
    request.InitialDir = initialDir;
    request.Parent = parent;
    const std::vector<AnsiString> files = AnswerFiles(TQzDialogKind::Folder, request);
    return files.empty() ? AnsiString() : files.front();
}

std::vector<AnsiString> TQzScriptedDialogs::OpenPictures(const TQzFileRequest& request)
{
    return AnswerFiles(TQzDialogKind::OpenPictures, request);
}

AnsiString TQzScriptedDialogs::SavePicture(const TQzFileRequest& request)
{
    const std::vector<AnsiString> files = AnswerFiles(TQzDialogKind::SavePicture, request);
    return files.empty() ? AnsiString() : files.front();
}

bool TQzScriptedDialogs::PrinterSetup(QPrinter& /*printer*/, QWidget* /*parent*/)
{
    TQzDialogCall call;
    call.Kind = TQzDialogKind::PrinterSetup;
    const std::optional<TAnswer> answer = Take(call);
    return answer && answer->Accepted;
}

std::unique_ptr<QPrinter> TQzScriptedDialogs::CreatePrinter()
{
    TQzDialogCall call;
    call.Kind = TQzDialogKind::Printer;
    const std::optional<TAnswer> answer = Take(call);
    // Without a scripted file the printer has nowhere to write: printing on
    // it fails with EPrinter instead of reaching a real printer.
    return QzCreatePdfPrinter(answer ? QzQString(answer->Files.front()) : QString());
}

bool TQzScriptedDialogs::ChooseColor(QColor& color, QWidget* /*parent*/)
{
    TQzDialogCall call;
    call.Kind = TQzDialogKind::Color;
    const std::optional<TAnswer> answer = Take(call);
    if (!answer || !answer->Accepted)
        return false;
    color = answer->Color;
    return true;
}

bool TQzScriptedDialogs::ChooseFont(QFont& font, QWidget* /*parent*/)
{
    TQzDialogCall call;
    call.Kind = TQzDialogKind::Font;
    const std::optional<TAnswer> answer = Take(call);
    if (!answer || !answer->Accepted)
        return false;
    font = answer->Font;
    return true;
}
