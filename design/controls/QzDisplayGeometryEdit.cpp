#include "design/controls/QzDisplayGeometryEdit.h"

#include "design/reg/QzEditorDialogs.h"
#include "runtime/util/QzDesigner.h"

namespace {

struct TMeasure {
    const char* Name;
    Integer TQzDisplayGeometry::*Field;
    void (TQzPkgDisplay::*Set)(Integer);
};

constexpr TMeasure Measures[] = {
    {"CWButtonsHeight", &TQzDisplayGeometry::CWButtonsHeight, &TQzPkgDisplay::SetCWButtonsHeight},
    {"CWButtonsMargin", &TQzDisplayGeometry::CWButtonsMargin, &TQzPkgDisplay::SetCWButtonsMargin},
    {"CWButtonsSpacing", &TQzDisplayGeometry::CWButtonsSpacing, &TQzPkgDisplay::SetCWButtonsSpacing},
    {"CWButtonsWidth", &TQzDisplayGeometry::CWButtonsWidth, &TQzPkgDisplay::SetCWButtonsWidth},
    {"CWMarginAfterTitle", &TQzDisplayGeometry::CWMarginAfterTitle, &TQzPkgDisplay::SetCWMarginAfterTitle},
    {"CWMarginBottom", &TQzDisplayGeometry::CWMarginBottom, &TQzPkgDisplay::SetCWMarginBottom},
    {"CWMarginLeft", &TQzDisplayGeometry::CWMarginLeft, &TQzPkgDisplay::SetCWMarginLeft},
    {"CWMarginRight", &TQzDisplayGeometry::CWMarginRight, &TQzPkgDisplay::SetCWMarginRight},
    {"CWMarginTop", &TQzDisplayGeometry::CWMarginTop, &TQzPkgDisplay::SetCWMarginTop},
    {"CWTitleHeight", &TQzDisplayGeometry::CWTitleHeight, &TQzPkgDisplay::SetCWTitleHeight},
    {"HiMarginBottom", &TQzDisplayGeometry::HiMarginBottom, &TQzPkgDisplay::SetHiMarginBottom},
    {"HiMarginLeft", &TQzDisplayGeometry::HiMarginLeft, &TQzPkgDisplay::SetHiMarginLeft},
    {"HiMarginRight", &TQzDisplayGeometry::HiMarginRight, &TQzPkgDisplay::SetHiMarginRight},
    {"HiMarginTop", &TQzDisplayGeometry::HiMarginTop, &TQzPkgDisplay::SetHiMarginTop},
};

}  // namespace

void QzWriteDisplayGeometry(TQzPkgDisplay& display, const TQzDisplayGeometry& geometry)
{
    for (const TMeasure& m : Measures)
        if (geometry.*m.Field < 0)
            throw EQzPkgError(AnsiString(m.Name) + " cannot be " + IntToStr(geometry.*m.Field) +
                              ": measures are 0 or more.");
    for (const TMeasure& m : Measures)
        (display.*m.Set)(geometry.*m.Field);
    display.SetCWWinRgn(geometry.CWWinRgn);
    display.SetHiWinRgn(geometry.HiWinRgn);
}

void QzDisplayModified(const TQzEditorDialogRequest& request, TQzPkgDisplay& display)
{
    if (request.Designer)
        request.Designer->Modified();
    else
        QzDesignerModified(display.Owner());
}
