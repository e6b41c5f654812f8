#include "support/gui/QzTestDialogs.h"

#include <gtest/gtest.h>

TQzTestDialogs::TQzTestDialogs() : FScope(FScript)
{
    FScript.SetFailureHandler([](const AnsiString& message) { ADD_FAILURE() << "Dialogs: " << message; });
}

TQzTestDialogs::~TQzTestDialogs()
{
    for (const AnsiString& answer : FScript.Pending())
        ADD_FAILURE() << "Dialogs: scripted but never asked: " << answer;
}
