#include "document/parameterrepairs.h"

#include <QDate>

namespace {

void replaceValue(ParameterRecord &parameter, const char *name, const char *from, const char *to)
{
    if (parameter.name == QLatin1String(name) && parameter.value == QLatin1String(from)) {
        parameter.value = QString::fromLatin1(to);
    }
}

/// The upper end was exclusive.
void lowerMaximum(ParameterRecord &parameter)
{
    bool ok = false;
    const int maximum = parameter.value.toInt(&ok);
    if (parameter.name == QLatin1String("Maximum_Int") && ok) {
        parameter.value = QString::number(static_cast<qint64>(maximum) - 1);
    }
}

/// One option held either a date or a number; there is one for each now.
void splitByType(ParameterRecord &parameter)
{
    if (parameter.name != QLatin1String("User_Define_Minimum_Missing")
        && parameter.name != QLatin1String("User_Define_Maximum_Missing")) {
        return;
    }
    const QDate date = QDate::fromString(parameter.value, QStringLiteral("yyyy-M-d"));
    if (date.isValid()) {
        parameter.name += QLatin1String("_Date");
        parameter.value = date.toString(QStringLiteral("yyyy-MM-dd"));
        return;
    }
    bool ok = false;
    const int number = parameter.value.toInt(&ok);
    parameter.name += QLatin1String("_Int");
    parameter.value = QString::number(ok ? number : 0);
}

} // namespace

void repairParameter(const QString &transformName, int version, ParameterRecord &parameter)
{
    const auto isTransform = [&](const char *name) { return transformName == QLatin1String(name); };
    if (version < 59 && (isTransform("Split") || isTransform("Split Col"))) {
        replaceValue(parameter, "Delimiter_Type", "Text ", "Text delimiter");
        replaceValue(parameter, "Delimiter_Type", "Regex ", "Regex delimiter");
    }
    if (version < 68 && isTransform("Calculate")) {
        replaceValue(parameter, "Operation", "JulianDay", "DateToJulianDay");
    }
    if (version < 78 && isTransform("Random")) {
        lowerMaximum(parameter);
    }
    if (version < 79 && isTransform("Sequence")) {
        splitByType(parameter);
    }
    if (version == 85 && isTransform("Split")) {
        replaceValue(parameter, "Into", "One hot encoding", "Multi hot encoding");
    }
}
