#include "runtime/components/QzAddCtrls.h"

void TQzTimer::DeclareProperties(TClassBuilder<TQzTimer>& b)
{
    b.Property("Enabled", &TQzTimer::Enabled, &TQzTimer::SetEnabled).Default(true);
    b.Property("Interval", &TQzTimer::Interval, &TQzTimer::SetInterval).Default(1000);
    b.Event("OnTimer", &TQzTimer::FOnTimer);
}

const TTypeInfo* TypeInfo_TThreadPriority()
{
    static const TTypeInfo* t = DefineEnumType(
        "TThreadPriority", {"tpIdle", "tpLowest", "tpLower", "tpNormal", "tpHigher", "tpHighest", "tpTimeCritical"});
    return t;
}

void TQzThreadTimer::DeclareProperties(TClassBuilder<TQzThreadTimer>& b)
{
    b.Enum("Priority", TypeInfo_TThreadPriority(), &TQzThreadTimer::FPriority, &TQzThreadTimer::FPriority, tpNormal);
}

void TQzCBuffer::DeclareProperties(TClassBuilder<TQzCBuffer>& b)
{
    b.Property("Active", &TQzCBuffer::FActive).Default(true);
    b.Property("Capacity", &TQzCBuffer::FCapacity).Default(1);
    b.Property("DataSource", &TQzCBuffer::FDataSource);
}

void TQzLBPrivileges::DeclareProperties(TClassBuilder<TQzLBPrivileges>& b)
{
    b.Property("ShowAccess", &TQzLBPrivileges::FShowAccess).Default(true);
}

void TQzFontComboBox::DeclareProperties(TClassBuilder<TQzFontComboBox>& b)
{
    b.Property("ShowFonts", &TQzFontComboBox::FShowFonts).Default(true);
}

void TQzFontListBox::DeclareProperties(TClassBuilder<TQzFontListBox>& b)
{
    b.Property("ShowFonts", &TQzFontListBox::FShowFonts).Default(true);
}
