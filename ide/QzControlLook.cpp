#include "ide/QzControlLook.h"

#include "ide/QzMenuBar.h"

#include "vcl/QzQtString.h"

#include "runtime/components/Controls.h"
#include "runtime/components/Forms.h"
#include "runtime/model/QzMemory.h"

#include "rtl/ComponentStream.h"
#include "rtl/Filer.h"
#include "rtl/StringList.h"
#include "rtl/SysUtils.h"
#include "rtl/TypInfo.h"
#include "rtl/Variant.h"

#include <QPainter>
#include <QStyleOption>
#include <QApplication>

#include <algorithm>

namespace {

const TStreamedProperty* FindStreamed(TComponent* component, const AnsiString& name)
{
    auto* info = dynamic_cast<TComponentStreamInfo*>(component->StreamInfo());
    if (!info)
        return nullptr;
    for (const TStreamedProperty& p : info->Properties)
        if (SameText(p.Name, name))
            return &p;
    return nullptr;
}

// A raw value from the form file as text; nullopt when it is no string,
// identifier or number.
std::optional<AnsiString> DecodeText(const std::string& raw)
{
    try {
        TReader reader(raw);
        switch (reader.NextValue()) {
        case vaIdent:
        case vaFalse:
        case vaTrue:
        case vaNil:
            return reader.ReadIdent();
        case vaInt8:
        case vaInt16:
        case vaInt32:
            return IntToStr(reader.ReadInteger());
        case vaList: {
            // A string list: its first line stands for the rest.
            reader.ReadListBegin();
            return reader.EndOfList() ? AnsiString() : reader.ReadUnicodeString();
        }
        default:
            return reader.ReadUnicodeString();
        }
    } catch (const Exception&) {
        return std::nullopt;
    }
}

std::optional<Integer> DecodeInteger(const std::string& raw)
{
    try {
        TReader reader(raw);
        return reader.ReadInteger();
    } catch (const Exception&) {
        return std::nullopt;
    }
}

AnsiString ReferenceText(TObject* object)
{
    if (auto* ref = dynamic_cast<TQzMemoryRef*>(object); ref && !ref->Defined())
        return {};   // the control shows its own text instead
    if (auto* label = dynamic_cast<TQzMemoryLabel*>(object)) {
        const AnsiString text = label->Text();
        return text.empty() ? label->Info() : text;
    }
    if (auto* ref = dynamic_cast<TQzMemoryRef*>(object))
        return ref->Info();
    if (auto* component = dynamic_cast<TComponent*>(object))
        return component->Name();
    if (auto* lines = dynamic_cast<TStrings*>(object))
        return lines->Count() > 0 ? lines->Strings(0) : AnsiString();
    return {};
}

bool Contains(const AnsiString& text, const char* part) { return text.find(part) != AnsiString::npos; }

void DrawFrame(QPainter& p, const QRect& r, bool raised)
{
    const QPalette pal = QApplication::palette();
    const QColor light = pal.color(QPalette::Light), dark = pal.color(QPalette::Dark);
    p.setPen(raised ? light : dark);
    p.drawLine(r.topLeft(), r.topRight());
    p.drawLine(r.topLeft(), r.bottomLeft());
    p.setPen(raised ? dark : light);
    p.drawLine(r.bottomLeft(), r.bottomRight());
    p.drawLine(r.topRight(), r.bottomRight());
}


}  // namespace

TQzLook QzLookOf(const AnsiString& className)
{
    // Most specific names first: "TQzDBCheckBox" is a check box, not a box.
    static const std::pair<const char*, TQzLook> table[] = {
        {"TabSheet", TQzLook::TabSheet}, {"PageControl", TQzLook::PageControl},
        {"CheckBox", TQzLook::CheckBox},  {"RadioButton", TQzLook::RadioButton},
        {"RadioGroup", TQzLook::GroupBox}, {"GroupBox", TQzLook::GroupBox},
        {"ComboBox", TQzLook::ComboBox},  {"ListBox", TQzLook::ListBox},
        {"ListView", TQzLook::ListBox},   {"Memo", TQzLook::Memo},
        {"RichEdit", TQzLook::Memo},      {"Edit", TQzLook::Edit},
        {"Button", TQzLook::Button},      {"Btn", TQzLook::Button},
        {"Label", TQzLook::Label},        {"Panel", TQzLook::Panel},
        {"Image", TQzLook::Image},
    };
    for (const auto& [part, look] : table)
        if (Contains(className, part))
            return look;
    return TQzLook::Box;
}

