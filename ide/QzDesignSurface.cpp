#include "ide/QzDesignSurface.h"

#include "ide/QzControlLook.h"
#include "ide/QzFormClipboard.h"
#include "designide/forms/QzIdeDesigner.h"
#include "ide/QzPageButtons.h"
#include "ide/QzPalette.h"

#include "runtime/components/Controls.h"
#include "runtime/components/Forms.h"

#include "designide/DesignEditors.h"
#include "designide/forms/QzDesignNavigation.h"
#include "designide/forms/QzMenuBar.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include "rtl/ComponentStream.h"
#include "rtl/SysUtils.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int Margin = 8;
constexpr int HandleSize = 5;


QSize DefaultSize(TQzLook look)
{
    switch (look) {
    case TQzLook::Label: return {65, 13};
    case TQzLook::Edit: return {121, 21};
    case TQzLook::ComboBox: return {145, 21};
    case TQzLook::Button: return {75, 25};
    case TQzLook::CheckBox:
    case TQzLook::RadioButton: return {97, 17};
    case TQzLook::Panel: return {185, 41};
    case TQzLook::GroupBox: return {185, 105};
    case TQzLook::Memo:
    case TQzLook::ListBox: return {185, 89};
    case TQzLook::Image: return {105, 105};
    case TQzLook::PageControl: return {289, 193};
    case TQzLook::TabSheet:
    case TQzLook::Box: break;
    }
    return {100, 50};
}

}  // namespace

TQzDesignSurface::TQzDesignSurface(TIdeDesigner* designer, QWidget* parent) : QWidget(parent), FDesigner(designer)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, pal.color(QPalette::Mid).lighter(130));
    setPalette(pal);
    connect(designer, &TIdeDesigner::Changed, this, [this] {
        // After a change, what the form says of its pages holds again,
        // except where that would hide the selection.
        std::erase_if(FShownPages, [this](const auto& shown) {
            TComponent* paged = FDesigner->GetRoot()->FindComponent(shown.first);
            return !paged || QzCanSetActivePage(paged);
        });
        RevealSelection();
        updateGeometry();
        update();
    });
    connect(designer, &TIdeDesigner::SelectionChanged, this, [this] {
        RevealSelection();
        update();
    });
    connect(designer, &TIdeDesigner::RootReplaced, this, [this] {
        FDrag = TDrag::None;
        FStartBounds.clear();
        updateGeometry();
        update();
    });
}

int TQzDesignSurface::Border() const
{
    if (auto* form = dynamic_cast<TCustomForm*>(FDesigner->GetRoot()))
        return form->FrameWidth() / 2;
    return QzIsDataModule(FDesigner->GetRoot()) ? 1 : 4;
}

int TQzDesignSurface::CaptionHeight() const
{
    if (auto* form = dynamic_cast<TCustomForm*>(FDesigner->GetRoot()))
        return std::max(0, form->FrameHeight() - form->FrameWidth());
    return QzIsDataModule(FDesigner->GetRoot()) ? 0 : 19;
}

QPoint TQzDesignSurface::ClientOrigin() const
{
    return QPoint(Margin + Border(), Margin + Border() + CaptionHeight() + QzMenuBarHeight(FDesigner->GetRoot()));
}

QRect TQzDesignSurface::FormRect() const
{
    const QSize client = QzClientSize(FDesigner->GetRoot());
    return QRect(Margin, Margin, client.width() + 2 * Border(),
                 client.height() + CaptionHeight() + QzMenuBarHeight(FDesigner->GetRoot()) + 2 * Border());
}

QSize TQzDesignSurface::sizeHint() const
{
    QRect all = FormRect();
    TComponent* root = FDesigner->GetRoot();
    for (int i = 0; i < root->ComponentCount(); ++i)
        all = all.united(SurfaceRect(root->Components(i)));
    return all.adjusted(0, 0, Margin, Margin).size() + QSize(Margin, Margin);
}

// The whole form, however large, stays reachable by scrolling: the scroll
// area around the surface never shrinks it below its size.
QSize TQzDesignSurface::minimumSizeHint() const { return sizeHint(); }

