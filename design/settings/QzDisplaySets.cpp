#include "design/settings/QzDisplaySets.h"

#include "vcl/QzQtString.h"

#include <QColor>
#include <QFont>

TQzPkgDisplaySets* QzDisplaySets(TQzPkgDisplay& display, TQzDisplaySetKind kind)
{
    switch (kind) {
    case TQzDisplaySetKind::BackGround: return display.SetsBackGround();
    case TQzDisplaySetKind::Color: return display.SetsColor();
    case TQzDisplaySetKind::Font: return display.SetsFont();
    }
    return nullptr;
}

TQzDisplaySetKind QzDisplaySetKindOf(const TQzPkgDisplaySets& sets)
{
    if (dynamic_cast<const TQzPkgDisplaySetsBackGround*>(&sets))
        return TQzDisplaySetKind::BackGround;
    if (dynamic_cast<const TQzPkgDisplaySetsColor*>(&sets))
        return TQzDisplaySetKind::Color;
    return TQzDisplaySetKind::Font;
}

AnsiString QzNewDisplaySetName(const TQzPkgDisplaySets& sets)
{
    static const char* const words[] = {"BackGround", "Color", "Font"};
    const AnsiString word = words[int(QzDisplaySetKindOf(sets))];
    for (int n = 1;; ++n) {
        AnsiString name = word + IntToStr(n);
        if (!sets.FindSet(name))
            return name;
    }
}

TQzPkgDisplaySet* QzAddDisplaySet(TQzPkgDisplaySets& sets, const AnsiString& name)
{
    if (auto* backs = dynamic_cast<TQzPkgDisplaySetsBackGround*>(&sets))
        return backs->Add(name);
    if (auto* colors = dynamic_cast<TQzPkgDisplaySetsColor*>(&sets))
        return colors->Add(name);
    return static_cast<TQzPkgDisplaySetsFont&>(sets).Add(name);
}

void QzCopyDisplaySets(const TQzPkgDisplaySets& from, TQzPkgDisplaySets& to)
{
    to.BeginUpdate();
    try {
        to.Clear();
        for (int i = 0; i < from.Count(); ++i) {
            auto* source = static_cast<TQzPkgDisplaySet*>(from.Item(i));
            QzAddDisplaySet(to, source->Name())->Assign(source);
        }
    } catch (...) {
        to.EndUpdate();
        throw;
    }
    to.EndUpdate();
}

int QzIndexOfDisplaySet(const TQzPkgDisplaySets& sets, const AnsiString& name)
{
    const TQzPkgDisplaySet* set = sets.FindSet(name);
    return set ? set->Index() : -1;
}

AnsiString QzDisplaySetText(const TQzPkgDisplaySet& set)
{
    return set.Description().empty() ? set.Name() : set.Name() + " - " + set.Description();
}

TColor QzColorOfQColor(const QColor& color)
{
    return TColor(color.red() | (color.green() << 8) | (color.blue() << 16));
}

TQzFontValues QzFontValuesOf(const QFont& font, TColor color)
{
    TQzFontValues values;
    values.Name = QzAnsiString(font.family());
    values.Size = font.pointSize() > 0 ? font.pointSize() : values.Size;
    values.Color = color;
    values.Bold = font.bold();
    values.Italic = font.italic();
    values.Underline = font.underline();
    values.StrikeOut = font.strikeOut();
    return values;
}
