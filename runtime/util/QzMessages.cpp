#include "runtime/util/QzMessages.h"

#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/system/QzSystemStrings.h"

#include <vector>

namespace {

struct TKindButton {
    TQzButtonKind Kind;
    TMsgDlgBtn Button;
};

constexpr TKindButton KindButtons[] = {
    {bkOK, mbOK},       {bkCancel, mbCancel}, {bkYes, mbYes},       {bkNo, mbNo},   {bkClose, mbCancel},
    {bkAbort, mbAbort}, {bkRetry, mbRetry},   {bkIgnore, mbIgnore}, {bkAll, mbAll},
};

bool ButtonOf(TQzButtonKind kind, TMsgDlgBtn& button)
{
    for (const TKindButton& kb : KindButtons)
        if (kb.Kind == kind) {
            button = kb.Button;
            return true;
        }
    return false;
}

bool Offered(const std::vector<TQzButtonKind>& kinds, TQzButtonKind kind)
{
    for (TQzButtonKind k : kinds)
        if (k == kind)
            return true;
    return false;
}

TQzButtonKind KindOf(TModalResult result, const std::vector<TQzButtonKind>& kinds)
{
    switch (result) {
    case mrOk: return bkOK;
    // Cancel stands for Close when only Close was offered.
    case mrCancel: return Offered(kinds, bkClose) && !Offered(kinds, bkCancel) ? bkClose : bkCancel;
    case mrYes: return bkYes;
    case mrNo: return bkNo;
    case mrAbort: return bkAbort;
    case mrRetry: return bkRetry;
    case mrIgnore: return bkIgnore;
    case mrAll: return bkAll;
    default: return bkCustom;
    }
}

// The caption of a box of that type, when the "System" strings translate it.
AnsiString CaptionOf(TQzMessageType type)
{
    const TQzPkgStrings* system = QzFindPkgStrings(QzSystemPkgName);
    if (system == nullptr)
        return {};
    const TQzPkgStringsLabel* label = system->Labels()->FindId(Integer(type) + slCaptionWarning);
    return label ? label->Text() : AnsiString();
}

AnsiString ArgText(const TVarRec& arg)
{
    switch (arg.VType) {
    case vtInteger:
    case vtInt64: return IntToStr(arg.VInteger);
    case vtUInt64: return std::to_string(static_cast<std::uint64_t>(arg.VInteger));
    case vtExtended: return FloatToStr(arg.VExtended);
    case vtString:
    case vtChar: return AnsiString(arg.VString);
    case vtBoolean: return arg.VInteger ? "True" : "False";
    case vtPointer: return arg.VPointer ? "(pointer)" : "nil";
    }
    return {};
}

AnsiString FormatMessage(const AnsiString& text, std::initializer_list<TVarRec> args)
{
    try {
        return FormatBuf(text, args.begin(), args.size());
    } catch (const EConvertError&) {
        AnsiString shown = text + " (";
        bool first = true;
        for (const TVarRec& arg : args) {
            shown += (first ? "" : ", ") + ArgText(arg);
            first = false;
        }
        return shown + ")";
    }
}

TQzButtonKind Show(TQzMessageType type, const AnsiString& text, const TQzButtonKind* buttons, int lastButton,
                   TQzButtonKind defaultButton)
{
    std::vector<TQzButtonKind> kinds;
    TQzMessageRequest request;
    request.Text = text;
    request.Caption = CaptionOf(type);
    request.Type = type;
    request.Buttons = {};
    for (int i = 0; buttons != nullptr && i <= lastButton; ++i) {
        TMsgDlgBtn button = mbOK;
        if (ButtonOf(buttons[i], button)) {
            kinds.push_back(buttons[i]);
            request.Buttons << button;
        }
    }
    if (request.Buttons.Empty()) {
        kinds.push_back(bkOK);
        request.Buttons << mbOK;
    }
    TMsgDlgBtn defaultBtn = mbOK;
    if (!Offered(kinds, defaultButton) || !ButtonOf(defaultButton, defaultBtn))
        ButtonOf(kinds.front(), defaultBtn);
    request.DefaultButton = defaultBtn;
    return KindOf(QzDialogs().MessageBox(request), kinds);
}

} // namespace

AnsiString QzPkgMessageText(const AnsiString& pkgName, Integer msgId)
{
    if (const TQzPkgStrings* pkg = QzFindPkgStrings(pkgName))
        if (const TQzPkgStringsMessage* message = pkg->Messages()->FindId(msgId); message && !message->Text().empty())
            return message->Text();
    if (const char* builtIn = QzSystemMessageText(msgId))
        return builtIn;
    return Format("(Message %d of the package \"%s\" is missing.)", int(msgId), pkgName);
}

TQzButtonKind QzMsgPkg(TQzMessageType type, const AnsiString& pkgName, Integer msgId,
                       const TQzButtonKind* buttons, int lastButton, TQzButtonKind defaultButton)
{
    return Show(type, QzPkgMessageText(pkgName, msgId), buttons, lastButton, defaultButton);
}

TQzButtonKind QzMsgPkg(TQzMessageType type, const AnsiString& pkgName, Integer msgId,
                       std::initializer_list<TQzButtonKind> buttons, TQzButtonKind defaultButton)
{
    return QzMsgPkg(type, pkgName, msgId, buttons.begin(), int(buttons.size()) - 1, defaultButton);
}

TQzButtonKind QzMsgPkgArgs(TQzMessageType type, const AnsiString& pkgName, Integer msgId,
                           std::initializer_list<TVarRec> args, const TQzButtonKind* buttons, int lastButton,
                           TQzButtonKind defaultButton)
{
    return Show(type, FormatMessage(QzPkgMessageText(pkgName, msgId), args), buttons, lastButton, defaultButton);
}

TQzButtonKind QzMsgPkgArgs(TQzMessageType type, const AnsiString& pkgName, Integer msgId,
                           std::initializer_list<TVarRec> args, std::initializer_list<TQzButtonKind> buttons,
                           TQzButtonKind defaultButton)
{
    return QzMsgPkgArgs(type, pkgName, msgId, args, buttons.begin(), int(buttons.size()) - 1, defaultButton);
}
