#include "data/dataset.h"
#include "panes/explore/datasetcomparison.h"
#include "panes/table/changefinder.h"
#include "panes/table/datafilter.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "settings/settings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

// How fast the table under a panel answers, and what it costs, on the offscreen platform (scripts/bench window).

namespace {

constexpr int columnCount = 12;
constexpr int pages = 50;

/// Memory of this process, without what it shares.
double memoryMiB()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    constexpr int residentPlace = 1;
    constexpr double pagesOfMiB = 256;
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(residentPlace).toDouble() / pagesOfMiB : 0;
}

/// Short texts and numbers, of which few are equal to their neighbours.
Dataset madeTable(int rows)
{
    Dataset dataset;
    dataset.setSize(rows, columnCount);
    for (int column = 0; column < columnCount; ++column) {
        for (int row = 0; row < rows; ++row) {
            const QByteArray text = QByteArray::number(row * (column + 1) % 1000003);
            dataset.setCell(RowIndex(row), ColumnIndex(column), Cell::inlined(text.constData(), text.size()));
        }
    }
    dataset.assignColumnIds(1);
    return dataset;
}

class TableBench
{
public:
    explicit TableBench(int rows)
        : m_rows(rows)
        , m_dataset(madeTable(rows))
    {
        m_view.resize(900, 700);
        m_view.show();
        QApplication::processEvents();
    }

    void run()
    {
        const double before = memoryMiB();
        print("first page, ms", measure([this] { m_view.table().setDataset(m_dataset); }), m_rows > 1000000 ? 100 : 50);
        std::printf("%9d %-28s %10.1f (goal 20)\n", m_rows, "model and headers, MiB", memoryMiB() - before);
        QScrollBar *bar = m_view.verticalScrollBar();
        print("last row, ms", measure([bar] { bar->setValue(bar->maximum()); }), 50);
        double longest = 0;
        for (int page = 0; page < pages; ++page) {
            longest = std::max(longest, measure([bar] { bar->triggerAction(QAbstractSlider::SliderPageStepSub); }));
        }
        print("longest page of scrolling, ms", longest, 16);
        print("figures of all selected, ms", measure([this] {
            m_view.selectAll();
            m_view.selectionText();
        }),
            50);
        runChanges();
        print("rows that contain a text, ms",
            measure([this] { DataFilter::rowsContaining(m_dataset, QStringLiteral("99999X")); }), 1000);
        if (m_rows <= 1000000) {
            runComparison();
        }
    }

private:
    /// From the first row to the one change, in the last.
    void runChanges()
    {
        const Dataset previous = m_dataset;
        for (int column = 0; column < columnCount; ++column) {
            m_dataset.setValue(m_dataset.lastRow(), ColumnIndex(column), QStringLiteral("changed"));
        }
        m_view.table().setDataset(m_dataset, previous);
        print("next change, ms", measure([this] { ChangeFinder::next(m_view.table(), {}); }), 200);
    }

    /// With the same rows the other way round, paired by a key that is too long for a cell.
    void runComparison()
    {
        QStringList keys;
        QVector<int> reversed;
        for (int row = 0; row < m_rows; ++row) {
            keys.append(QStringLiteral("customer number %1").arg(row * 7919 % m_rows));
            reversed.append(m_rows - 1 - row);
        }
        m_dataset.setColumnValues(ColumnIndex(0), keys);
        const Dataset other = m_dataset.withRows(reversed);
        DatasetComparison comparison(m_dataset, other);
        DatasetComparison::Options options;
        print("compared by number, ms", measure([&] { comparison.compare(options); }), 3000);
        options.pairing = RowPairing::KeyColumns;
        options.leftKey = ColumnIndex(0);
        options.rightKey = ColumnIndex(0);
        print("compared by key, ms", measure([&] { comparison.compare(options); }), 3000);
        options.caseSensitive = false;
        options.sortByKey = true;
        print("by key without case, sorted, ms", measure([&] { comparison.compare(options); }), 3000);
        m_view.table().setDataset(m_dataset);
        m_view.table().setArrangedRows(
            comparison.leftRows(),
            [&comparison](int pair, ColumnIndex column) { return comparison.isDifferent(pair, column); }, Qt::red);
        double longest = 0;
        for (int page = 0; page < pages; ++page) {
            longest = std::max(longest,
                measure([this] { m_view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd); }));
        }
        print("longest page of pairs, ms", longest, 16);
        m_view.table().clear();
    }

    /// Until the view is painted.
    template<class Work>
    double measure(Work work)
    {
        QElapsedTimer timer;
        timer.start();
        work();
        m_view.viewport()->repaint();
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }

    void print(const char *what, double value, int goal) const
    {
        std::printf("%9d %-28s %10.1f (goal %d)\n", m_rows, what, value, goal);
    }

    int m_rows;
    Dataset m_dataset;
    DataTableView m_view;
};

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    Settings settings(folder.filePath(QStringLiteral("bench.ini")));
    Settings::setCurrent(&settings);
    for (const int rows : {1000000, 10000000}) {
        TableBench(rows).run();
    }
    Settings::setCurrent(nullptr);
    return 0;
}
