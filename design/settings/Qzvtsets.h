#pragma once
// TFrSetBackGround, TFrSetColor, TFrSetFont: choose the display set a
// control's set property names, and keep the application's sets of that
// kind on the way (new, edited, renamed, deleted). The sets are changed on
// a working copy; OK writes them back to the display package and the
// chosen name to the property, and the project's controls that named a
// renamed set name its new name. Cancel leaves all of them as they were.

#include "design/settings/QzDisplaySets.h"
#include "vcl/QzDialog.h"

#include "ui_TFrSetPicker.h"

#include <memory>

class TQzDisplaySetsPanel;
class TQzSetRef;

class TFrSetPicker : public TQzDialog, public Ui::TFrSetPicker {
    Q_OBJECT

public:
    TFrSetPicker(TQzDisplaySetKind kind, QWidget* parent);
    ~TFrSetPicker() override;

    using TQzDialog::Execute;
    // Runs the dialog on target, a set reference of the dialog's kind, and
    // the display package its names are looked up in.
    TModalResult Execute(TQzSetRef* target, TQzPkgDisplay* display);
    // After mrOk: whether the display package's sets were written.
    bool SetsWritten() const { return FWritten; }
    TQzDisplaySetsPanel* Panel() const { return FPanel; }

    void accept() override;

private:
    AnsiString Chosen() const;

    TQzDisplaySetKind FKind;
    TQzDisplaySetsPanel* FPanel;
    std::unique_ptr<TQzPkgDisplaySets> FWork;
    TQzSetRef* FTarget = nullptr;
    TQzPkgDisplay* FDisplay = nullptr;
    bool FChanged = false;
    bool FTouched = false;
    bool FWritten = false;
};

class TFrSetBackGround : public TFrSetPicker {
    Q_OBJECT
public:
    explicit TFrSetBackGround(QWidget* parent = nullptr) : TFrSetPicker(TQzDisplaySetKind::BackGround, parent)
    {
        setObjectName(QStringLiteral("TFrSetBackGround"));
    }
};

class TFrSetColor : public TFrSetPicker {
    Q_OBJECT
public:
    explicit TFrSetColor(QWidget* parent = nullptr) : TFrSetPicker(TQzDisplaySetKind::Color, parent)
    {
        setObjectName(QStringLiteral("TFrSetColor"));
    }
};

class TFrSetFont : public TFrSetPicker {
    Q_OBJECT
public:
    explicit TFrSetFont(QWidget* parent = nullptr) : TFrSetPicker(TQzDisplaySetKind::Font, parent)
    {
        setObjectName(QStringLiteral("TFrSetFont"));
    }
};

// Installs the three set dialogs as the windows of the set properties.
void RegisterQzvtsets();
