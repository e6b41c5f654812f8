#pragma once
// TFrCollPageControl: the collection editor for a page control's pages.
// Adding a page gives it its tab sheet on the control, deleting one frees
// the sheet with what it holds, and the chosen page is the one the
// designer shows.

#include "design/controls/Qzvtcollection.h"

class TQzCustomPageControl;

class TFrCollPageControl : public TFrCollection {
    Q_OBJECT

public:
    explicit TFrCollPageControl(QWidget* parent = nullptr) : TFrCollection(parent)
    {
        setObjectName(QStringLiteral("TFrCollPageControl"));
    }

protected:
    void AddItem(TCollection* collection) override;
    void DeleteItem(TCollection* collection, int index) override;
    AnsiString ItemLine(TCollection* collection, int index) override;
    void ItemsChosen(const std::vector<int>& indices) override;

private:
    TQzCustomPageControl* Control();
};