std::optional<Integer> QzIntegerValue(TComponent* component, const AnsiString& name)
{
    if (const TPropInfo* prop = GetPropInfo(component, name)) {
        const TTypeKind kind = prop->PropType->Kind;
        if (kind == tkInteger || kind == tkEnumeration || kind == tkChar)
            return static_cast<Integer>(GetOrdProp(component, prop));
        return std::nullopt;
    }
    if (const TStreamedProperty* raw = FindStreamed(component, name))
        return DecodeInteger(raw->Raw);
    return std::nullopt;
}

AnsiString QzTextValue(TComponent* component, const AnsiString& name)
{
    if (const TPropInfo* prop = GetPropInfo(component, name)) {
        switch (prop->PropType->Kind) {
        case tkString:
            return GetStrProp(component, prop);
        case tkClass:
            return ReferenceText(GetObjectProp(component, prop));
        case tkEnumeration:
            return GetEnumProp(component, prop);
        case tkVariant:
            return VarToStr(GetVariantProp(component, prop));
        default:
            return {};
        }
    }
    if (const TStreamedProperty* raw = FindStreamed(component, name))
        return DecodeText(raw->Raw).value_or(AnsiString());
    // A memory reference read without its class: "(Id, Package)".
    const TStreamedProperty* id = FindStreamed(component, name + ".Id");
    if (!id)
        return {};
    const TStreamedProperty* pkg = FindStreamed(component, name + ".PkgName");
    return "(" + DecodeText(id->Raw).value_or("?") + ", " + (pkg ? DecodeText(pkg->Raw).value_or("") : "") + ")";
}

bool QzIsControl(TComponent* component)
{
    if (dynamic_cast<TControl*>(component))
        return true;
    if (dynamic_cast<TNonVisualComponent*>(component))
        return false;
    // Unregistered: a control is what the file gives a size, or what sits
    // on a control (only controls do; a page control's sheets store no size).
    // An image list's size is that of its pictures.
    if (UpperCase(StreamedClassName(component)).find("IMAGELIST") != AnsiString::npos)
        return false;
    if (FindStreamed(component, "Width") || FindStreamed(component, "Height"))
        return true;
    TComponent* parent = component->GetParentComponent();
    return parent && parent->GetParentComponent() && QzIsControl(parent);
}

bool QzIsContainer(TComponent* component)
{
    if (TComponent* parent = component->GetParentComponent(); parent && QzIsPageControl(parent))
        return true;
    switch (QzLookOf(StreamedClassName(component))) {
    case TQzLook::Panel:
    case TQzLook::GroupBox:
    case TQzLook::TabSheet:
        return true;
    case TQzLook::Box:
        // A registered windowed control of a kind not drawn on its own.
        return dynamic_cast<TWinControl*>(component) != nullptr;
    default:
        return false;
    }
}

bool QzIsPageControl(TComponent* component)
{
    if (QzLookOf(StreamedClassName(component)) == TQzLook::PageControl)
        return true;
    // The registered classes say what they are by their look.
    if (dynamic_cast<TControl*>(component) || !QzIsControl(component))
        return false;
    return QzChildNamed(component, QzTextValue(component, "ActivePage")) != nullptr;
}

TComponent* QzChildNamed(TComponent* parent, const AnsiString& name)
{
    for (int i = 0; !name.empty() && i < parent->ChildCount(); ++i)
        if (SameText(parent->Child(i)->Name(), name))
            return parent->Child(i);
    return nullptr;
}

AnsiString QzShownCaption(TComponent* component)
{
    AnsiString caption = QzTextValue(component, "Caption");
    if (caption.empty())
        caption = QzTextValue(component, "Label");
    return caption.empty() ? component->Name() : caption;
}

QRect QzControlBounds(TComponent* component)
{
    if (auto* control = dynamic_cast<TControl*>(component))
        return QRect(control->Left(), control->Top(), control->Width(), control->Height());
    return QRect(QzIntegerValue(component, "Left").value_or(0), QzIntegerValue(component, "Top").value_or(0),
                 QzIntegerValue(component, "Width").value_or(0), QzIntegerValue(component, "Height").value_or(0));
}

bool QzCanMove(TComponent* component) { return dynamic_cast<TControl*>(component) != nullptr; }

