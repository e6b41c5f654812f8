#pragma once
// Base of every dialog of the design tools: modal results as the suite's
// forms use them, Escape closing the window whatever control has the focus,
// and optionally bounds remembered between two openings.

#include "rtl/ModalResult.h"

#include <QDialog>
#include <QPointer>

class QAbstractButton;
class QKeyEvent;
struct TQzResizeInfoDesigner;

class TQzDialog : public QDialog {
    Q_OBJECT

public:
    explicit TQzDialog(QWidget* parent = nullptr);
    ~TQzDialog() override;

    // Runs the dialog modally; returns the modal result it was closed with.
    TModalResult ShowModal();
    // What openers call. Dialogs with a target to prepare override it and
    // end with ShowModal().
    virtual TModalResult Execute();

    TModalResult ModalResult() const { return result(); }
    // A non-zero result closes a visible dialog, as assigning ModalResult
    // does on a form.
    void SetModalResult(TModalResult value);

    // The form sees key presses before its controls (on by default).
    bool KeyPreview() const { return FKeyPreview; }
    void SetKeyPreview(bool value) { FKeyPreview = value; }

    // Restores the bounds from `info` when shown and stores them back into it
    // when hidden. The record must outlive the dialog (it is usually a
    // file-level variable of the dialog's unit).
    void RememberBounds(TQzResizeInfoDesigner* info) { FResizeInfo = info; }

    void accept() override;  // mrOk
    void reject() override;  // mrCancel, as closing a form by its frame

protected:
    // A key pressed anywhere in the dialog, before the focused control sees
    // it. Return true to swallow it. The default closes on Escape.
    virtual bool FormKeyPress(QKeyEvent* event);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool IsFirstDelivery(QWidget* receiver, QKeyEvent* event);

    bool FKeyPreview = true;
    bool FFilterInstalled = false;
    TQzResizeInfoDesigner* FResizeInfo = nullptr;
    // The key event last previewed and where it was last seen, so that its
    // propagation to parent widgets is not previewed a second time.
    const QKeyEvent* FPreviewedEvent = nullptr;
    QPointer<QWidget> FPreviewedReceiver;
};

// Pressing `button` closes the dialog it is in with `result` (a button's
// ModalResult property). The button also carries the value as the dynamic
// property "ModalResult" for whoever inspects the form.
void QzSetModalResult(QAbstractButton* button, TModalResult result);
