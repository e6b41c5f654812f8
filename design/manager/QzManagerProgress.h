#pragma once
// What a long pass of the packages manager tells its onlooker and asks of
// it: the manager window shows a progress window, the command line shows
// nothing, and either can cancel.

#include "rtl/System.h"

class IQzManagerProgress {
public:
    virtual ~IQzManagerProgress() = default;
    // A pass begins (on) or ends (off); title is "Scanning", "Counting",
    // "Replacing" or "Cleaning". total is the number of steps the pass
    // will take (0 when unknown).
    virtual void SetWindowProgress(bool on, const AnsiString& title, int total) = 0;
    // The phase now running: a form's name, "Exist Check", ...
    virtual void ProgressLabel(const AnsiString& text) = 0;
    // count more steps done (one step is one line of a form, one set or
    // one privilege).
    virtual void IncProgressBar(int count = 1) = 0;
    // Asked after every step: true stops the pass after the current line
    // and skips the later phases.
    virtual bool CheckCancel() = 0;
};

// Shows nothing and never cancels.
class TQzNoProgress : public IQzManagerProgress {
public:
    void SetWindowProgress(bool, const AnsiString&, int) override {}
    void ProgressLabel(const AnsiString&) override {}
    void IncProgressBar(int) override {}
    bool CheckCancel() override { return false; }
};
