#pragma once
// TFrMemoryLabelAddMultiLine ("Label MultiLine"): a label's text in a memo,
// for texts of several lines. TFrMultiLine, the multi-line property editor's
// window, is the same memo under the caption the property editor gives.

#include "vcl/QzDialog.h"

#include "ui_TFrMemoryLabelAddMultiLine.h"

class TFrMemoryLabelAddMultiLine : public TQzDialog, public Ui::TFrMemoryLabelAddMultiLine {
    Q_OBJECT

public:
    explicit TFrMemoryLabelAddMultiLine(QWidget* parent = nullptr);
};

class TFrMultiLine : public TFrMemoryLabelAddMultiLine {
    Q_OBJECT

public:
    explicit TFrMultiLine(QWidget* parent = nullptr);
};

// Installs TFrMultiLine as the multi-line property editor's window: the
// request's Caption and Text in, the Text replaced on Ok.
void RegisterQzvtmultiline();
