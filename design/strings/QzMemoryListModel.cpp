#include "design/strings/QzMemoryListModel.h"

#include "vcl/QzQtString.h"

TQzListModel* QzNewMemoryListModel(const TQzMemoryRows* rows, bool withProtected, QObject* parent)
{
    QList<TQzListColumn> columns;
    TQzListColumn id;
    id.WidthText = QStringLiteral("999999");
    columns << id;
    if (withProtected) {
        TQzListColumn mark;
        mark.WidthText = QStringLiteral("P99");
        columns << mark;
    }
    columns << TQzListColumn{};
    const int textColumn = static_cast<int>(columns.size()) - 1;

    TQzRowProvider provider;
    provider.RowCount = [rows] { return rows->Count(); };
    provider.Text = [rows, textColumn](int row, int column) -> QString {
        const TQzPkgIdItem* item = rows->Item(row);
        if (!item)
            return {};
        if (column == 0)
            return QString::number(item->Id());
        if (column == textColumn)
            return QzMemoryRowText(QzMemoryItemText(*item));
        return item->Protected() ? QStringLiteral("P") : QString();
    };
    return new TQzListModel(columns, provider, parent);
}

QString QzMemoryRowText(const AnsiString& text)
{
    QString row = QzQString(text);
    row.replace(QLatin1String("\r\n"), QLatin1String(" "));
    row.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return row;
}
