#include "design/images/QzImagesPkgCommands.h"

#include "design/images/Qzvtmemoryimageadd.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/util/QzMessages.h"

#include <QAction>
#include <QMenu>

void TQzImagesPkgMenu::CreatePkgMenu(QWidget* owner, TQzImagesGrid* grid, const std::function<void()>& import,
                                     const std::function<void(bool)>& protectAll)
{
    CreateViewMenu(owner, grid, true);
    PopupMenu1->addSeparator()->setObjectName("N2");
    MnImport = QzImagesMenuAction(PopupMenu1, "MnImport", "Import Images");
    N3 = PopupMenu1->addSeparator();
    N3->setObjectName("N3");
    MnProtectAllImages = QzImagesMenuAction(PopupMenu1, "MnProtectAllImages", "Protect All Images");
    MnUnprotectAllImages = QzImagesMenuAction(PopupMenu1, "MnUnprotectAllImages", "Unprotect All Images");

    QObject::connect(MnImport, &QAction::triggered, owner, [import] { import(); });
    QObject::connect(MnProtectAllImages, &QAction::triggered, owner, [protectAll] { protectAll(true); });
    QObject::connect(MnUnprotectAllImages, &QAction::triggered, owner, [protectAll] { protectAll(false); });
}

void TQzImagesPkgMenu::ShowPkgCommands(const TQzPkgImages* package, std::initializer_list<QAction*> more)
{
    const bool system = package && package->IsSystem();
    const bool systemEdit = QzCApp() && QzCApp()->SystemEdit();
    for (QAction* action : {MnProtected, N3, MnProtectAllImages, MnUnprotectAllImages})
        action->setVisible(system);
    MnProtectAllImages->setEnabled(systemEdit);
    MnUnprotectAllImages->setEnabled(systemEdit);
    for (QAction* action : more) {
        action->setVisible(system);
        action->setEnabled(systemEdit);
    }
    MnImport->setEnabled(package && (!system || systemEdit));
}

std::optional<Integer> QzAddOrModifyImage(QWidget* parent, TQzPkgImages* package, const TQzPkgImagesImage* image)
{
    TFrMemoryImageAdd dialog(parent);
    dialog.setWindowTitle(image ? "Modify Image" : "Add Image");
    const Integer id = image ? image->Id() : package->Images()->UniqueId();
    if (dialog.Execute(package, image != nullptr, id) != 1)
        return std::nullopt;
    return dialog.ResultId();
}

bool QzConfirmImageDelete()
{
    return QzMsgPkg(mtConfirmation, "System", 25, {bkOK, bkCancel}, bkOK) == bkOK;
}
