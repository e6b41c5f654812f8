// Every way qzide enters the suite's windows, walked on the demo project:
// each "..." of the property grid, each verb of each component editor and
// each double-click, on every component of every form, the Tools menu's
// commands, and then each entry of one component of every class the
// palette offers. Each entry must open its
// window (or do its work) without answering that it is not available and
// without an error; a window closed at once must leave the form as it was.
// With QZ_SCREENSHOT_DIR set, the first sight of each window is saved for
// the IDE guide.

#include "IdeFixture.h"

#include "designide/DesignEditors.h"
#include "designide/DesignIntf.h"
#include "designide/DesignMenuCommands.h"
#include "designide/forms/QzIdeProject.h"
#include "ide/QzDesignSurface.h"
#include "ide/QzInspector.h"
#include "ide/QzMainWindow.h"

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzScreenshot.h"
#include "vcl/QzQtString.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

#include <set>

namespace {

// The guide's pictures of windows the walk opens: the window's class, the
// entry that shows it best (its first sight when empty) and the file.
struct TGuidePicture {
    const char* Window;
    const char* Entry;
    const char* File;
};
constexpr TGuidePicture GuidePictures[] = {
    {"TFrAbout", "", "about.png"},
    {"TFrScrollBars", "", "scrollbars.png"},
    {"TFrMemoE", "", "memo-editor.png"},
    {"TFrImageE", "", "image-editor.png"},
    {"TFrRichEditE", "", "rich-editor.png"},
    {"TFrMsgHlp", "", "help-window.png"},
    {"TFrDisplay", "", "display.png"},
    {"TFrSetBackGround", "PanelTop.SetBackGround ...", "set-background.png"},
    {"TFrSetColor", "EditName.SetColor ...", "set-color.png"},
    {"TFrSetFont", "LabelTitle.SetFont ...", "set-font.png"},
    {"TFrSetup", "", "setup.png"},
    {"TFrPrivilege", "ButtonSave.Privilege ...", "privilege.png"},
    {"TFrPrivileges", "", "privileges.png"},
    {"TFrRichEdit", "", "rich-edit.png"},
    {"TFrCollection", "ListRecent.Items ...", "collection-items.png"},
    {"TFrMultiLine", "LabelRemark.Text ...", "multi-line.png"},
};

QString WindowClass(const QWidget* w)
{
    return w->objectName().isEmpty() ? QString::fromLatin1(w->metaObject()->className()) : w->objectName();
}

// Closes whatever the entry opened, as a user pressing Escape at once,
// and remembers what it was.
class TWindowCloser {
public:
    TWindowCloser()
    {
        FTimer.setInterval(5);
        QObject::connect(&FTimer, &QTimer::timeout, [this] { Poll(); });
        FTimer.start();
    }

    // Pictures are taken on the demo's own components only.
    void TakePictures(bool take) { FTakePictures = take; }

    // The entry about to run, for the pictures.
    void SetEntry(const QString& entry) { FEntry = entry; }

    // The windows seen since the last call.
    QStringList Take() { return std::exchange(FSeen, {}); }

    // The windows left open beside the designer are closed too.
    void CloseDesignWindows(const QWidget* main)
    {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w != main && w->isVisible() && !qobject_cast<QMenu*>(w)) {
                Seen(w);
                w->close();
            }
    }

private:
    void Seen(QWidget* w)
    {
        const QString name = WindowClass(w);
        FSeen << name;
        const QString shots = qEnvironmentVariable("QZ_SCREENSHOT_DIR");
        if (!FTakePictures || shots.isEmpty())
            return;
        for (const TGuidePicture& picture : GuidePictures)
            if (name == picture.Window && (*picture.Entry == 0 || FEntry == picture.Entry) &&
                FPictured.insert(name).second)
                QzSaveScreenshot(w, shots + "/" + picture.File);
    }

