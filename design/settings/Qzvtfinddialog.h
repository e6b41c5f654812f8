#pragma once
// TFrFindDialog: "Find", the search box the variables editor keeps open
// beside itself. "Search &Next" asks whoever set OnFind; it owns no search.

#include "design/settings/QzPkgVarsLogic.h"
#include "vcl/QzDialog.h"

#include "ui_TFrFindDialog.h"

#include <functional>

class TFrFindDialog : public TQzDialog, public Ui::TFrFindDialog {
    Q_OBJECT

public:
    explicit TFrFindDialog(QWidget* parent = nullptr);

    TQzVarsFindOptions Options() const;
    std::function<void(const TQzVarsFindOptions&)> OnFind;

private:
    void BtFindNextClick();
};
