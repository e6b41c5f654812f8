#pragma once
// Scripted dialogs for one test: installed for the test's lifetime, every
// unexpected question fails the test, and answers left unasked at the end
// fail it too.

#include "vcl/QzScriptedDialogs.h"

class TQzTestDialogs {
public:
    TQzTestDialogs();
    ~TQzTestDialogs();
    TQzTestDialogs(const TQzTestDialogs&) = delete;
    TQzTestDialogs& operator=(const TQzTestDialogs&) = delete;

    TQzScriptedDialogs& Script() { return FScript; }
    TQzScriptedDialogs* operator->() { return &FScript; }

private:
    TQzScriptedDialogs FScript;
    TQzDialogsScope FScope;
};