// What the form names, unless the designer shows another page of a control
// it cannot set (a class it does not know).
TComponent* TQzDesignSurface::ActiveSheet(TComponent* paged) const
{
    if (const auto it = FShownPages.find(paged->Name()); it != FShownPages.end())
        if (TComponent* shown = QzChildNamed(paged, it->second))
            return shown;
    return QzActivePage(paged);
}

// Shows the page: through the control's ActivePage, one undoable change,
// or, for a class the designer does not know, only on the surface.
void TQzDesignSurface::ShowPage(TComponent* paged, TComponent* page)
{
    if (QzCanSetActivePage(paged)) {
        FShownPages.erase(paged->Name());
        if (QzActivePage(paged) != page)
            Run(QStringLiteral("Show %1").arg(QzQString(page->Name())), [&] {
                QzSetActivePage(paged, page);
                FDesigner->Modified();
            });
        update();
        return;
    }
    FShownPages[paged->Name()] = page->Name();
    update();
}

// A selected component on a sheet not shown brings its sheet forward, on
// the surface alone: the form keeps its ActivePage. (An outlook bar's
// pages lie where its active page puts them, so only a click on a button
// shows another.)
void TQzDesignSurface::RevealSelection()
{
    for (TComponent* selected : FDesigner->SelectedComponents())
        for (TComponent* c = selected; c && c != FDesigner->GetRoot(); c = c->GetParentComponent()) {
            TComponent* parent = c->GetParentComponent();
            if (parent && QzIsPageControl(parent) && ActiveSheet(parent) != c)
                FShownPages[parent->Name()] = c->Name();
        }
}

std::optional<TQzPageButton> TQzDesignSurface::PageButtonAt(const QPoint& pos) const
{
    std::optional<TQzPageButton> found;
    std::function<void(TComponent*)> search = [&](TComponent* parent) {
        for (int i = 0; i < parent->ChildCount(); ++i) {
            TComponent* c = parent->Child(i);
            if (!QzIsControl(c) || !IsShown(c))
                continue;
            if (QzIsPagedControl(c))
                for (const TQzPageButton& b : QzPageButtons(c, SurfaceRect(c), ActiveSheet(c), fontMetrics()))
                    if (b.Rect.contains(pos))
                        found = b;
            search(c);
        }
    };
    search(FDesigner->GetRoot());
    return found;
}

bool TQzDesignSurface::IsShown(TComponent* component) const
{
    for (TComponent* c = component; c && c != FDesigner->GetRoot(); c = c->GetParentComponent()) {
        TComponent* parent = c->GetParentComponent();
        if (parent && QzIsPagedControl(parent) && ActiveSheet(parent) != c)
            return false;
    }
    return true;
}

QPoint TQzDesignSurface::ContainerOrigin(TComponent* container) const
{
    if (!container || container == FDesigner->GetRoot())
        return ClientOrigin();
    return SurfaceRect(container).topLeft();
}

QRect TQzDesignSurface::SurfaceRect(TComponent* component) const
{
    TComponent* root = FDesigner->GetRoot();
    if (component == root)
        return FormRect();
    if (!QzIsControl(component)) {
        if (component->GetParentComponent() && component->GetParentComponent() != root)
            return {};
        return QRect(ClientOrigin() + QzIconPosition(component), QSize(QzIconSize, QzIconSize));
    }
    TComponent* parent = component->GetParentComponent();
    QRect bounds = QzControlBounds(component);
    if (parent && QzIsPageControl(parent)) {
        // A sheet fills its page control below the tabs.
        const QRect host = SurfaceRect(parent);
        return host.adjusted(4, QzTabRowHeight + 4, -4, -4);
    }
    return bounds.translated(ContainerOrigin(parent));
}

TComponent* TQzDesignSurface::ComponentAt(const QPoint& pos) const
{
    TComponent* root = FDesigner->GetRoot();
    // Icons lie above the controls.
    for (int i = root->ComponentCount() - 1; i >= 0; --i) {
        TComponent* c = root->Components(i);
        if (!QzIsControl(c) && SurfaceRect(c).contains(pos))
            return c;
    }
    TComponent* found = root;
    std::function<void(TComponent*)> search = [&](TComponent* parent) {
        for (int i = parent->ChildCount() - 1; i >= 0; --i) {
            TComponent* c = parent->Child(i);
            if (QzIsControl(c) && IsShown(c) && SurfaceRect(c).contains(pos)) {
                found = c;
                search(c);
                return;
            }
        }
    };
    search(root);
    return found;
}

