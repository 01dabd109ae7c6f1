#include "transforms/column/calculation.h"

#include "data/numberlocale.h"

std::unique_ptr<Calculation> Calculation::create(const CalculateTask &task)
{
    const bool isPair = task.operation.values == 2;
    switch (task.operation.group) {
    case CalculateGroup::Text:
        return makeTextCalculation(task);
    case CalculateGroup::DateTime:
        return makeDateTimeCalculation(task);
    case CalculateGroup::Duration:
        return makeDurationCalculation(task);
    case CalculateGroup::Date:
        return makeDateCalculation(task);
    case CalculateGroup::Boolean:
        return task.firstIsDate ? makeTwoDatesCalculation(task) : makeBooleanCalculation(task);
    case CalculateGroup::Number:
        break;
    }
    if (task.firstIsDate) {
        return isPair ? makeTwoDatesCalculation(task) : makeDateCalculation(task);
    }
    return isPair ? makeTwoNumbersCalculation(task) : makeNumberCalculation(task);
}

Calculation::Calculation(const CalculateTask &task)
    : m_task(task)
    , m_writesPlainly(NumberLocale::of(m_locale)->writesPlainly)
{
}

bool Calculation::succeed(double value, TextBuffer &out) const
{
    m_realWriter.write(value, out);
    return true;
}

bool Calculation::succeedWhole(qint64 value, TextBuffer &out) const
{
    const auto bits = static_cast<quint64>(value);
    return succeedWhole(value < 0, value < 0 ? 0 - bits : bits, out);
}

bool Calculation::succeedWhole(bool negative, quint64 magnitude, TextBuffer &out) const
{
    if (!m_writesPlainly) {
        const QString digits = m_locale.toString(magnitude).remove(m_locale.groupSeparator());
        return succeed(negative ? m_locale.negativeSign() + digits : digits, out);
    }
    char text[24];
    char *const end = text + sizeof text;
    char *begin = end;
    do {
        *--begin = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude);
    if (negative) {
        *--begin = '-';
    }
    out.clear();
    out.append(begin, static_cast<int>(end - begin));
    return true;
}

bool Calculation::succeed(const QString &text, TextBuffer &out) const
{
    setText(out, text);
    return true;
}

bool Calculation::fail(const CalculateFault &fault, const CalculateValue &value, int row, TextBuffer &out)
{
    QString message;
    if (m_failures.wantsText()) {
        message = QString::fromLatin1(fault.message).replace(QLatin1String("%1"), value.at(row).text()) + value.place();
    }
    return fail(fault.cell, message, row, out);
}

bool Calculation::fail(const char *cell, const QString &message, int row, TextBuffer &out)
{
    m_failures.add([&] { return QStringLiteral("%1 at row %2").arg(message, QString::number(row + 1)); });
    out.clear();
    out.append(cell, static_cast<int>(qstrlen(cell)));
    return false;
}
