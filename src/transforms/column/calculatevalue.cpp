#include "transforms/column/calculatevalue.h"

#include "data/columnbuilder.h"
#include "data/values.h"

CalculateValue CalculateValue::ofColumn(const Dataset &dataset, ColumnIndex column)
{
    CalculateValue value;
    value.m_isSet = column.isValid();
    if (value.m_isSet) {
        value.m_dataset = &dataset;
        value.m_columnIndex = column;
        value.m_column = dataset.column(column);
        value.m_cells = value.m_column.cells.constData();
        value.m_step = 1;
        value.m_name = dataset.columnName(column);
        value.m_place = QStringLiteral(" in column '%1'").arg(value.m_name);
    }
    return value;
}

CalculateValue CalculateValue::ofConstant(const QString &text)
{
    CalculateValue value;
    value.m_isSet = true;
    value.m_column = ColumnBuilder::filled(text, 1);
    value.m_cells = value.m_column.cells.constData();
    value.m_name = text.trimmed();
    return value;
}

bool CalculateValue::isDate(const QStringList &formats, QString *format) const
{
    return m_dataset ? m_dataset->isColumnDate(m_columnIndex, formats, format)
                     : parseDate(m_cells->text(), formats, format).isValid();
}