TComponent* TQzDesignSurface::ContainerAt(const QPoint& pos) const
{
    TComponent* at = ComponentAt(pos);
    while (at && at != FDesigner->GetRoot() && !QzIsContainer(at))
        at = at->GetParentComponent();
    if (at && QzIsPagedControl(at) && ActiveSheet(at))
        at = ActiveSheet(at);
    return at ? at : FDesigner->GetRoot();
}

// ---- Painting ---------------------------------------------------------------

void TQzDesignSurface::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    TComponent* root = FDesigner->GetRoot();
    const QRect form = FormRect();
    const QPalette pal = palette();
    // The window: frame, caption bar, client area with its grid.
    p.fillRect(form, QColor(212, 208, 200));
    p.setPen(QColor(64, 64, 64));
    p.drawRect(form.adjusted(0, 0, -1, -1));
    const QRect client(ClientOrigin(), QzClientSize(root));
    if (QzIsDataModule(root)) {
        // A data module is no window: its components on a plain area.
        p.fillRect(client, Qt::white);
    } else {
        const QRect caption(form.left() + Border(), form.top() + Border(), form.width() - 2 * Border(),
                            CaptionHeight() - 1);
        QLinearGradient gradient(caption.topLeft(), caption.topRight());
        gradient.setColorAt(0, QColor(10, 36, 106));
        gradient.setColorAt(1, QColor(166, 202, 240));
        p.fillRect(caption, gradient);
        p.setPen(Qt::white);
        QFont bold = font();
        bold.setBold(true);
        p.setFont(bold);
        p.drawText(caption.adjusted(4, 0, -4, 0), Qt::AlignLeft | Qt::AlignVCenter, QzQString(QzFormCaption(root)));
        p.setFont(font());
        PaintMenuBar(p, QRect(caption.left(), caption.bottom() + 1, caption.width(), QzMenuBarHeight(root)));
        p.fillRect(client, QColor(212, 208, 200));
        p.setPen(QColor(90, 90, 90));
        for (int y = client.top(); y < client.bottom(); y += 8)
            for (int x = client.left(); x < client.right(); x += 8)
                p.drawPoint(x, y);
    }
    p.setClipRect(client);
    PaintChildren(p, root);
    PaintIcons(p);
    p.setClipping(false);
    PaintHandles(p);
    if (FDrag == TDrag::Band) {
        p.setPen(QPen(pal.color(QPalette::WindowText), 1, Qt::DashLine));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRect(FPressPos, FBandEnd).normalized());
    }
}

// The form's main menu as its bar shows it: the top-level items side by
// side, their mnemonics underlined as the window would draw them.
void TQzDesignSurface::PaintMenuBar(QPainter& p, const QRect& bar)
{
    if (bar.height() <= 0)
        return;
    p.fillRect(bar, QColor(212, 208, 200));
    p.setPen(Qt::black);
    int x = bar.left() + 6;
    for (const AnsiString& caption : QzMenuBarCaptions(QzFormMenu(FDesigner->GetRoot()))) {
        const int w = p.fontMetrics().horizontalAdvance(QzQString(QzStripMnemonic(caption))) + 14;
        p.drawText(QRect(x, bar.top(), w, bar.height()), Qt::AlignCenter | Qt::TextShowMnemonic, QzQString(caption));
        x += w;
        if (x >= bar.right())
            break;
    }
}

// A page control's tabs (only the shown sheet's contents show) or an
// outlook bar's buttons.
void TQzDesignSurface::PaintPageButtons(QPainter& p, TComponent* paged)
{
    const bool tabs = QzIsPageControl(paged);
    for (const TQzPageButton& b : QzPageButtons(paged, SurfaceRect(paged), ActiveSheet(paged), p.fontMetrics())) {
        p.fillRect(b.Rect, QColor(212, 208, 200));
        p.setPen(Qt::white);
        p.drawLine(b.Rect.topLeft(), b.Rect.topRight());
        p.drawLine(b.Rect.topLeft(), b.Rect.bottomLeft());
        p.setPen(QColor(64, 64, 64));
        p.drawLine(b.Rect.topRight(), b.Rect.bottomRight());
        if (!tabs)
            p.drawLine(b.Rect.bottomLeft(), b.Rect.bottomRight());
        p.setPen(Qt::black);
        p.drawText(b.Rect, Qt::AlignCenter | Qt::TextShowMnemonic, b.Title);
    }
}

