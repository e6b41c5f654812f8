#include "runtime/dialogs/QzStandardWindows.h"

#include "runtime/dialogs/QzCalculator.h"
#include "runtime/dialogs/QzCalendar.h"
#include "runtime/dialogs/QzMessageBox.h"
#include "runtime/model/QzApplication.h"

#include <QApplication>

namespace {

bool RunCalculator(int decimals, Extended& value)
{
    TFrQzCalculator window(QApplication::activeWindow());
    return window.Execute(decimals, value);
}

bool RunCalendar(TDateTime& value)
{
    TFrQzCalendar window(QApplication::activeWindow());
    return window.Execute(value);
}

} // namespace

void RegisterQzStandardWindows()
{
    SetQzStandardWindows({RunCalculator, RunCalendar});
    SetQzMessageBoxHook(QzShowMessageBox);
}
