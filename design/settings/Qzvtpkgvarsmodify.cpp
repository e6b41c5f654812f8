#include "design/settings/Qzvtpkgvarsmodify.h"

#include "design/settings/QzPkgVarsLogic.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzWindowBounds.h"

#include <QRegularExpressionValidator>

namespace {

TQzResizeInfoDesigner ResizeInfo;

}  // namespace

TFrPkgVarsModify::TFrPkgVarsModify(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    FLabelText = Label2->text();
    connect(BtOk, &QPushButton::clicked, this, &TFrPkgVarsModify::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrPkgVarsModify::reject);
    SetType(qvString);
}

void TFrPkgVarsModify::SetType(TQzPkgVarsItemType type)
{
    FType = type;
    Label2->setText(FLabelText + " " + QzQString(TypeToString(type)) + ":");
    const bool boolean = type == qvBoolean;
    CBValue->setVisible(boolean);
    EdValue->setVisible(!boolean);
    Label2->setBuddy(boolean ? static_cast<QWidget*>(CBValue) : EdValue);
    // The validators only help typing; the check on Ok is the one that
    // decides (a pasted or too long number is still refused there).
    if (type == qvInteger)
        EdValue->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("-?[0-9]*")), EdValue));
    else if (type == qvFloat)
        EdValue->setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("-?[0-9]*\\.?[0-9]*")), EdValue));
    else
        EdValue->setValidator(nullptr);
}

AnsiString TFrPkgVarsModify::Value() const
{
    return QzAnsiString(FType == qvBoolean ? CBValue->currentText() : EdValue->text());
}

void TFrPkgVarsModify::SetValue(const AnsiString& value)
{
    EdValue->setText(QzQString(value));
    CBValue->setCurrentIndex(StrToBoolean(value) ? 0 : 1);
}

void TFrPkgVarsModify::accept()
{
    try {
        QzVarsCheckValue(FType, Value());
    } catch (const Exception& e) {
        QzMessage(e.Message(), mtError, {mbOK}, mbOK, this);
        (FType == qvBoolean ? static_cast<QWidget*>(CBValue) : EdValue)->setFocus();
        return;
    }
    TQzDialog::accept();
}
