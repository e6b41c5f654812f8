#include "rtl/ModalResult.h"

namespace {

const char* const ModalResultNames[QzModalResultNameCount] = {
    "mrNone", "mrOk", "mrCancel", "mrAbort", "mrRetry", "mrIgnore", "mrYes", "mrNo",
    "mrAll", "mrNoToAll", "mrYesToAll", "mrCommit", "mrRollBack", "mrHelp", "mrDetail", "mrClose"};

}  // namespace

const char* QzModalResultName(TModalResult result)
{
    return result >= 0 && result < QzModalResultNameCount ? ModalResultNames[result] : nullptr;
}
