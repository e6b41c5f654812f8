#include "design/reg/QzCtrlsRegComponentEditors.h"

#include "design/reg/QzCtrlsRegReferences.h"

#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/model/QzApplication.h"

#include "vcl/QzDialogs.h"

namespace {

const char* const ApplicationVerbs[] = {
    "About QzControls ...",
    "Update System Packages",
    "View CA&pplication List",
    "View Standard Calculator",
    "View Standard Calendar",
    "View Standard Message",
    "View Standard Help",
    "View Standard Memo Editor",
    "View Standard Image Editor",
    "View Standard Rich Editor",
    "View Standard ScrollBars",
    "View Standard PopupMenus",
};
constexpr int ApplicationVerbCount = static_cast<int>(std::size(ApplicationVerbs));

const char* const OutLookBarVerbs[] = {"New Page", "Next Page", "Previous Page"};
const char* const PopupMenuVerbs[] = {"View &PopupMenu", "Build SystemMenu"};
const char* const PageControlVerbs[] = {"New Page", "Next Page", "Previous Page"};
const char* const PackageVerb = "View &Package List";

template <std::size_t N>
AnsiString VerbOf(const char* const (&verbs)[N], int index)
{
    return index >= 0 && index < static_cast<int>(N) ? AnsiString(verbs[index]) : AnsiString();
}

// count copies of text joined by ", ".
AnsiString Repeated(const AnsiString& text, int count)
{
    AnsiString line;
    for (int i = 0; i < count; ++i)
        line += (i ? ", " : "") + text;
    return line;
}

AnsiString Lines(const AnsiString& line, int count)
{
    AnsiString text;
    for (int i = 0; i < count; ++i)
        text += (i ? "\r\n" : "") + line;
    return text;
}

// The applications list, the runtime's sample editors and the about box
// take no object; they only need to be told where they open.
void RunWindow(TQzEditorDialog kind, TComponent* component, IDesigner* designer, const AnsiString& caption = {})
{
    TQzEditorDialogRequest request;
    request.Component = component;
    request.Designer = designer;
    request.Caption = caption;
    QzRunEditorDialog(kind, request);
}

void OpenMenus(TComponent* menu, IDesigner* designer)
{
    TQzEditorDialogRequest request;
    request.Component = menu;
    request.Designer = designer;
    QzRunEditorDialog(TQzEditorDialog::Menus, request);
}

}  // namespace

// ---------------------------------------------------------------------------
// The application

int TQzCApplicationComponentEditor::GetVerbCount()
{
    return ApplicationVerbCount;
}

AnsiString TQzCApplicationComponentEditor::GetVerb(int index)
{
    return VerbOf(ApplicationVerbs, index);
}

void TQzCApplicationComponentEditor::Edit()
{
    RunWindow(TQzEditorDialog::Setup, Component(), GetDesigner());
}

AnsiString TQzCApplicationComponentEditor::ExampleMessageText()
{
    return Lines(Repeated("Example Message", 3), 3);
}

AnsiString TQzCApplicationComponentEditor::ExampleHelpText()
{
    return Lines(Repeated("Help Example", 7), 5);
}

