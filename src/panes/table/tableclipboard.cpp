#include "panes/table/tableclipboard.h"

#include "data/dataset.h"
#include "data/values.h"
#include "panes/dialogs/prompts.h"
#include "settings/settings.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace {

constexpr qint64 manyCells = 1000000;

} // namespace

bool TableClipboard::confirm(Prompts &prompts, int rows, int columns)
{
    return static_cast<qint64>(rows) * columns < manyCells
           || prompts.confirm(QStringLiteral("Are you sure you want to copy %1 rows x %2 cols into the clipboard?")
                                  .arg(formatInteger(rows, true), formatInteger(columns, true)));
}

void TableClipboard::copyConfirmed(Prompts &prompts, const Dataset &dataset)
{
    if (confirm(prompts, dataset.rowCount(), dataset.columnCount())) {
        copy(dataset);
    }
}

void TableClipboard::copy(const Dataset &dataset)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::clipboard()->setMimeData(dataset.toMimeData(Settings::current().copyDataAs()));
    QApplication::restoreOverrideCursor();
}
