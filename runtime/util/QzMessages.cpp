#include "runtime/util/QzMessages.h"

#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/system/QzSystemStrings.h"

#include <vector>

namespace {

TQzMessageBoxHook MessageBoxHook = nullptr;

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
    if (MessageBoxHook == nullptr)
        return bkCustom;
    std::vector<TQzButtonKind> kinds;
    for (int i = 0; buttons != nullptr && i <= lastButton; ++i)
        kinds.push_back(buttons[i]);
    return MessageBoxHook(type, CaptionOf(type), text, kinds, defaultButton);
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

void SetQzMessageBoxHook(TQzMessageBoxHook hook)
{
    MessageBoxHook = hook;
}