void TQzCApplicationComponentEditor::ExecuteVerb(int index)
{
    auto* app = dynamic_cast<TQzCApplication*>(Component());
    if (!app)
        return;
    switch (index) {
    case 0:
        RunWindow(TQzEditorDialog::About, app, GetDesigner());
        break;
    case 1:
        if (app->UpdateSystemPkgs(false)) {
            if (GetDesigner())
                GetDesigner()->Modified();
        } else {
            QzMessage("The built-in System packages are not installed; nothing was updated.", mtInformation);
        }
        break;
    case 2:
        RunWindow(TQzEditorDialog::PkgActive, app, GetDesigner());
        break;
    case 3: {
        Extended value = 0;
        app->Calculator(0, value);
        break;
    }
    case 4: {
        TDateTime date = Now();
        app->Calendar(date);
        break;
    }
    case 5:
        QzMessage(ExampleMessageText(), mtConfirmation, {mbOK, mbCancel}, mbOK);
        break;
    case 6: {
        TQzEditorDialogRequest request;
        request.Component = app;
        request.Designer = GetDesigner();
        request.PkgName = "System";
        request.TopicId = 4;
        request.Text = ExampleHelpText();
        QzRunEditorDialog(TQzEditorDialog::Help, request);
        break;
    }
    case 7:
        RunWindow(TQzEditorDialog::MemoEditor, nullptr, GetDesigner(), "Memo Editor Example");
        break;
    case 8:
        RunWindow(TQzEditorDialog::ImageEditor, nullptr, GetDesigner(), "Image Editor Example");
        break;
    case 9:
        RunWindow(TQzEditorDialog::RichEditor, nullptr, GetDesigner(), "Rich Editor Example");
        break;
    case 10:
        RunWindow(TQzEditorDialog::ScrollBars, nullptr, GetDesigner(), "ScrollBars Example");
        break;
    case 11: {
        // The window shows the menu with the application's display sets.
        std::unique_ptr<TQzPopupMenu> menu = BuildExamplePopupMenu();
        RunWindow(TQzEditorDialog::PopupMenu, menu.get(), GetDesigner());
        break;
    }
    default:
        break;
    }
}

std::unique_ptr<TQzPopupMenu> TQzCApplicationComponentEditor::BuildExamplePopupMenu()
{
    auto menu = std::make_unique<TQzPopupMenu>(nullptr);
    SetOrdProp(menu.get(), "ImagesVisible", 1);
    SetOrdProp(menu.get(), "ImageSize", 16);
    // A separator takes the image of the item added just before it, as the
    // sample always did.
    struct TEntry {
        const char* Caption;
        Integer ImageId;
    };
    static const TEntry entries[] = {
        {"Item Example", 48}, {"Item Example", 49}, {"Item Example", 50}, {"Item Example", 51}, {"-", 51},
        {"Item Example", 52}, {"-", 52},            {"Item Example", 53}, {"Item Example", 54}, {"-", 54},
        {"Item Example", 55}, {"Item Example", 56}, {"Item Example", 57},
    };
    for (const TEntry& entry : entries) {
        // Unowned: the menu's root item frees its sub-items.
        auto* item = new TQzMenuItem(nullptr);
        item->SetCaption(entry.Caption);
        item->Image()->PkgId("System", entry.ImageId);
        menu->Items()->Add(item);
    }
    return menu;
}

// ---------------------------------------------------------------------------
// The packages

int TQzPkgComponentEditor::GetVerbCount()
{
    return 1;
}

AnsiString TQzPkgComponentEditor::GetVerb(int index)
{
    return index == 0 ? AnsiString(PackageVerb) : AnsiString();
}

void TQzPkgComponentEditor::ExecuteVerb(int index)
{
    if (index != 0)
        return;
    QzRequireApplication();
    TQzEditorDialogRequest request;
    request.Component = Component();
    request.Package = Component();
    request.Designer = GetDesigner();
    QzRunEditorDialog(TQzEditorDialog::PkgActive, request);
}

void TQzPkgComponentEditor::Edit()
{
    QzRequireApplication();
    TQzEditorDialogRequest request;
    request.Component = Component();
    request.Package = Component();
    request.Designer = GetDesigner();
    QzRunEditorDialog(DialogKind(), request);
}

// ---------------------------------------------------------------------------
// The outlook bar and its pages

int TQzOutLookBarComponentEditor::GetVerbCount()
{
    return static_cast<int>(std::size(OutLookBarVerbs));
}

AnsiString TQzOutLookBarComponentEditor::GetVerb(int index)
{
    return VerbOf(OutLookBarVerbs, index);
}

