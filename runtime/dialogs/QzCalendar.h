#pragma once
// TFrQzCalendar: the runtime's standard calendar window. It picks a day and
// leaves the time of day of the value it was given alone. Double-clicking
// a day, or Enter in the month, is OK.

#include "runtime/dialogs/QzCalendarDate.h"
#include "vcl/QzDialog.h"

#include "ui_TFrQzCalendar.h"

class TFrQzCalendar : public TQzDialog, public Ui::TFrQzCalendar {
    Q_OBJECT

public:
    explicit TFrQzCalendar(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Runs the window on the day of `value`. On OK writes the chosen day,
    // with the time of day `value` had, into `value` and returns true;
    // otherwise leaves `value` alone. A value no date can be written for
    // (not a finite number, outside the years 1 to 9999) is refused with a
    // message, without opening.
    bool Execute(TDateTime& value);

    TQzCalendarDay SelectedDay() const;
    void SelectDay(const TQzCalendarDay& day);

private:
    void SelectToday();
};
