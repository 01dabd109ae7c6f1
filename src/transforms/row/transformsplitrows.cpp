#include "data/arenaunion.h"
#include "data/matchoperator.h"
#include "data/values.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QSet>
#include <algorithm>
#include <climits>

/// Breaks each row into several rows at certain columns.
class TransformSplitRows final : public Transform
{
public:
    TransformSplitRows()
        : Transform("Split_Rows", "Split each row into multiple rows.", "wraprows splitting splitter breaks splits")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::splitRows("Split_Rows", "Split Rows"),
            Option::flag("Case_Sensitive", "case sensitive", true).tip("Check for case sensitive text matching."),
        };
    }

    /// The first of `formats` in which the text is a date, or none.
    static QString formatOf(const QString &text, const QStringList &formats)
    {
        QString format;
        return parseDate(text, formats, &format).isValid() ? format : QString();
    }

    static QVector<int> breaksByMatch(const Dataset &input, const SplitRowsRecord &record, bool caseSensitive)
    {
        QVector<int> points;
        const QStringList formats = dateFormats();
        const QString textFormat = formatOf(record.text, formats);
        // A name is read as the text is, where that can be.
        const QStringList nameFormats = textFormat.isEmpty() ? formats : QStringList{textFormat} + formats;
        for (int i = 1; i < input.columnCount(); ++i) {
            const QString name = input.columnName(ColumnIndex(i));
            if (matchValue(record.op, name, record.text, formatOf(name, nameFormats), textFormat, caseSensitive)) {
                points.append(i);
            }
        }
        return points;
    }

    /// The first name that comes again marks where the columns of the next row begin.
    static QVector<int> breaksByRepeatedName(const Dataset &input, bool caseSensitive)
    {
        QVector<int> points;
        if (!input.hasHeader()) {
            return points;
        }
        QStringList names = input.columnNames();
        if (!caseSensitive) {
            for (QString &name : names) {
                name = name.toLower();
            }
        }
        QSet<QString> seen;
        QString marker;
        for (int i = 0; i < names.size(); ++i) {
            if (marker.isNull() && seen.contains(names.at(i))) {
                marker = names.at(i);
            }
            seen.insert(names.at(i));
            if (!marker.isNull() && names.at(i) == marker) {
                points.append(i);
            }
        }
        return points;
    }

    static QVector<int> breaksEveryColumns(const Dataset &input, const SplitRowsRecord &record)
    {
        QVector<int> points;
        const int start = input.columnIndexOfId(record.startColumn).toInt();
        if (start < 0 || record.every < 1) {
            return points;
        }
        qint64 at = start;
        for (int i = 0; i < record.times && at < input.columnCount(); ++i, at += record.every) {
            points.append(static_cast<int>(at));
        }
        return points;
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const SplitRowsRecord record = values.splitRows("Split_Rows");
        const bool caseSensitive = values.flag("Case_Sensitive");
        QVector<int> points = record.mode == SplitRowsRecord::ByMatchingNames
                                  ? breaksByMatch(input, record, caseSensitive)
                              : record.mode == SplitRowsRecord::Automatic ? breaksByRepeatedName(input, caseSensitive)
                                                                          : breaksEveryColumns(input, record);
        points.removeAll(0); // a row begins there anyway
        if (points.isEmpty()) {
            setResultText(Messages::noChanges());
            return input;
        }
        const qint64 rowCount = static_cast<qint64>(points.size() + 1) * input.rowCount();
        if (!TableSize::isPossible(rowCount, 1)) {
            addWarning(TableSize::warning(rowCount, input.columnCount()));
            setResultText(QStringLiteral("Too many rows"));
            return Dataset();
        }
        std::sort(points.begin(), points.end());
        const Dataset result = brokenAt(input, points);
        setResultText(QStringLiteral("%1 %2 split into %3")
                          .arg(Messages::count(input.rowCount()), Messages::rows(input.rowCount()),
                              Messages::count(result.rowCount())));
        return result;
    }

    Dataset brokenAt(const Dataset &input, const QVector<int> &points)
    {
        const QVector<int> starts = QVector<int>{0} + points;
        const int pieces = starts.size();
        const auto endOf = [&](int piece) { return starts.value(piece + 1, input.columnCount()); };
        int width = 0;
        for (int piece = 0; piece < pieces; ++piece) {
            width = qMax(width, endOf(piece) - starts.at(piece));
        }
        Dataset result;
        QStringList names;
        const int rowCount = input.rowCount();
        for (int i = 0; i < width; ++i) {
            emit processed(static_cast<qreal>(i) / width);
            CellColumn column;
            column.cells.resize(rowCount * pieces);
            Cell *cells = column.cells.data();
            ArenaUnion texts;
            for (int piece = 0; piece < pieces; ++piece) {
                const int from = starts.at(piece) + i;
                if (from >= endOf(piece)) {
                    continue;
                }
                const CellColumn &source = input.column(ColumnIndex(from));
                texts.add(source);
                for (int row = 0; row < rowCount; ++row) {
                    cells[row * pieces + piece] = source.at(row);
                }
            }
            column.keep(texts.arena());
            const bool inFirst = i < endOf(0);
            result.appendColumn(column, QString(), inFirst ? input.columnId(ColumnIndex(i)) : ColumnId());
            names.append(inFirst ? input.header().value(i) : QString());
        }
        if (input.hasHeader()) {
            result.setHeader(names);
        }
        return result;
    }
};

TRANSFORM_FACTORY(TransformSplitRows)