void QzSetControlBounds(TComponent* component, const QRect& bounds)
{
    if (auto* control = dynamic_cast<TControl*>(component))
        control->SetBounds(bounds.x(), bounds.y(), std::max(0, bounds.width()), std::max(0, bounds.height()));
}

QPoint QzIconPosition(TComponent* component)
{
    if (dynamic_cast<TNonVisualComponent*>(component) || !component->StreamInfo() || component->DesignInfo() != 0)
        return QPoint(component->DesignInfo() & 0xFFFF, (component->DesignInfo() >> 16) & 0xFFFF);
    return QPoint(QzIntegerValue(component, "Left").value_or(0), QzIntegerValue(component, "Top").value_or(0));
}

bool QzCanMoveIcon(TComponent* component) { return dynamic_cast<TNonVisualComponent*>(component) != nullptr; }

void QzSetIconPosition(TComponent* component, const QPoint& position)
{
    if (auto* nonVisual = dynamic_cast<TNonVisualComponent*>(component))
        nonVisual->SetDesignPosition(std::clamp(position.x(), 0, 0xFFFF), std::clamp(position.y(), 0, 0xFFFF));
}

QRect QzDesignRect(TComponent* component)
{
    if (QzIsControl(component))
        return QzControlBounds(component);
    return QRect(QzIconPosition(component), QSize(QzIconSize, QzIconSize));
}

QSize QzClientSize(TComponent* root)
{
    if (auto* form = dynamic_cast<TCustomForm*>(root))
        return QSize(form->ClientWidth(), form->ClientHeight());
    if (auto* control = dynamic_cast<TControl*>(root))
        return QSize(control->Width(), control->Height());
    if (QzIsDataModule(root))
        return QSize(QzIntegerValue(root, "Width").value_or(215), QzIntegerValue(root, "Height").value_or(150));
    const auto cw = QzIntegerValue(root, "ClientWidth"), ch = QzIntegerValue(root, "ClientHeight");
    if (cw && ch)
        return QSize(*cw, *ch);
    // A window's frame (classic metrics) and menu bar around its client area.
    return QSize(QzIntegerValue(root, "Width").value_or(400) - 8,
                 QzIntegerValue(root, "Height").value_or(300) - 27 - QzMenuBarHeight(root));
}

// A data module writes its designer's bounds after everything else, the
// height before the width; a form publishes Width before Height.
bool QzIsDataModule(TComponent* root)
{
    auto* info = dynamic_cast<TComponentStreamInfo*>(root->StreamInfo());
    if (dynamic_cast<TControl*>(root) || !info || FindStreamed(root, "Caption"))
        return false;
    const auto& props = info->Properties;
    const auto at = [&](const char* name) {
        return std::find_if(props.begin(), props.end(), [&](const TStreamedProperty& p) { return SameText(p.Name, name); });
    };
    const auto height = at("Height"), width = at("Width");
    return height != props.end() && width != props.end() && height < width;
}

AnsiString QzFormCaption(TComponent* root)
{
    const AnsiString caption = QzTextValue(root, "Caption");
    return caption.empty() ? root->Name() : caption;
}

namespace {
// Captions mark their mnemonic with '&' ("&&" is an ampersand): underlined
// as the platform draws them.
constexpr int CaptionFlags = Qt::TextShowMnemonic;
}  // namespace

