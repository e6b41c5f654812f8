#pragma once
// A field that takes a shortcut by having it pressed: the key with its
// modifiers is shown by name and reported, and nothing is typed into it.
// Escape, Tab and a lone modifier keep their usual meaning.

#include "runtime/model/QzTypes.h"

#include <QLineEdit>

#include <functional>

class TQzShortCutEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit TQzShortCutEdit(QWidget* parent = nullptr);

    TShortCut ShortCut() const { return FShortCut; }
    // Shows shortCut; OnPressed is not called.
    void SetShortCut(TShortCut shortCut);

    // A shortcut was pressed.
    std::function<void(TShortCut)> OnPressed;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    TShortCut FShortCut = 0;
};
