#include "design/settings/QzShortCutEdit.h"

#include "design/controls/QzMenuShortCuts.h"
#include "design/settings/QzSetupKeys.h"
#include "vcl/QzQtString.h"

#include <QKeyEvent>

TQzShortCutEdit::TQzShortCutEdit(QWidget* parent) : QLineEdit(parent)
{
    setReadOnly(true);
    setPlaceholderText(QStringLiteral("(None)"));
}

void TQzShortCutEdit::SetShortCut(TShortCut shortCut)
{
    FShortCut = shortCut;
    setText(QzQString(QzShortCutToText(shortCut)));
}

void TQzShortCutEdit::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Escape || ((key == Qt::Key_Tab || key == Qt::Key_Backtab) && event->modifiers() == 0)) {
        event->ignore();
        return;
    }
    const TShortCut shortCut = QzShortCutOfKey(key, event->modifiers());
    event->accept();
    if (shortCut == 0)
        return;
    SetShortCut(shortCut);
    if (OnPressed)
        OnPressed(shortCut);
}
