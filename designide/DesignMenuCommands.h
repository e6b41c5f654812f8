#pragma once
// Commands a design package adds to the host's menus, as the IDE lets a
// package add its own tools: the host lists them under its Tools menu,
// grouped into submenus, and runs them on the main thread. The package
// registers them from Register, so they exist only while it is loaded.

#include "rtl/System.h"

#include <functional>
#include <vector>

struct TDesignMenuCommand {
    AnsiString Group;     // the submenu ("Packages &Manager"); empty: the menu itself
    AnsiString Caption;   // the entry ("Labels")
    std::function<void()> Execute;
};

// Adds command, or replaces the one with the same group and caption, so a
// package registered twice shows each command once.
void RegisterDesignMenuCommand(TDesignMenuCommand command);
// In registration order.
const std::vector<TDesignMenuCommand>& DesignMenuCommands();
void ClearDesignMenuCommands();
