#include "runtime/components/QzControl.h"

TQzControlParts::TQzControlParts(TPersistent* owner)
    : FLabel(std::make_unique<TQzMemoryLabel>()),
      FPrivilege(std::make_unique<TQzPrivilege>()),
      FSetFont(std::make_unique<TQzSetFont>()),
      FSetColor(std::make_unique<TQzSetColor>()),
      FSetBackGround(std::make_unique<TQzSetBackGround>())
{
    // The inspector names the label through its owner ("Form1.Label1.Caption").
    FLabel->SetOwner(owner);
}

TQzControlParts::~TQzControlParts() = default;

AnsiString QzUniqueComponentName(TComponent* owner, const AnsiString& className)
{
    const AnsiString base = className.size() > 1 && (className[0] == 'T' || className[0] == 't')
                                ? className.substr(1)
                                : className;
    for (int i = 1;; ++i) {
        AnsiString name = base + IntToStr(i);
        if (!owner || !owner->FindComponent(name))
            return name;
    }
}
