#pragma once
// The component palette: one tab per registered page, in registration
// order, with a button per class. A chosen class stays chosen until the
// next click on a form places it (or the arrow button is pressed).

#include "rtl/TypInfo.h"

#include <QIcon>
#include <QTabWidget>

class QButtonGroup;
class QToolButton;

class TQzPalette : public QTabWidget {
    Q_OBJECT

public:
    explicit TQzPalette(QWidget* parent = nullptr);

    // Builds the tabs from the design registry's pages.
    void Refresh();
    // The class to place, or nullptr for the arrow.
    TMetaClass* SelectedClass() const { return FSelected; }
    void SelectClass(TMetaClass* cls);
    void ClearSelection() { SelectClass(nullptr); }
    QStringList PageNames() const;
    QToolButton* ButtonOf(TMetaClass* cls) const;

signals:
    void ClassSelected(TMetaClass* cls);

private:
    QButtonGroup* FGroup;
    TMetaClass* FSelected = nullptr;
};

// The class's palette picture: the bitmap the runtime ships for it, else
// one drawn from its name.
QIcon QzPaletteIcon(const TMetaClass* cls);
QIcon QzPaletteIcon(const AnsiString& className);
