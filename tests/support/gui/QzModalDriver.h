#pragma once
// Drives modal windows from a test without ever blocking it. Queue the steps
// first, then run the window (Execute, or whatever opens it): each step runs
// once a modal window is active, on that window, in order; a step that opens
// a nested modal window lets the following steps drive that one. When the
// steps have not all run within the time limit, or a modal window is still
// open that long after the last step, the test fails and the windows are
// closed, so the code under test returns.
//
//     TQzModalDriver driver;
//     driver.SetText("EdName", "Labels").Click("BtOk");
//     EXPECT_EQ(dialog.Execute(), mrOk);

#include <QObject>
#include <QString>
#include <QWidget>

#include <QElapsedTimer>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

// Raised inside a step when the window does not have what the step needs;
// the driver reports it as a test failure and closes the windows.
class TQzDriverError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class TQzModalDriver {
public:
    using TStep = std::function<void(QWidget* window)>;

    explicit TQzModalDriver(int timeoutMs = 10000);
    ~TQzModalDriver();  // fails the test when steps are left
    TQzModalDriver(const TQzModalDriver&) = delete;
    TQzModalDriver& operator=(const TQzModalDriver&) = delete;

    // Any step: `window` is the active modal window. Test assertions inside
    // a step report as usual.
    TQzModalDriver& Then(const QString& description, TStep step);
    // Sets a line edit's text at once (textChanged, not textEdited).
    TQzModalDriver& SetText(const QString& editName, const QString& text);
    // Focuses a control, selects its text, and types `text` key by key.
    TQzModalDriver& Type(const QString& controlName, const QString& text);
    // Clicks the button with that object name, else the one with that
    // caption ('&' ignored). The button must be enabled.
    TQzModalDriver& Click(const QString& nameOrCaption);
    // Checks or unchecks a check box or radio button by a click.
    TQzModalDriver& SetChecked(const QString& buttonName, bool checked);
    // A key to the window's focused control (the window when none has it).
    TQzModalDriver& Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    TQzModalDriver& Escape() { return Key(Qt::Key_Escape); }
    TQzModalDriver& Enter() { return Key(Qt::Key_Return); }
    // Saves a picture of the window (for the documentation).
    TQzModalDriver& Screenshot(const QString& fileName);

    int StepsRun() const { return FNext; }
    bool Finished() const { return FNext == static_cast<int>(FSteps.size()); }

    // The window's child of that type and object name; raises TQzDriverError
    // naming what is missing.
    template <typename T>
    static T* Find(QWidget* window, const QString& name)
    {
        T* child = window->findChild<T*>(name);
        if (child == nullptr)
            throw TQzDriverError(Missing(window, name).toStdString());
        return child;
    }

    // Closes every open modal window, innermost first.
    static void CloseModalWindows();

private:
    struct TEntry {
        QString Description;
        TStep Step;
    };

    static QString Missing(QWidget* window, const QString& name);
    void Schedule();
    void Poll();
    void RunStep(QWidget* window);
    void Abort(const QString& why);

    std::vector<TEntry> FSteps;
    int FNext = 0;
    int FTimeoutMs;
    bool FAborted = false;
    QElapsedTimer FClock;      // since the last step ran (or the first was queued)
    std::unique_ptr<QObject> FGuard;  // cancels pending polls when the driver goes
};
