#pragma once
// Where a window stood when it was last closed, as package editors store
// it in their package and the windows restore it.

#include "rtl/System.h"

enum TWindowState : Integer { wsNormal = 0, wsMinimized = 1, wsMaximized = 2 };

struct TQzWindowPlacement {
    // A Left of this value means the window was never placed: it opens centred.
    static constexpr Integer NeverPlaced = 2147483647;

    Integer Left = NeverPlaced;
    Integer Top = 0;
    Integer Width = 0;
    Integer Height = 0;
    Integer State = wsNormal;

    bool IsPlaced() const { return Left != NeverPlaced; }
    bool operator==(const TQzWindowPlacement&) const = default;
};
