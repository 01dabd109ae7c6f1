#include "panes/widgets/samplingcombobox.h"

#include "data/evenrows.h"
#include "data/values.h"
#include "settings/settings.h"

namespace {

constexpr int samples[] = {100, 1000, 10000, 100000};

} // namespace

SamplingComboBox::SamplingComboBox(QWidget *parent)
    : QComboBox(parent)
{
    for (const int rows : samples) {
        addItem(QStringLiteral("%1 rows").arg(formatInteger(rows, true)), rows);
    }
    addItem(QStringLiteral("All rows"), 0);
    setAccessibleName(QStringLiteral("Sample"));
    setCurrentIndex(qBound(0, Settings::current().sampleComboIndex(), count() - 1));
    connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        Settings::current().setSampleComboIndex(index);
        emit sampleChanged();
    });
}

bool SamplingComboBox::takesAllOf(int rowCount) const
{
    const int sample = currentData().toInt();
    return sample == 0 || sample >= rowCount;
}

QVector<int> SamplingComboBox::rowsOf(int rowCount) const
{
    return evenRows(rowCount, takesAllOf(rowCount) ? rowCount : currentData().toInt());
}
