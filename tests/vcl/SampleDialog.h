#pragma once
// A small dialog built the way the editors build theirs: an edit, a list,
// OK and Cancel carrying their modal results, and a record of the keys the
// form previewed.

#include "vcl/QzDialog.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <vector>

// A control that takes every key, Escape included, as an in-place editor
// does.
class TGreedyEdit : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        QLineEdit::keyPressEvent(event);
        event->accept();
    }
};

class TSampleDialog : public TQzDialog {
public:
    explicit TSampleDialog(QWidget* parent = nullptr) : TQzDialog(parent)
    {
        setWindowTitle("Sample");
        EdName = new QLineEdit(this);
        EdName->setObjectName("EdName");
        EdGreedy = new TGreedyEdit(this);
        EdGreedy->setObjectName("EdGreedy");
        BtOk = new QPushButton("Ok", this);
        BtOk->setObjectName("BtOk");
        BtRetry = new QPushButton("&Retry", this);
        BtRetry->setObjectName("BtRetry");
        BtCancel = new QPushButton("Cancel", this);
        BtCancel->setObjectName("BtCancel");
        BtOk->setDefault(true);
        QzSetModalResult(BtOk, mrOk);
        QzSetModalResult(BtRetry, mrRetry);
        QzSetModalResult(BtCancel, mrCancel);
        auto* buttons = new QHBoxLayout;
        buttons->addWidget(BtOk);
        buttons->addWidget(BtRetry);
        buttons->addWidget(BtCancel);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(EdName);
        layout->addWidget(EdGreedy);
        layout->addLayout(buttons);
    }

    QLineEdit* EdName;
    TGreedyEdit* EdGreedy;
    QPushButton* BtOk;
    QPushButton* BtRetry;
    QPushButton* BtCancel;
    std::vector<int> Previewed;  // keys, in the order the form saw them
    bool SwallowDigits = false;

protected:
    bool FormKeyPress(QKeyEvent* event) override
    {
        Previewed.push_back(event->key());
        if (SwallowDigits && event->key() >= Qt::Key_0 && event->key() <= Qt::Key_9)
            return true;
        return TQzDialog::FormKeyPress(event);
    }
};