void QzPaintControl(QPainter& p, TComponent* component, const QRect& r)
{
    const AnsiString className = StreamedClassName(component);
    const QPalette pal = QApplication::palette();
    QString caption = QzQString(QzTextValue(component, "Caption"));
    QString text = QzQString(QzTextValue(component, "Text"));
    if (text.isEmpty())
        text = QzQString(QzTextValue(component, "Value"));
    // The suite's controls name a label for their caption and keep literal
    // text beside it; either may be what shows.
    if (caption.isEmpty())
        caption = text;
    p.save();
    // Within what the parent clips to: a control never shows outside its
    // parent's client area.
    p.setClipRect(r.adjusted(0, 0, 1, 1), p.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    const QRect inner = r.adjusted(1, 1, -1, -1);
    switch (QzLookOf(className)) {
    case TQzLook::Label:
        p.setPen(pal.color(QPalette::WindowText));
        p.drawText(r, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | CaptionFlags,
                   caption.isEmpty() ? QzQString(component->Name()) : caption);
        break;
    case TQzLook::Edit:
    case TQzLook::ComboBox:
    case TQzLook::Memo:
    case TQzLook::ListBox: {
        p.fillRect(r, pal.color(QPalette::Base));
        DrawFrame(p, r, false);
        p.setPen(pal.color(QPalette::Text));
        const QString shown = text.isEmpty() ? (caption.isEmpty() ? QzQString(component->Name()) : caption) : text;
        const QRect textRect = inner.adjusted(3, 1, -3, -1);
        const TQzLook look = QzLookOf(className);
        if (look == TQzLook::ComboBox) {
            const QRect button(r.right() - 17, r.top() + 2, 16, r.height() - 4);
            p.fillRect(button, pal.color(QPalette::Button));
            DrawFrame(p, button, true);
            p.setPen(pal.color(QPalette::Text));
            p.drawText(button, Qt::AlignCenter, QStringLiteral("\u25BE"));
            p.drawText(textRect.adjusted(0, 0, -18, 0), Qt::AlignLeft | Qt::AlignVCenter, shown);
        } else if (look == TQzLook::Edit) {
            p.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter, shown);
        } else {
            p.drawText(textRect, Qt::AlignLeft | Qt::AlignTop, shown);
        }
        break;
    }
    case TQzLook::Button:
        p.fillRect(r, pal.color(QPalette::Button));
        DrawFrame(p, r, true);
        DrawFrame(p, inner, true);
        p.setPen(pal.color(QPalette::ButtonText));
        p.drawText(r, Qt::AlignCenter | CaptionFlags, caption.isEmpty() ? QzQString(component->Name()) : caption);
        break;
    case TQzLook::CheckBox:
    case TQzLook::RadioButton: {
        const QRect box(r.left() + 1, r.top() + (r.height() - 13) / 2, 13, 13);
        p.setPen(pal.color(QPalette::Dark));
        p.setBrush(pal.color(QPalette::Base));
        if (QzLookOf(className) == TQzLook::RadioButton)
            p.drawEllipse(box);
        else
            p.drawRect(box);
        const bool checked = SameText(QzTextValue(component, "Checked"), "True");
        p.setPen(pal.color(QPalette::WindowText));
        if (checked)
            p.drawText(box, Qt::AlignCenter, QStringLiteral("\u2713"));
        p.drawText(r.adjusted(18, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | CaptionFlags,
                   caption.isEmpty() ? QzQString(component->Name()) : caption);
        break;
    }
    case TQzLook::Panel:
        DrawFrame(p, r, true);
        p.setPen(pal.color(QPalette::WindowText));
        p.drawText(r, Qt::AlignCenter | CaptionFlags, caption);
        break;
    case TQzLook::GroupBox: {
        const QRect frame = r.adjusted(0, 6, 0, 0);
        p.setPen(pal.color(QPalette::Dark));
        p.setBrush(Qt::NoBrush);
        p.drawRect(frame.adjusted(0, 0, -1, -1));
        const QString shown = caption.isEmpty() ? QzQString(component->Name()) : caption;
        const int w = p.fontMetrics().boundingRect(QRect(), CaptionFlags, shown).width() + 6;
        const QRect title(r.left() + 8, r.top() - 1, w, p.fontMetrics().height());
        p.fillRect(title, pal.color(QPalette::Window));
        p.setPen(pal.color(QPalette::WindowText));
        p.drawText(title, Qt::AlignCenter | CaptionFlags, shown);
        break;
    }
    case TQzLook::Image: {
        p.setPen(QPen(pal.color(QPalette::Dark), 1, Qt::DashLine));
        p.drawRect(r.adjusted(0, 0, -1, -1));
        QString picture = QzQString(QzTextValue(component, "Picture"));
        p.drawText(r, Qt::AlignCenter, picture.isEmpty() ? QzQString(component->Name()) : picture);
        break;
    }
    case TQzLook::PageControl:
    case TQzLook::TabSheet:
        p.fillRect(r, pal.color(QPalette::Window));
        DrawFrame(p, r, true);
        break;
    case TQzLook::Box:
        p.setPen(QPen(pal.color(QPalette::Dark), 1, Qt::DotLine));
        p.drawRect(r.adjusted(0, 0, -1, -1));
        p.setPen(pal.color(QPalette::WindowText));
        p.drawText(r.adjusted(2, 2, -2, -2), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   QzQString(component->Name() + ": " + className));
        break;
    }
    p.restore();
}
