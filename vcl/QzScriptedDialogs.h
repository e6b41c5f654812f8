#pragma once
// Dialogs that answer from a script instead of asking a user: a test queues
// the answers in the order the code under test will ask (answer Yes, return
// this file name, print to this PDF), runs the code, then checks what was
// asked. A question that was not scripted, or that differs from the next
// scripted one, is reported through the failure handler and answered as a
// user pressing Escape would, so nothing ever waits.

#include "vcl/QzDialogs.h"

#include <QColor>
#include <QFont>

#include <deque>
#include <functional>
#include <optional>

enum class TQzDialogKind {
    Message, OpenFiles, SaveFile, Folder, OpenPictures, SavePicture, PrinterSetup, Printer, Color, Font
};
const char* QzDialogKindName(TQzDialogKind kind);  // "message box", "open dialog", ...

// One question as the scripted dialogs saw it.
struct TQzDialogCall {
    TQzDialogKind Kind = TQzDialogKind::Message;
    TQzMessageRequest Message;  // message boxes
    TQzFileRequest File;        // file and picture dialogs; Title and InitialDir of folders
    bool Scripted = false;      // false when it found no matching answer
    AnsiString Description() const;  // one line, for failure messages
};

class TQzScriptedDialogs final : public IQzDialogs {
public:
    using TFailureHandler = std::function<void(const AnsiString& message)>;

    TQzScriptedDialogs();

    // Queue the answers, in order. Each returns *this for chaining.
    TQzScriptedDialogs& AnswerMessage(TMsgDlgBtn button);  // must be among the buttons offered
    TQzScriptedDialogs& AnswerMessageDefault();            // Enter: the default button
    TQzScriptedDialogs& AnswerOpen(std::vector<AnsiString> files);  // {} cancels
    TQzScriptedDialogs& AnswerSave(AnsiString file);                // "" cancels
    TQzScriptedDialogs& AnswerFolder(AnsiString folder);            // "" cancels
    TQzScriptedDialogs& AnswerOpenPictures(std::vector<AnsiString> files);
    TQzScriptedDialogs& AnswerSavePicture(AnsiString file);
    TQzScriptedDialogs& AnswerPrinterSetup(bool accepted);
    TQzScriptedDialogs& PrintTo(AnsiString pdfFile);  // the next printer created
    TQzScriptedDialogs& AnswerColor(const QColor& color);  // an invalid colour cancels
    TQzScriptedDialogs& AnswerFont(const QFont& font, bool accepted = true);

    // Every question asked, scripted or not, in order.
    const std::vector<TQzDialogCall>& Calls() const { return FCalls; }
    // The questions of one kind.
    std::vector<TQzDialogCall> CallsOf(TQzDialogKind kind) const;
    // Answers queued and not yet asked for, described one per entry.
    std::vector<AnsiString> Pending() const;
    // What went wrong (unexpected questions, answers that do not fit).
    const std::vector<AnsiString>& Failures() const { return FFailures; }
    // Called with each failure as it happens, besides recording it. The
    // default writes a warning; tests make it fail the test.
    void SetFailureHandler(TFailureHandler handler) { FOnFailure = std::move(handler); }

    TModalResult MessageBox(const TQzMessageRequest& request) override;
    std::vector<AnsiString> OpenFiles(const TQzFileRequest& request) override;
    AnsiString SaveFile(const TQzFileRequest& request) override;
    AnsiString SelectFolder(const AnsiString& title, const AnsiString& initialDir, QWidget* parent) override;
    std::vector<AnsiString> OpenPictures(const TQzFileRequest& request) override;
    AnsiString SavePicture(const TQzFileRequest& request) override;
    bool PrinterSetup(QPrinter& printer, QWidget* parent) override;
    std::unique_ptr<QPrinter> CreatePrinter() override;
    bool ChooseColor(QColor& color, QWidget* parent) override;
    bool ChooseFont(QFont& font, QWidget* parent) override;

private:
    struct TAnswer {
        TQzDialogKind Kind;
        std::optional<TMsgDlgBtn> Button;  // message: nullopt = the default button
        std::vector<AnsiString> Files;     // file, picture and folder dialogs; PDF of a printer
        bool Accepted = false;             // printer set-up, colour and font
        QColor Color;
        QFont Font;
        AnsiString Description() const;
    };

    TQzScriptedDialogs& Queue(TAnswer answer);
    // The next answer when it is of `kind`; records the call either way.
    std::optional<TAnswer> Take(TQzDialogCall call);
    void Fail(const AnsiString& message);
    std::vector<AnsiString> AnswerFiles(TQzDialogKind kind, const TQzFileRequest& request);

    std::deque<TAnswer> FAnswers;
    std::vector<TQzDialogCall> FCalls;
    std::vector<AnsiString> FFailures;
    TFailureHandler FOnFailure;
};