    void Poll()
    {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            Seen(popup);
            popup->close();
            return;
        }
        QWidget* w = QApplication::activeModalWidget();
        if (w == nullptr)
            return;
        Seen(w);
        TQzModalDriver::CloseModalWindows();
    }

    QTimer FTimer;
    QStringList FSeen;
    bool FTakePictures = false;
    QString FEntry;
    std::set<QString> FPictured;
};

class IdeEveryEntry : public TIdeTest {
protected:
    void SetUp() override
    {
        TIdeTest::SetUp();
        // Answers every question as Escape would; the walk looks at what
        // was asked instead of scripting it.
        FLenient.SetFailureHandler([](const AnsiString&) {});
        FLenientScope = std::make_unique<TQzDialogsScope>(FLenient);
    }

    void TearDown() override
    {
        FLenientScope.reset();
        TIdeTest::TearDown();
    }

    // Runs one entry and checks what it did; `what` names it in failures.
    void Enter(TIdeDesigner* d, const QString& what, const std::function<void()>& entry)
    {
        SCOPED_TRACE(what.toStdString());
        const std::string before = d->Snapshot();
        const std::size_t asked = FLenient.Calls().size();
        FCloser.Take();
        FCloser.SetEntry(what);
        entry();
        FCloser.CloseDesignWindows(FWindow.get());
        QApplication::processEvents();
        const QStringList windows = FCloser.Take();
        ++FEntries;
        for (std::size_t i = asked; i < FLenient.Calls().size(); ++i) {
            const TQzDialogCall& call = FLenient.Calls()[i];
            if (call.Kind != TQzDialogKind::Message)
                continue;
            EXPECT_EQ(call.Message.Text.find("is not available yet"), AnsiString::npos) << call.Message.Text;
            EXPECT_NE(call.Message.Type, mtError) << call.Message.Text;
        }
        // A verb that does its work (adds a page, fills a menu) changes the
        // form, and so does the first closing of an editor that keeps its
        // placement in its package; any other window closed at once must
        // not.
        const bool changed = d->Snapshot() != before;
        if (!windows.isEmpty() && !IsAction(what) && !windows.contains("TFrPkgImages") &&
            !windows.contains("TFrPkgVars")) {
            EXPECT_FALSE(changed) << "after closing " << windows.join(", ").toStdString();
        }
        if (changed)
            d->Restore(before);
        FOpened.append(windows);
    }

    static bool IsAction(const QString& what)
    {
        for (const char* verb : {"New Page", "Next Page", "Previous Page", "Build SystemMenu", "Update System"})
            if (what.contains(QLatin1String(verb)))
                return true;
        return false;
    }

    // The paths of every row with a "..." under parent, sub-properties
    // included, read before any of them runs: an entry may rebuild the rows.
    void DialogRows(const QModelIndex& parent, const QString& prefix, QStringList& paths)
    {
        TQzInspectorModel* model = FWindow->Inspector()->Properties();
        if (model->canFetchMore(parent))
            model->fetchMore(parent);
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex at = model->index(row, 0, parent);
            const QString path = prefix + QzQString(model->EditorAt(at)->GetName());
            if (model->AttributesAt(at).Contains(paDialog))
                paths << path;
            if (model->hasChildren(at))
                DialogRows(at, path + ".", paths);
        }
    }

    // Every entry of one component, found by name afresh for each.
    void WalkComponent(TIdeDesigner* d, const AnsiString& name)
    {
        const auto find = [d, name] { return name.empty() ? d->GetRoot() : d->GetComponent(name); };
        const QString label = name.empty() ? QStringLiteral("(form)") : QzQString(name);
        TQzDesignSurface* surface = Surface(d);
        const QStringList verbs = surface->Verbs(find());
        for (int i = 0; i < verbs.size(); ++i)
            Enter(d, label + " verb " + verbs[i], [&] { surface->ExecuteVerb(find(), i); });
        // Without an editor of the suite a double-click writes an event
        // handler, the host's own business.
        if (GetComponentEditorClass(find()->ClassType()).ClassName != EditorClass<TDefaultEditor>().ClassName)
            Enter(d, label + " double-click", [&] { surface->EditComponent(find()); });
        const auto select = [d, find, name] { d->SelectComponent(name.empty() ? nullptr : find()); };
        select();
        QStringList paths;
        DialogRows({}, QString(), paths);
        TQzInspectorModel* model = FWindow->Inspector()->Properties();
        for (const QString& path : paths) {
            select();
            Enter(d, label + "." + path + " ...", [&] { EXPECT_TRUE(model->EditRow(model->FindPath(path))); });
        }
    }

    void WalkForm(TIdeDesigner* d)
    {
        std::vector<AnsiString> names{AnsiString()};
        for (int i = 0; i < d->GetRoot()->ComponentCount(); ++i)
            names.push_back(d->GetRoot()->Components(i)->Name());
        for (const AnsiString& name : names)
            WalkComponent(d, name);
    }

    TQzScriptedDialogs FLenient;
    std::unique_ptr<TQzDialogsScope> FLenientScope;
    TWindowCloser FCloser;
    QStringList FOpened;
    int FEntries = 0;
};

