#pragma once
// What the two windows that edit one images package share (the images
// editor and the memory image chooser): the grid's menu with Import and the
// "System" package's protection commands, which only system editing may
// run, and the dialogs that add, modify and delete an image.

#include "design/images/QzImagesViewMenu.h"
#include "runtime/model/QzTypes.h"

#include <functional>
#include <initializer_list>
#include <optional>

class TQzPkgImages;
class TQzPkgImagesImage;

// The view options with the protection line, then the package's commands.
struct TQzImagesPkgMenu : TQzImagesViewActions {
    QAction* MnImport = nullptr;
    // Opens the part of the menu only the "System" package shows.
    QAction* N3 = nullptr;
    QAction* MnProtectAllImages = nullptr;
    QAction* MnUnprotectAllImages = nullptr;

    // The view options, Import, and the protection commands last; a
    // window's own commands go in before N3 or before MnProtectAllImages.
    void CreatePkgMenu(QWidget* owner, TQzImagesGrid* grid, const std::function<void()>& import,
                       const std::function<void(bool protect)>& protectAll);
    // The "System" part shows for the system package only, and runs only
    // while the application allows system editing; more: the window's own
    // commands of that part. Importing into the system package asks the same.
    void ShowPkgCommands(const TQzPkgImages* package, std::initializer_list<QAction*> more = {});
};

// Adds an image to package (image null) or modifies image, in the dialog
// captioned "Add Image" or "Modify Image". The Id the image was written
// under; none when nothing was written.
std::optional<Integer> QzAddOrModifyImage(QWidget* parent, TQzPkgImages* package, const TQzPkgImagesImage* image);

// Asks before the selected image is deleted.
bool QzConfirmImageDelete();