void TQzOutLookBarComponentEditor::ExecuteVerb(int index)
{
    auto* bar = dynamic_cast<TQzOutLookBar*>(Bar());
    if (!bar || index < 0 || index > 2)
        return;
    const TQzOutLookBarPage* before = bar->ActivePage();
    if (index == 0) {
        TQzOutLookBarPage* page = bar->NewPage();
        if (GetDesigner())
            GetDesigner()->SelectComponent(page);
    } else if (index == 1) {
        bar->NextPage();
    } else {
        bar->PreviousPage();
    }
    if (GetDesigner() && (index == 0 || bar->ActivePage() != before))
        GetDesigner()->Modified();
}

TComponent* TQzOutLookBarPageComponentEditor::Bar() const
{
    auto* page = dynamic_cast<TQzOutLookBarPage*>(Component());
    return page ? page->OutLookBar() : nullptr;
}

void TQzOutLookBarPageComponentEditor::Edit()
{
    auto* page = dynamic_cast<TQzOutLookBarPage*>(Component());
    TQzOutLookBar* bar = page ? page->OutLookBar() : nullptr;
    if (!bar || bar->ActivePage() == page)
        return;
    bar->SetActivePage(page);
    if (GetDesigner())
        GetDesigner()->Modified();
}

// ---------------------------------------------------------------------------
// Menus and page controls

void TQzMainMenuComponentEditor::Edit()
{
    OpenMenus(Component(), GetDesigner());
}

void TQzPanelMenuComponentEditor::Edit()
{
    OpenMenus(Component(), GetDesigner());
}

int TQzPopupMenuComponentEditor::GetVerbCount()
{
    return static_cast<int>(std::size(PopupMenuVerbs));
}

AnsiString TQzPopupMenuComponentEditor::GetVerb(int index)
{
    return VerbOf(PopupMenuVerbs, index);
}

void TQzPopupMenuComponentEditor::Edit()
{
    OpenMenus(Component(), GetDesigner());
}

void TQzPopupMenuComponentEditor::ExecuteVerb(int index)
{
    if (index == 0) {
        OpenMenus(Component(), GetDesigner());
    } else if (index == 1) {
        auto* menu = dynamic_cast<TQzPopupMenu*>(Component());
        if (menu && menu->BuildSystemMenu() > 0 && GetDesigner())
            GetDesigner()->Modified();
    }
}

void TQzPageControlComponentEditor::Edit()
{
    auto* control = dynamic_cast<TQzCustomPageControl*>(Component());
    if (!control)
        return;
    TQzEditorDialogRequest request;
    request.Component = control;
    request.Target = control->Pages();
    request.Designer = GetDesigner();
    QzRunEditorDialog(TQzEditorDialog::CollPageControl, request);
}

int TQzPageControlComponentEditor::GetVerbCount()
{
    return static_cast<int>(std::size(PageControlVerbs));
}

AnsiString TQzPageControlComponentEditor::GetVerb(int index)
{
    return VerbOf(PageControlVerbs, index);
}

void TQzPageControlComponentEditor::ExecuteVerb(int index)
{
    auto* control = dynamic_cast<TQzCustomPageControl*>(Component());
    if (!control || index < 0 || index >= GetVerbCount())
        return;
    const TQzTabSheet* before = control->ActivePage();
    if (index == 0) {
        TQzTabSheet* sheet = control->AddPage()->TabSheet();
        if (GetDesigner())
            GetDesigner()->SelectComponent(sheet);
    } else if (control->PageCount() > 0) {
        // Round at the ends, as the outlook bar's verbs go.
        const int count = control->PageCount();
        const int at = control->ActivePageIndex();
        const int next = at < 0 ? (index == 1 ? 0 : count - 1) : (at + (index == 1 ? 1 : count - 1)) % count;
        control->SetActivePage(control->Page(next)->TabSheet());
    }
    if (GetDesigner() && control->ActivePage() != before)
        GetDesigner()->Modified();
}
