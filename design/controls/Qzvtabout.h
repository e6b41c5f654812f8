#pragma once
// TFrAbout: the name, version and licence of the design package, with the
// runtime package it belongs to.

#include "vcl/QzDialog.h"

#include "ui_TFrAbout.h"

#include "rtl/System.h"

struct TQzAboutInfo {
    AnsiString Name;
    AnsiString Version;
    AnsiString Packages;
    AnsiString Licence;
};
const TQzAboutInfo& QzAboutInfo();

class TFrAbout : public TQzDialog, public Ui::TFrAbout {
    Q_OBJECT

public:
    explicit TFrAbout(QWidget* parent = nullptr);
};

void RegisterQzvtabout();
