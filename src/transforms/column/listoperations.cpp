#include "transforms/column/listoperations.h"

#include "data/statistics.h"
#include "data/values.h"

#include <QSet>
#include <algorithm>
#include <numeric>

namespace {

/// Items at every second place, beginning with the first (0) or the second (1).
QStringList everySecond(const QStringList &items, int first)
{
    QStringList result;
    for (int i = first; i < items.size(); i += 2) {
        result.append(items.at(i));
    }
    return result;
}

QString reversed(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (int i = text.size() - 1; i >= 0; --i) {
        // A pair of surrogates is one character and keeps its order.
        if (i > 0 && text.at(i).isLowSurrogate() && text.at(i - 1).isHighSurrogate()) {
            result.append(text.at(i - 1));
            result.append(text.at(i--));
        } else {
            result.append(text.at(i));
        }
    }
    return result;
}

QStringList trimmed(QStringList items)
{
    for (QString &item : items) {
        item = item.trimmed();
    }
    return items;
}

QStringList tidy(const QStringList &items)
{
    QStringList result = trimmed(items);
    result.removeAll(QString());
    sortValues(result, QString());
    return result;
}

double figure(ListOperations::Operation operation, const QList<double> &numbers)
{
    std::vector<double> list(numbers.begin(), numbers.end());
    double *begin = list.data();
    double *end = begin + list.size();
    switch (operation) {
    case ListOperations::Average:
        return Statistics::mean(begin, end);
    case ListOperations::Maximum:
        return *std::max_element(begin, end);
    case ListOperations::Median:
        return Statistics::median(begin, end);
    case ListOperations::Minimum:
        return *std::min_element(begin, end);
    case ListOperations::Product:
        return std::accumulate(begin, end, 1.0, std::multiplies<double>());
    default:
        return Statistics::sum(begin, end);
    }
}

} // namespace

QStringList ListOperations::names()
{
    return {QStringLiteral("Average"), QStringLiteral("Count"), QStringLiteral("CountDistinct"),
        QStringLiteral("Dedupe"), QStringLiteral("First"), QStringLiteral("Last"), QStringLiteral("Maximum"),
        QStringLiteral("Median"), QStringLiteral("Minimum"), QStringLiteral("Product"), QStringLiteral("RemoveEmpty"),
        QStringLiteral("RemoveEven"), QStringLiteral("RemoveFirst"), QStringLiteral("RemoveLast"),
        QStringLiteral("RemoveOdd"), QStringLiteral("ReverseItems"), QStringLiteral("ReverseOrder"),
        QStringLiteral("SortAscending"), QStringLiteral("SortDescending"), QStringLiteral("Sum"),
        QStringLiteral("Tidy"), QStringLiteral("Trim")};
}

bool ListOperations::givesList(Operation operation)
{
    switch (operation) {
    case Dedupe:
    case RemoveEmpty:
    case RemoveEven:
    case RemoveFirst:
    case RemoveLast:
    case RemoveOdd:
    case ReverseItems:
    case ReverseOrder:
    case SortAscending:
    case SortDescending:
    case Tidy:
    case Trim:
        return true;
    default:
        return false;
    }
}

QStringList ListOperations::list(Operation operation, QStringList items)
{
    switch (operation) {
    case Dedupe:
        items.removeDuplicates();
        return items;
    case RemoveEmpty:
        items.removeAll(QString());
        return items;
    case RemoveEven:
        return everySecond(items, 0);
    case RemoveOdd:
        return everySecond(items, 1);
    case RemoveFirst:
        return items.mid(1);
    case RemoveLast:
        return items.mid(0, items.size() - 1);
    case ReverseItems:
        std::transform(items.begin(), items.end(), items.begin(), reversed);
        return items;
    case SortAscending:
    case SortDescending:
        sortValues(items, QString());
        if (operation == SortDescending) {
            std::reverse(items.begin(), items.end());
        }
        return items;
    case ReverseOrder:
        std::reverse(items.begin(), items.end());
        return items;
    case Tidy:
        return tidy(items);
    default:
        return trimmed(items);
    }
}

QString ListOperations::value(Operation operation, const QStringList &items)
{
    switch (operation) {
    case Count:
        return formatInteger(items.size(), false);
    case CountDistinct:
        return formatInteger(QSet<QString>(items.begin(), items.end()).size(), false);
    case First:
        return items.isEmpty() ? QString() : items.first();
    case Last:
        return items.isEmpty() ? QString() : items.last();
    default: {
        const QList<double> numbers = toNumberList(items, false, false);
        return numbers.isEmpty() ? QString() : formatReal(figure(operation, numbers), false, -1, true);
    }
    }
}
