#pragma once
// The kinds of message box, in the order and with the values of the suite's
// message types (3 asks for confirmation, 2 informs). The model picks the
// kind of a message it wants shown; the windows decide how to show it.

enum TMsgDlgType : int { mtWarning = 0, mtError = 1, mtInformation = 2, mtConfirmation = 3, mtCustom = 4 };
