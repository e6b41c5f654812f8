#include "runtime/dialogs/QzMessageBox.h"

#include "vcl/QzDialogs.h"

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

} // namespace

TQzButtonKind QzShowMessageBox(TQzMessageType type, const AnsiString& caption, const AnsiString& text,
                               const std::vector<TQzButtonKind>& offered, TQzButtonKind defaultKind)
{
    std::vector<TQzButtonKind> kinds;
    TQzMessageRequest request;
    request.Text = text;
    request.Caption = caption;
    request.Type = type;
    request.Buttons = {};
    for (TQzButtonKind kind : offered) {
        TMsgDlgBtn button = mbOK;
        if (ButtonOf(kind, button)) {
            kinds.push_back(kind);
            request.Buttons << button;
        }
    }
    if (request.Buttons.Empty()) {
        kinds.push_back(bkOK);
        request.Buttons << mbOK;
    }
    TMsgDlgBtn defaultBtn = mbOK;
    if (!Offered(kinds, defaultKind) || !ButtonOf(defaultKind, defaultBtn))
        ButtonOf(kinds.front(), defaultBtn);
    request.DefaultButton = defaultBtn;
    return KindOf(QzDialogs().MessageBox(request), kinds);
}