void TQzDesignSurface::PaintChildren(QPainter& p, TComponent* parent)
{
    const bool pages = QzIsPageControl(parent);
    if (QzIsPagedControl(parent))
        PaintPageButtons(p, parent);
    for (int i = 0; i < parent->ChildCount(); ++i) {
        TComponent* child = parent->Child(i);
        if (!QzIsControl(child) || !IsShown(child))
            continue;
        const QRect r = SurfaceRect(child);
        if (pages) {
            // The page's frame; the sheet itself is flat inside it.
            const QRect host = SurfaceRect(parent).adjusted(0, QzTabRowHeight, 0, 0);
            p.setPen(Qt::white);
            p.drawLine(host.topLeft(), host.topRight());
            p.drawLine(host.topLeft(), host.bottomLeft());
            p.setPen(QColor(64, 64, 64));
            p.drawLine(host.bottomLeft(), host.bottomRight());
            p.drawLine(host.topRight(), host.bottomRight());
        } else if (!QzIsPageControl(child)) {
            QzPaintControl(p, child, r);
        }
        p.save();
        p.setClipRect(r, Qt::IntersectClip);
        PaintChildren(p, child);
        p.restore();
    }
}

void TQzDesignSurface::PaintIcons(QPainter& p)
{
    TComponent* root = FDesigner->GetRoot();
    for (int i = 0; i < root->ComponentCount(); ++i) {
        TComponent* c = root->Components(i);
        if (QzIsControl(c))
            continue;
        const QRect r = SurfaceRect(c);
        if (r.isEmpty())
            continue;
        p.fillRect(r, QColor(212, 208, 200));
        p.setPen(Qt::white);
        p.drawLine(r.topLeft(), r.topRight());
        p.drawLine(r.topLeft(), r.bottomLeft());
        p.setPen(QColor(64, 64, 64));
        p.drawLine(r.bottomLeft(), r.bottomRight());
        p.drawLine(r.topRight(), r.bottomRight());
        QzPaletteIcon(StreamedClassName(c)).paint(&p, r.adjusted(2, 2, -2, -2));
        const QString name = QzQString(c->Name());
        const int w = p.fontMetrics().horizontalAdvance(name) + 4;
        const QRect label(r.center().x() - w / 2, r.bottom() + 2, w, p.fontMetrics().height());
        p.fillRect(label, QColor(255, 255, 225));
        p.setPen(Qt::black);
        p.drawText(label, Qt::AlignCenter, name);
    }
}

std::vector<QRect> TQzDesignSurface::Handles(const QRect& r) const
{
    const int h = HandleSize;
    const int l = r.left() - h / 2 - 1, t = r.top() - h / 2 - 1;
    const int cx = r.center().x() - h / 2, cy = r.center().y() - h / 2;
    const int rr = r.right() - h / 2 + 1, b = r.bottom() - h / 2 + 1;
    // Clockwise from the top-left corner.
    return {QRect(l, t, h, h),   QRect(cx, t, h, h), QRect(rr, t, h, h), QRect(rr, cy, h, h),
            QRect(rr, b, h, h),  QRect(cx, b, h, h), QRect(l, b, h, h),  QRect(l, cy, h, h)};
}

void TQzDesignSurface::PaintHandles(QPainter& p)
{
    const std::vector<TComponent*> selected = FDesigner->SelectedComponents();
    const bool several = selected.size() > 1;
    for (TComponent* c : selected) {
        if (c == FDesigner->GetRoot() || !IsShown(c))
            continue;
        const QRect r = SurfaceRect(c);
        if (r.isEmpty())
            continue;
        for (const QRect& h : Handles(r))
            p.fillRect(h, several ? QColor(128, 128, 128) : QColor(0, 0, 0));
    }
}

