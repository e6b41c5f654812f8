#include "vcl/QzReportErrors.h"

#include "vcl/QzDialogs.h"

bool QzRunReportingErrors(QWidget* parent, const std::function<void()>& change, const AnsiString& what)
{
    try {
        change();
        return true;
    } catch (const Exception& e) {
        QzMessage(what + e.Message(), mtError, {mbOK}, mbOK, parent);
        return false;
    }
}
