#include "runtime/dialogs/QzCalendar.h"

#include "rtl/SysUtils.h"
#include "vcl/QzDialogs.h"

TFrQzCalendar::TFrQzCalendar(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    // The years a TDateTime can be written in.
    CalDate->setDateRange(QDate(1, 1, 1), QDate(9999, 12, 31));
    connect(CalDate, &QCalendarWidget::activated, this, &TFrQzCalendar::accept);
    connect(BtToday, &QPushButton::clicked, this, &TFrQzCalendar::SelectToday);
    connect(BtOk, &QPushButton::clicked, this, &TFrQzCalendar::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrQzCalendar::reject);
}

bool TFrQzCalendar::Execute(TDateTime& value)
{
    TQzCalendarDay day;
    if (!QzCalendarDayOf(value, day)) {
        QzMessage("The calendar cannot show this value: it is no date between the years 1 and 9999.", mtError,
                  {mbOK}, mbOK, parentWidget());
        return false;
    }
    SelectDay(day);
    CalDate->setFocus();
    if (Execute() != mrOk)
        return false;
    value = QzMoveToDay(value, SelectedDay());
    return true;
}

TQzCalendarDay TFrQzCalendar::SelectedDay() const
{
    const QDate date = CalDate->selectedDate();
    return {Word(date.year()), Word(date.month()), Word(date.day())};
}

void TFrQzCalendar::SelectDay(const TQzCalendarDay& day)
{
    const QDate date(day.Year, day.Month, day.Day);
    CalDate->setSelectedDate(date);
    CalDate->setCurrentPage(date.year(), date.month());
}

void TFrQzCalendar::SelectToday()
{
    TQzCalendarDay today;
    if (QzCalendarDayOf(Date(), today))
        SelectDay(today);
}
