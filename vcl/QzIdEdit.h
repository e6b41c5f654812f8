#pragma once
// The editors' Id boxes: digits only, at most four of them. Typing anything
// else does nothing; pasted text keeps its digits, as many as still fit.

#include <QLineEdit>
#include <QValidator>

inline constexpr int QzIdEditMaxLength = 4;

// The filter behind an Id box. It edits what the user inserted rather than
// refusing the whole change, so that pasting "12a4" gives "124".
class TQzIdValidator final : public QValidator {
    Q_OBJECT

public:
    explicit TQzIdValidator(QLineEdit* edit, int maxLength = QzIdEditMaxLength);

    State validate(QString& input, int& pos) const override;

private:
    int FMaxLength;
    // The text last accepted: what the edit held before the change that is
    // being validated.
    mutable QString FAccepted;
};

// Makes a line edit from a form file an Id box.
void QzMakeIdEdit(QLineEdit* edit, int maxLength = QzIdEditMaxLength);
// The Id in an Id box; -1 when it is empty.
int QzIdEditValue(const QLineEdit* edit);
// Shows `id` in an Id box; a negative Id empties it.
void QzSetIdEditValue(QLineEdit* edit, int id);

// An Id box as a widget of its own (a promoted widget in form files).
class TQzIdEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit TQzIdEdit(QWidget* parent = nullptr);

    int Id() const { return QzIdEditValue(this); }
    void SetId(int id) { QzSetIdEditValue(this, id); }
};