int TQzDesignSurface::HandleAt(const QPoint& pos) const
{
    const std::vector<TComponent*> selected = FDesigner->SelectedComponents();
    if (selected.size() != 1 || !QzCanMove(selected.front()))
        return -1;
    const std::vector<QRect> handles = Handles(SurfaceRect(selected.front()));
    for (int i = 0; i < static_cast<int>(handles.size()); ++i)
        if (handles[i].adjusted(-1, -1, 1, 1).contains(pos))
            return i;
    return -1;
}

// ---- Changes ----------------------------------------------------------------

bool TQzDesignSurface::Run(const QString& text, const std::function<void()>& change)
{
    return QzRunReportingErrors(this, [&] { FDesigner->Change(text, change); });
}

TComponent* TQzDesignSurface::PlaceComponent(TMetaClass* cls, const QPoint& pos)
{
    if (!cls || !cls->CanCreate())
        return nullptr;
    TComponent* container = ContainerAt(pos);
    TComponent* created = nullptr;
    const bool ok = Run(QStringLiteral("Add %1").arg(QzQString(cls->ClassName())), [&] {
        const bool control = cls->InheritsFrom(TControl::ClassInfo());
        created = FDesigner->CreateComponent(cls, control ? container : nullptr);
        if (control) {
            const QPoint at = pos - ContainerOrigin(container);
            const QSize size = DefaultSize(QzLookOf(cls->ClassName()));
            QzSetControlBounds(created, QRect(at, size));
            if (const TPropInfo* caption = GetPropInfo(created, "Caption"); caption && caption->PropType->Kind == tkString)
                SetStrProp(created, caption, created->Name());
        } else {
            QzSetIconPosition(created, pos - ClientOrigin());
        }
    });
    if (!ok)
        return nullptr;
    FDesigner->SelectComponent(created);
    return created;
}

void TQzDesignSurface::NudgeSelection(int dx, int dy, bool size)
{
    std::vector<TComponent*> movable;
    for (TComponent* c : FDesigner->SelectedComponents())
        if (QzCanMove(c) || QzCanMoveIcon(c))
            movable.push_back(c);
    if (movable.empty())
        return;
    Run(size ? QStringLiteral("Size") : QStringLiteral("Move"), [&] {
        for (TComponent* c : movable) {
            if (QzCanMove(c)) {
                QRect r = QzControlBounds(c);
                if (size)
                    r.setSize(QSize(std::max(0, r.width() + dx), std::max(0, r.height() + dy)));
                else
                    r.translate(dx, dy);
                QzSetControlBounds(c, r);
            } else if (!size) {
                QzSetIconPosition(c, QzIconPosition(c) + QPoint(dx, dy));
            }
        }
        FDesigner->Modified();
    });
}

QStringList TQzDesignSurface::Verbs(TComponent* component) const
{
    QStringList verbs;
    auto editor = GetComponentEditor(component, FDesigner);
    for (int i = 0; i < editor->GetVerbCount(); ++i)
        verbs << QzQString(editor->GetVerb(i));
    return verbs;
}

bool TQzDesignSurface::ExecuteVerb(TComponent* component, int index)
{
    auto editor = GetComponentEditor(component, FDesigner);
    if (index < 0 || index >= editor->GetVerbCount())
        return false;
    const QString verb = QzQString(editor->GetVerb(index)).remove('&');
    return Run(verb, [&] { editor->ExecuteVerb(index); });
}

bool TQzDesignSurface::EditComponent(TComponent* component)
{
    auto editor = GetComponentEditor(component, FDesigner);
    return Run(QStringLiteral("Edit %1").arg(QzQString(component->Name())), [&] { editor->Edit(); });
}

// ---- Mouse and keys -------------------------------------------------------------

void TQzDesignSurface::SelectOnly(TComponent* component)
{
    FDesigner->SelectComponent(component == FDesigner->GetRoot() ? nullptr : component);
}

void TQzDesignSurface::Toggle(TComponent* component)
{
    if (component == FDesigner->GetRoot())
        return;
    TDesignerSelections selections = FDesigner->GetSelections();
    auto it = std::find(selections.begin(), selections.end(), component);
    if (it == selections.end())
        selections.push_back(component);
    else
        selections.erase(it);
    FDesigner->SetSelections(selections);
}

