#pragma once
// The additional components: timers, the component buffer, the list of the
// application's privileges, and the font lists.

#include "runtime/components/QzEditors.h"

// Fires OnTimer every Interval milliseconds while enabled.
class TQzTimer : public TNonVisualComponent {
    QZ_CLASS(TQzTimer, TNonVisualComponent)

public:
    explicit TQzTimer(TComponent* owner) : TNonVisualComponent(owner) {}
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool value) { FEnabled = value; }
    Cardinal Interval() const { return FInterval; }
    void SetInterval(Cardinal value) { FInterval = value; }

private:
    static void DeclareProperties(TClassBuilder<TQzTimer>& b);

    bool FEnabled = true;
    Cardinal FInterval = 1000;
    AnsiString FOnTimer;
};

enum TThreadPriority { tpIdle, tpLowest, tpLower, tpNormal, tpHigher, tpHighest, tpTimeCritical };
const TTypeInfo* TypeInfo_TThreadPriority();

// The same, counted by a thread of its own so a busy window does not delay it.
class TQzThreadTimer : public TQzTimer {
    QZ_CLASS(TQzThreadTimer, TQzTimer)

public:
    explicit TQzThreadTimer(TComponent* owner) : TQzTimer(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzThreadTimer>& b);

    TThreadPriority FPriority = tpNormal;
};

// Keeps the values of the form's data controls aside (as the form's
// clipboard) so they can be restored or carried to another record.
class TQzCBuffer : public TNonVisualComponent {
    QZ_CLASS(TQzCBuffer, TNonVisualComponent)

public:
    explicit TQzCBuffer(TComponent* owner) : TNonVisualComponent(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzCBuffer>& b);

    bool FActive = true;
    Integer FCapacity = 1;
    AnsiString FDataSource;
};

// The privileges of the application's privileges package, with their
// access when ShowAccess is set.
class TQzLBPrivileges : public TQzListControl {
    QZ_CLASS(TQzLBPrivileges, TQzListControl)

public:
    explicit TQzLBPrivileges(TComponent* owner) : TQzListControl(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzLBPrivileges>& b);

    bool FShowAccess = true;
};

// The installed fonts, by name; each drawn in its own font when ShowFonts.
class TQzFontComboBox : public TQzLookupComboBox {
    QZ_CLASS(TQzFontComboBox, TQzLookupComboBox)

public:
    explicit TQzFontComboBox(TComponent* owner) : TQzLookupComboBox(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzFontComboBox>& b);

    bool FShowFonts = true;
};

class TQzFontListBox : public TQzLookupListBox {
    QZ_CLASS(TQzFontListBox, TQzLookupListBox)

public:
    explicit TQzFontListBox(TComponent* owner) : TQzLookupListBox(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzFontListBox>& b);

    bool FShowFonts = true;
};
