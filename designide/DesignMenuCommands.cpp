#include "designide/DesignMenuCommands.h"

namespace {

std::vector<TDesignMenuCommand>& Commands()
{
    static std::vector<TDesignMenuCommand> commands;
    return commands;
}

}  // namespace

void RegisterDesignMenuCommand(TDesignMenuCommand command)
{
    for (TDesignMenuCommand& existing : Commands())
        if (existing.Group == command.Group && existing.Caption == command.Caption) {
            existing = std::move(command);
            return;
        }
    Commands().push_back(std::move(command));
}

const std::vector<TDesignMenuCommand>& DesignMenuCommands() { return Commands(); }

void ClearDesignMenuCommands() { Commands().clear(); }
