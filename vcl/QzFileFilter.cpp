#include "vcl/QzFileFilter.h"

#include "vcl/QzQtString.h"
#include "rtl/SysUtils.h"

#include <QRegularExpression>

namespace {

struct TFilterPair {
    QString Description;
    QStringList Masks;
};

QStringList SplitMasks(const QString& masks)
{
    QStringList result;
    for (QString mask : masks.split(';', Qt::SkipEmptyParts)) {
        mask = mask.trimmed();
        if (mask.isEmpty())
            continue;
        // On Windows "*.*" matches names without a dot too; Qt's "*" does.
        result.append(mask == "*.*" ? QStringLiteral("*") : mask);
    }
    return result;
}

QList<TFilterPair> ParsePairs(const AnsiString& filter)
{
    const QStringList parts = QzQString(filter).split('|');
    QList<TFilterPair> pairs;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QStringList masks = SplitMasks(parts[i + 1]);
        if (!masks.isEmpty())
            pairs.append({parts[i].trimmed(), masks});
    }
    return pairs;
}

// Qt reads a filter's patterns from its last parentheses, so a description
// that already ends in "(...)" loses them for the real masks.
QString StripTrailingMasks(const QString& description)
{
    static const QRegularExpression trailing(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
    QString stripped = description;
    stripped.remove(trailing);
    return stripped;
}

}  // namespace

QStringList QzConvertFilter(const AnsiString& filter)
{
    QStringList result;
    for (const TFilterPair& pair : ParsePairs(filter)) {
        QString description = StripTrailingMasks(pair.Description);
        if (description.isEmpty())
            description = pair.Masks.join(' ');
        result.append(QStringLiteral("%1 (%2)").arg(description, pair.Masks.join(' ')));
    }
    return result;
}

QStringList QzFilterMasks(const AnsiString& filter, int index)
{
    const QList<TFilterPair> pairs = ParsePairs(filter);
    if (index < 1 || index > pairs.size())
        return {};
    return pairs[index - 1].Masks;
}

AnsiString QzApplyDefaultExt(const AnsiString& fileName, const AnsiString& defaultExt)
{
    AnsiString ext = defaultExt;
    if (!ext.empty() && ext.front() == '.')
        ext.erase(0, 1);
    if (fileName.empty() || ext.empty() || !ExtractFileExt(fileName).empty())
        return fileName;
    return fileName + "." + ext;
}