void TQzDesignSurface::mousePressEvent(QMouseEvent* event)
{
    setFocus();
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint pos = event->position().toPoint();
    if (TMetaClass* cls = PendingClass ? PendingClass() : nullptr) {
        PlaceComponent(cls, pos);
        if (ClassPlaced)
            ClassPlaced();
        return;
    }
    FPressPos = pos;
    FBandEnd = pos;
    FHandle = HandleAt(pos);
    FStartBounds.clear();
    if (FHandle < 0 && !(event->modifiers() & Qt::ShiftModifier)) {
        if (const std::optional<TQzPageButton> button = PageButtonAt(pos)) {
            // A tab or button shows its page and selects it.
            const AnsiString page = button->Page->Name();
            ShowPage(button->Page->GetParentComponent(), button->Page);
            SelectOnly(FDesigner->GetRoot()->FindComponent(page));
            FDrag = TDrag::None;
            return;
        }
    }
    if (FHandle >= 0) {
        FDrag = TDrag::Size;
    } else {
        TComponent* at = ComponentAt(pos);
        if (event->modifiers() & Qt::ShiftModifier) {
            Toggle(at);
            FDrag = TDrag::None;
            return;
        }
        if (at == FDesigner->GetRoot()) {
            SelectOnly(at);
            FDrag = TDrag::Band;
            return;
        }
        const auto selected = FDesigner->SelectedComponents();
        if (std::find(selected.begin(), selected.end(), at) == selected.end())
            SelectOnly(at);
        FDrag = TDrag::Move;
    }
    FBefore = FDesigner->Snapshot();
    for (TComponent* c : FDesigner->SelectedComponents()) {
        if (QzCanMove(c))
            FStartBounds[c] = QzControlBounds(c);
        else if (QzCanMoveIcon(c))
            FStartBounds[c] = QRect(QzIconPosition(c), QSize());
    }
}

void TQzDesignSurface::ApplyDrag(const QPoint& pos)
{
    const QPoint delta = pos - FPressPos;
    for (const auto& [c, start] : FStartBounds) {
        if (FDrag == TDrag::Move) {
            if (QzCanMove(c))
                QzSetControlBounds(c, start.translated(delta));
            else
                QzSetIconPosition(c, start.topLeft() + delta);
        } else if (FDrag == TDrag::Size && QzCanMove(c)) {
            QRect r = start;
            if (FHandle == 0 || FHandle == 6 || FHandle == 7)
                r.setLeft(std::min(start.left() + delta.x(), start.right()));
            if (FHandle == 2 || FHandle == 3 || FHandle == 4)
                r.setRight(std::max(start.right() + delta.x(), start.left() - 1));
            if (FHandle == 0 || FHandle == 1 || FHandle == 2)
                r.setTop(std::min(start.top() + delta.y(), start.bottom()));
            if (FHandle == 4 || FHandle == 5 || FHandle == 6)
                r.setBottom(std::max(start.bottom() + delta.y(), start.top() - 1));
            QzSetControlBounds(c, r);
        }
    }
    update();
}

void TQzDesignSurface::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    if (FDrag == TDrag::None) {
        static const Qt::CursorShape shapes[] = {Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor,
                                                 Qt::SizeHorCursor,   Qt::SizeFDiagCursor, Qt::SizeVerCursor,
                                                 Qt::SizeBDiagCursor, Qt::SizeHorCursor};
        const int handle = HandleAt(pos);
        setCursor(handle >= 0 ? shapes[handle] : Qt::ArrowCursor);
        return;
    }
    if (FDrag == TDrag::Band) {
        FBandEnd = pos;
        update();
        return;
    }
    ApplyDrag(pos);
}

