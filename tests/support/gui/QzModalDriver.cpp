#include "support/gui/QzModalDriver.h"

#include "support/gui/QzScreenshot.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

constexpr int PollIntervalMs = 10;

QString WithoutAccelerator(QString caption)
{
    return caption.remove('&');
}

QAbstractButton* FindButton(QWidget* window, const QString& nameOrCaption)
{
    const QList<QAbstractButton*> buttons = window->findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons)
        if (button->objectName() == nameOrCaption)
            return button;
    for (QAbstractButton* button : buttons)
        if (button->isVisible() && WithoutAccelerator(button->text()) == WithoutAccelerator(nameOrCaption))
            return button;
    QStringList known;
    for (QAbstractButton* button : buttons)
        known.append(QStringLiteral("%1 \"%2\"").arg(button->objectName(), button->text()));
    throw TQzDriverError(QStringLiteral("no button \"%1\" in \"%2\" (buttons: %3)")
                             .arg(nameOrCaption, window->windowTitle(), known.join(", "))
                             .toStdString());
}

QWidget* FocusIn(QWidget* window)
{
    QWidget* focus = QApplication::focusWidget();
    if (focus != nullptr && focus->window() == window)
        return focus;
    return window->focusWidget() != nullptr ? window->focusWidget() : window;
}

}  // namespace

TQzModalDriver::TQzModalDriver(int timeoutMs) : FTimeoutMs(timeoutMs), FGuard(std::make_unique<QObject>()) {}

TQzModalDriver::~TQzModalDriver()
{
    FGuard.reset();
    if (!FAborted && !Finished())
        ADD_FAILURE() << "Modal driver: " << FSteps.size() - FNext << " step(s) never ran, first: "
                      << FSteps[static_cast<std::size_t>(FNext)].Description.toStdString();
}

QString TQzModalDriver::Missing(QWidget* window, const QString& name)
{
    return QStringLiteral("no control \"%1\" of the expected type in \"%2\" (%3)")
        .arg(name, window->windowTitle(), QString::fromLatin1(window->metaObject()->className()));
}

TQzModalDriver& TQzModalDriver::Then(const QString& description, TStep step)
{
    if (FSteps.empty()) {
        FClock.start();
        Schedule();
    }
    FSteps.push_back({description, std::move(step)});
    return *this;
}

TQzModalDriver& TQzModalDriver::SetText(const QString& editName, const QString& text)
{
    return Then("set the text of " + editName, [editName, text](QWidget* window) {
        auto* edit = Find<QLineEdit>(window, editName);
        edit->setFocus();
        edit->setText(text);
    });
}

TQzModalDriver& TQzModalDriver::Type(const QString& controlName, const QString& text)
{
    return Then("type into " + controlName, [controlName, text](QWidget* window) {
        auto* control = Find<QWidget>(window, controlName);
        control->setFocus();
        if (auto* edit = qobject_cast<QLineEdit*>(control))
            edit->selectAll();
        QTest::keyClicks(control, text);
    });
}

TQzModalDriver& TQzModalDriver::Click(const QString& nameOrCaption)
{
    return Then("click " + nameOrCaption, [nameOrCaption](QWidget* window) {
        QAbstractButton* button = FindButton(window, nameOrCaption);
        if (!button->isEnabled())
            throw TQzDriverError(("button \"" + nameOrCaption + "\" is disabled").toStdString());
        QTest::mouseClick(button, Qt::LeftButton);
    });
}

TQzModalDriver& TQzModalDriver::SetChecked(const QString& buttonName, bool checked)
{
    return Then("check " + buttonName, [buttonName, checked](QWidget* window) {
        auto* button = Find<QAbstractButton>(window, buttonName);
        if (!button->isEnabled())
            throw TQzDriverError(("button \"" + buttonName + "\" is disabled").toStdString());
        if (button->isChecked() != checked)
            QTest::mouseClick(button, Qt::LeftButton);
        if (button->isChecked() != checked)
            throw TQzDriverError(("button \"" + buttonName + "\" did not change its check").toStdString());
    });
}

TQzModalDriver& TQzModalDriver::Key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    return Then(QStringLiteral("press key %1").arg(key), [key, modifiers](QWidget* window) {
        QTest::keyClick(FocusIn(window), key, modifiers);
    });
}

TQzModalDriver& TQzModalDriver::Screenshot(const QString& fileName)
{
    return Then("screenshot " + fileName, [fileName](QWidget* window) {
        if (!QzSaveScreenshot(window, fileName))
            throw TQzDriverError(("cannot write " + fileName).toStdString());
    });
}

void TQzModalDriver::CloseModalWindows()
{
    // Hiding a modal window takes it off the stack at once; the loops of
    // their exec() calls end when control returns to them.
    for (int guard = 0; guard < 64; ++guard) {
        QWidget* window = QApplication::activeModalWidget();
        if (window == nullptr)
            return;
        if (auto* dialog = qobject_cast<QDialog*>(window))
            dialog->reject();
        else
            window->close();
        if (QApplication::activeModalWidget() == window)
            window->hide();
    }
}

void TQzModalDriver::Schedule()
{
    QTimer::singleShot(PollIntervalMs, FGuard.get(), [this] { Poll(); });
}

void TQzModalDriver::Poll()
{
    // The next poll is queued before a step runs: a step that opens a nested
    // modal window blocks until it closes, and that window needs the polls.
    Schedule();
    QWidget* window = QApplication::activeModalWidget();
    if (FAborted) {
        CloseModalWindows();
        return;
    }
    if (FClock.elapsed() > FTimeoutMs) {
        if (!Finished())
            Abort(QStringLiteral("timed out waiting to %1 (%2)")
                      .arg(FSteps[static_cast<std::size_t>(FNext)].Description,
                           window != nullptr ? "its window was \"" + window->windowTitle() + "\""
                                             : QStringLiteral("no modal window was open")));
        else if (window != nullptr && window->isVisible())
            Abort(QStringLiteral("the window \"%1\" was still open after the last step").arg(window->windowTitle()));
        return;
    }
    if (!Finished() && window != nullptr && window->isVisible())
        RunStep(window);
}

void TQzModalDriver::RunStep(QWidget* window)
{
    // A copy: a step may queue further steps.
    const TEntry entry = FSteps[static_cast<std::size_t>(FNext++)];
    try {
        entry.Step(window);
    } catch (const std::exception& e) {
        Abort(QStringLiteral("cannot %1: %2").arg(entry.Description, QString::fromUtf8(e.what())));
        return;
    }
    FClock.start();
}

void TQzModalDriver::Abort(const QString& why)
{
    ADD_FAILURE() << "Modal driver: " << why.toStdString();
    FAborted = true;
    CloseModalWindows();
}
