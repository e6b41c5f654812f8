#include "vcl/QzDialog.h"

#include "vcl/QzWindowBounds.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

namespace {

constexpr const char* ModalResultProperty = "ModalResult";

}  // namespace

TQzDialog::TQzDialog(QWidget* parent) : QDialog(parent) {}

TQzDialog::~TQzDialog()
{
    if (FFilterInstalled)
        qApp->removeEventFilter(this);
}

TModalResult TQzDialog::ShowModal()
{
    setResult(mrNone);
    return exec();
}

TModalResult TQzDialog::Execute()
{
    return ShowModal();
}

void TQzDialog::SetModalResult(TModalResult value)
{
    if (value != mrNone && isVisible())
        done(value);
    else
        setResult(value);
}

void TQzDialog::accept()
{
    done(mrOk);
}

void TQzDialog::reject()
{
    done(mrCancel);
}

bool TQzDialog::FormKeyPress(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        reject();
        return true;
    }
    return false;
}

bool TQzDialog::IsFirstDelivery(QWidget* receiver, QKeyEvent* event)
{
    // An unhandled key press travels from the focused control up through its
    // parents, passing the application's filters at every step: only the
    // first step is the form's preview.
    if (event == FPreviewedEvent && FPreviewedReceiver != nullptr && FPreviewedReceiver->parentWidget() == receiver) {
        FPreviewedReceiver = receiver;
        return false;
    }
    FPreviewedEvent = event;
    FPreviewedReceiver = receiver;
    return true;
}

bool TQzDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && FKeyPreview && watched->isWidgetType()) {
        auto* receiver = static_cast<QWidget*>(watched);
        auto* key = static_cast<QKeyEvent*>(event);
        if (receiver->window() == this && IsFirstDelivery(receiver, key) && FormKeyPress(key))
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

void TQzDialog::showEvent(QShowEvent* event)
{
    if (FResizeInfo != nullptr && !event->spontaneous())
        QzRestoreResizeInfoDesigner(this, *FResizeInfo);
    if (!FFilterInstalled) {
        // Qt has no form-level key preview: the application's filter is the
        // one place that sees a key before the focused control does.
        qApp->installEventFilter(this);
        FFilterInstalled = true;
    }
    QDialog::showEvent(event);
}

void TQzDialog::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous()) {
        if (FResizeInfo != nullptr)
            QzSaveResizeInfoDesigner(this, *FResizeInfo);
        if (FFilterInstalled) {
            qApp->removeEventFilter(this);
            FFilterInstalled = false;
        }
        FPreviewedEvent = nullptr;
        FPreviewedReceiver = nullptr;
    }
    QDialog::hideEvent(event);
}

void QzSetModalResult(QAbstractButton* button, TModalResult result)
{
    const bool connected = button->property(ModalResultProperty).isValid();
    button->setProperty(ModalResultProperty, result);
    if (connected)
        return;
    QObject::connect(button, &QAbstractButton::clicked, button, [button] {
        const TModalResult value = button->property(ModalResultProperty).toInt();
        if (value == mrNone)
            return;
        if (auto* dialog = qobject_cast<QDialog*>(button->window()))
            dialog->done(value);
    });
}