void TQzDesignSurface::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    const TDrag drag = FDrag;
    FDrag = TDrag::None;
    if (drag == TDrag::Band) {
        const QRect band = QRect(FPressPos, pos).normalized();
        TDesignerSelections selections;
        TComponent* root = FDesigner->GetRoot();
        for (int i = 0; i < root->ComponentCount(); ++i) {
            TComponent* c = root->Components(i);
            if (c->GetParentComponent() == root || !QzIsControl(c))
                if (IsShown(c) && SurfaceRect(c).intersects(band))
                    selections.push_back(c);
        }
        if (band.width() > 2 || band.height() > 2)
            FDesigner->SetSelections(selections);
        update();
        return;
    }
    if (drag == TDrag::Move || drag == TDrag::Size) {
        ApplyDrag(pos);
        if (pos != FPressPos) {
            FDesigner->Record(drag == TDrag::Move ? QStringLiteral("Move") : QStringLiteral("Size"), std::move(FBefore));
            FDesigner->Modified();
        }
    }
    FStartBounds.clear();
}

void TQzDesignSurface::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        EditComponent(ComponentAt(event->position().toPoint()));
}

bool TQzDesignSurface::focusNextPrevChild(bool)
{
    // Tab chooses among the form's components; focus stays on the form.
    return false;
}

void TQzDesignSurface::keyPressEvent(QKeyEvent* event)
{
    TComponent* root = FDesigner->GetRoot();
    TComponent* current = FDesigner->SelectedComponents().front();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    int dx = 0, dy = 0;
    switch (event->key()) {
    case Qt::Key_Delete:
        FDesigner->DeleteComponents(FDesigner->SelectedComponents());
        return;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        const bool forward = event->key() == Qt::Key_Tab && !(modifiers & Qt::ShiftModifier);
        if (TComponent* next = QzNextSibling(root, current, forward))
            SelectOnly(next);
        return;
    }
    case Qt::Key_Escape:
        if (current != root)
            SelectOnly(QzDesignParent(root, current));
        return;
    case Qt::Key_Left: dx = -1; break;
    case Qt::Key_Right: dx = 1; break;
    case Qt::Key_Up: dy = -1; break;
    case Qt::Key_Down: dy = 1; break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (modifiers & Qt::ShiftModifier)
        NudgeSelection(dx, dy, true);
    else if (modifiers & Qt::ControlModifier)
        NudgeSelection(dx, dy, false);
    else if (modifiers != Qt::NoModifier)
        QWidget::keyPressEvent(event);
    else if (TComponent* nearest = QzNearestSibling(root, current, dx, dy))
        SelectOnly(nearest);
}

void TQzDesignSurface::FillContextMenu(QMenu& menu, TComponent* at)
{
    const QStringList verbs = Verbs(at);
    for (int i = 0; i < verbs.size(); ++i)
        connect(menu.addAction(verbs[i]), &QAction::triggered, this, [this, at, i] { ExecuteVerb(at, i); });
    if (!verbs.isEmpty())
        menu.addSeparator();
    const bool component = at != FDesigner->GetRoot();
    const auto add = [&](const QString& text, QKeySequence::StandardKey key, bool enabled, auto slot) {
        QAction* action = menu.addAction(text);
        action->setShortcut(key);
        action->setShortcutVisibleInContextMenu(true);
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, slot);
    };
    add(tr("Cu&t"), QKeySequence::Cut, component, [this] { QzCutSelection(*FDesigner, this); });
    add(tr("&Copy"), QKeySequence::Copy, component, [this] { QzCopySelection(*FDesigner, this); });
    add(tr("&Paste"), QKeySequence::Paste, true, [this] { QzPasteClipboard(*FDesigner, this); });
    add(tr("&Delete"), QKeySequence::Delete, component,
        [this] { FDesigner->DeleteComponents(FDesigner->SelectedComponents()); });
    menu.addSeparator();
    add(tr("Select &All"), QKeySequence::SelectAll, true, [this] { SelectAll(); });
}

void TQzDesignSurface::SelectAll()
{
    TComponent* root = FDesigner->GetRoot();
    const std::vector<TComponent*> all = QzSelectAllOf(root, FDesigner->SelectedComponents().front());
    FDesigner->SetSelections(TDesignerSelections(all.begin(), all.end()));
}

void TQzDesignSurface::contextMenuEvent(QContextMenuEvent* event)
{
    TComponent* at = ComponentAt(event->pos());
    const auto selected = FDesigner->SelectedComponents();
    if (std::find(selected.begin(), selected.end(), at) == selected.end())
        SelectOnly(at);
    QMenu menu(this);
    FillContextMenu(menu, at);
    menu.exec(event->globalPos());
}