TEST_F(IdeEveryEntry, EveryEntryOfTheDemoOpensAWorkingWindow)
{
    FCloser.TakePictures(true);
    for (int i = 0; i < FWindow->Project()->FormCount(); ++i) {
        TIdeDesigner* d = FWindow->ShowForm(i);
        ASSERT_TRUE(d);
        WalkForm(d);
    }
    // The Tools menu's commands of the design package.
    for (const TDesignMenuCommand& command : DesignMenuCommands())
        Enter(Main(), QzQString(command.Group + " " + command.Caption), [&] { command.Execute(); });
    // The demo is where the guide's windows are shown: it reaches every
    // window a property or a component opens directly.
    const std::set<QString> opened(FOpened.begin(), FOpened.end());
    for (const char* window :
         {"TFrMemoryLabel", "TFrMemoryMessage", "TFrMemoryText", "TFrMemoryImage", "TFrSetFont",
          "TFrSetBackGround", "TFrSetColor", "TFrPrivilege", "TFrPrivileges", "TFrSetup", "TFrLanguage",
          "TFrDisplay", "TFrPkgVars", "TFrPkgStrings", "TFrPkgImages", "TFrMultiLine", "TFrMask", "TFrRichEdit",
          "TFrCollection", "TFrCollPageControl", "TFrMenus", "TFrPkgActive", "TFrAbout", "TFrScrollBars",
          "TFrMemoE", "TFrImageE", "TFrRichEditE", "TFrMsgHlp", "TFrManager"})
        EXPECT_TRUE(opened.count(window)) << "nothing on the demo opens " << window;
}

TEST_F(IdeEveryEntry, EveryEntryOfEveryPaletteClassOpensAWorkingWindow)
{
    // The smallest of the demo's forms keeps each entry's before-and-after
    // comparison cheap.
    TIdeDesigner* d = FWindow->ShowForm(FWindow->Project()->IndexOfForm(QzAnsiString(Path("Options.dfm"))));
    ASSERT_TRUE(d);
    std::vector<AnsiString> added;
    d->Change("Add one of each", [&] {
        for (const TPalettePage& page : DesignRegistry().Pages())
            for (TMetaClass* cls : page.Classes) {
                try {
                    added.push_back(d->CreateComponent(cls, d->GetRoot())->Name());
                } catch (const std::exception&) {
                    // One application per project, and forms are not
                    // placed on forms: the demo's own are walked above.
                }
            }
    });
    ASSERT_GT(added.size(), 60u);
    for (const AnsiString& name : added)
        WalkComponent(d, name);
    // Well over a hundred rows and verbs: a walk that found none would
    // pass for nothing.
    EXPECT_GT(FEntries, 150);
}

}  // namespace
