#pragma once
// A designer host over a copy of the demo project in a temporary folder,
// with scripted dialogs, for the windowed tests of qzide.

#include "designide/forms/QzIdeDesigner.h"
#include "ide/QzMainWindow.h"

#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <string>

class TQzDesignSurface;

// The demo project's folder in the source tree.
QString DemoFolder();
// Registers the runtime's classes and loads the design package once.
void EnsureIdeRegistered();
std::string ReadBytes(const QString& file);
void WriteBytes(const QString& file, const std::string& bytes);

class TIdeTest : public TQzGuiTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // The copy of the demo project, opened, with the main form shown.
    QString Path(const QString& name) const { return FDir.filePath(name); }
    TIdeDesigner* Main() const;
    TQzDesignSurface* Surface(TIdeDesigner* designer) const;
    TComponent* Find(const char* name) const;
    void Select(std::initializer_list<const char*> names) const;

    QTemporaryDir FDir;
    std::unique_ptr<TQzMainWindow> FWindow;
    std::unique_ptr<TQzTestDialogs> FDialogs;
};
