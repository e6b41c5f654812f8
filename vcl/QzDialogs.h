#pragma once
// Everything a window asks outside itself goes through IQzDialogs: message
// boxes, file, folder and picture dialogs, printer set-up and the printer.
// Programs use Qt's windows (the default); tests install a scripted
// implementation so that no test ever waits on a real modal box.

#include "rtl/MessageType.h"
#include "rtl/ModalResult.h"
#include "rtl/System.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

class QColor;
class QFont;
class QPrinter;
class QWidget;

// Buttons of a message box; a box shows them in this order.
enum TMsgDlgBtn : int {
    mbYes, mbNo, mbOK, mbCancel, mbAbort, mbRetry, mbIgnore, mbAll, mbNoToAll, mbYesToAll
};
inline constexpr int QzMsgDlgBtnCount = mbYesToAll + 1;

// A set of buttons.
class TMsgDlgButtons {
public:
    constexpr TMsgDlgButtons() = default;
    constexpr TMsgDlgButtons(std::initializer_list<TMsgDlgBtn> buttons)
    {
        for (TMsgDlgBtn b : buttons)
            FBits = static_cast<std::uint16_t>(FBits | Bit(b));
    }
    constexpr bool Contains(TMsgDlgBtn b) const { return (FBits & Bit(b)) != 0; }
    constexpr bool Empty() const { return FBits == 0; }
    constexpr TMsgDlgButtons& operator<<(TMsgDlgBtn b)
    {
        FBits = static_cast<std::uint16_t>(FBits | Bit(b));
        return *this;
    }
    constexpr bool operator==(const TMsgDlgButtons&) const = default;
    std::vector<TMsgDlgBtn> List() const;  // in display order

private:
    static constexpr std::uint16_t Bit(TMsgDlgBtn b) { return static_cast<std::uint16_t>(1u << b); }
    std::uint16_t FBits = 0;
};

inline constexpr TMsgDlgButtons mbYesNo{mbYes, mbNo};
inline constexpr TMsgDlgButtons mbYesNoCancel{mbYes, mbNo, mbCancel};
inline constexpr TMsgDlgButtons mbOKCancel{mbOK, mbCancel};
inline constexpr TMsgDlgButtons mbAbortRetryIgnore{mbAbort, mbRetry, mbIgnore};

// The modal result a button gives (mbYes gives mrYes, ...), and its caption
// ("&Yes", "OK", ...).
TModalResult QzButtonModalResult(TMsgDlgBtn button);
const char* QzButtonCaption(TMsgDlgBtn button);
// The caption of a message box of that type ("Warning", "Error",
// "Information", "Confirm"; the application's name for mtCustom).
AnsiString QzMessageCaption(TMsgDlgType type);

struct TQzMessageRequest {
    AnsiString Text;
    AnsiString Caption;  // empty: QzMessageCaption(Type)
    TMsgDlgType Type = mtInformation;
    TMsgDlgButtons Buttons{mbOK};
    // The button that Enter presses. When it is not among Buttons, the first
    // of Buttons is the default.
    TMsgDlgBtn DefaultButton = mbOK;
    QWidget* Parent = nullptr;  // nullptr: the active window
};

// An open or save dialog. The filter is written as the suite writes it:
// "Text files (*.txt)|*.txt|All files (*.*)|*.*".
struct TQzFileRequest {
    AnsiString Title;
    AnsiString Filter;
    int FilterIndex = 1;     // 1-based, the pair selected at start
    AnsiString InitialDir;
    AnsiString FileName;     // proposed name
    AnsiString DefaultExt;   // added to a name typed without one ("txt" or ".txt")
    bool MultiSelect = false;      // open only
    bool FileMustExist = true;     // open only
    bool OverwritePrompt = true;   // save only
    QWidget* Parent = nullptr;
};

class IQzDialogs {
public:
    virtual ~IQzDialogs() = default;

    // Returns the modal result of the button pressed (QzButtonModalResult).
    virtual TModalResult MessageBox(const TQzMessageRequest& request) = 0;
    // The chosen files; empty when cancelled. One name unless MultiSelect.
    virtual std::vector<AnsiString> OpenFiles(const TQzFileRequest& request) = 0;
    // The chosen name; empty when cancelled.
    virtual AnsiString SaveFile(const TQzFileRequest& request) = 0;
    // The chosen folder; empty when cancelled.
    virtual AnsiString SelectFolder(const AnsiString& title, const AnsiString& initialDir, QWidget* parent) = 0;
    // As OpenFiles and SaveFile, showing the picture under the cursor. An
    // empty filter means every format the program can read (or write).
    virtual std::vector<AnsiString> OpenPictures(const TQzFileRequest& request) = 0;
    virtual AnsiString SavePicture(const TQzFileRequest& request) = 0;
    // Lets the user choose and set up the printer; false when cancelled.
    virtual bool PrinterSetup(QPrinter& printer, QWidget* parent) = 0;
    // The printer reports go to.
    virtual std::unique_ptr<QPrinter> CreatePrinter() = 0;
    // The platform's colour and font dialogs, started on `color` or `font`
    // and leaving the choice there; false (and nothing changed) when cancelled.
    virtual bool ChooseColor(QColor& color, QWidget* parent) = 0;
    virtual bool ChooseFont(QFont& font, QWidget* parent) = 0;
};

// The dialogs in use: the one installed last, else Qt's.
IQzDialogs& QzDialogs();
// Installs `dialogs` (nullptr: Qt's again); returns the one it replaces.
IQzDialogs* SetQzDialogs(IQzDialogs* dialogs);

// Installs a set of dialogs for the lifetime of the scope.
class TQzDialogsScope {
public:
    explicit TQzDialogsScope(IQzDialogs& dialogs) : FPrevious(SetQzDialogs(&dialogs)) {}
    ~TQzDialogsScope() { SetQzDialogs(FPrevious); }
    TQzDialogsScope(const TQzDialogsScope&) = delete;
    TQzDialogsScope& operator=(const TQzDialogsScope&) = delete;

private:
    IQzDialogs* FPrevious;
};

// A message box through the installed dialogs; returns the modal result of
// the button pressed.
TModalResult QzMessage(const AnsiString& text, TMsgDlgType type = mtInformation,
                       TMsgDlgButtons buttons = {mbOK}, TMsgDlgBtn defaultButton = mbOK,
                       QWidget* parent = nullptr);
// Convenience forms of the common dialogs: the first file chosen (or empty).
AnsiString QzOpenFile(const TQzFileRequest& request);
AnsiString QzSaveFile(const TQzFileRequest& request);
// The colour and font dialogs through the installed dialogs.
bool QzChooseColor(QColor& color, QWidget* parent = nullptr);
bool QzChooseFont(QFont& font, QWidget* parent = nullptr);
