#include "data/datasetappender.h"

#include "support/grid.h"

#include <gtest/gtest.h>

namespace {

/// Rows of texts in one padded buffer, as a reader holds them.
struct Batch
{
    explicit Batch(const QList<QStringList> &rows)
    {
        for (const QStringList &row : rows) {
            for (const QString &text : row) {
                const QByteArray stored = text.toUtf8();
                texts.append({quint32(bytes.size()), quint32(stored.size())});
                bytes += stored;
            }
            ends.append(texts.size());
        }
        bytes += QByteArray(DatasetAppender::padding, '#');
    }
    void appendTo(Dataset &dataset) const
    {
        DatasetAppender(&dataset).appendRows(bytes.constData(), texts.constData(), ends.constData(), ends.size());
    }

    QByteArray bytes;
    QVector<DatasetAppender::Text> texts;
    QVector<int> ends;
};

} // namespace

TEST(DatasetAppender, AppendsWhatRowByRowAppendingWould)
{
    struct AppendCase
    {
        const char *what;
        QList<QStringList> first;
        QList<QStringList> second;
        QStringList rows;
    };
    const AppendCase cases[] = {
        {"no rows", {}, {}, {}},
        {"texts of every storage, side by side", {{"", "1234567", "12345678", QString(40000, 'x')}}, {},
            {"|1234567|12345678|" + QString(40000, 'x')}},
        {"narrow rows are padded", {{"a", "b"}, {"c"}, {}}, {}, {"a|b", "c|", "|"}},
        {"wider rows widen what is there", {{"a"}, {"b"}}, {{"c", "d", "e"}}, {"a||", "b||", "c|d|e"}},
        {"a narrow batch later", {{"a", "b", "c"}}, {{"d"}, {"e"}}, {"a|b|c", "d||", "e||"}},
    };
    for (bool fast : {false, true}) {
        Dataset::setMaximumSpeed(fast);
        for (const AppendCase &c : cases) {
            SCOPED_TRACE(c.what);
            Dataset dataset;
            Batch(c.first).appendTo(dataset);
            Batch(c.second).appendTo(dataset);
            EXPECT_EQ(rows(dataset), c.rows);
        }
    }
    Dataset::setMaximumSpeed(false);
}

TEST(DatasetAppender, SharesEqualTextsOfAColumnUnlessSpeedIsAll)
{
    const QString text = "long enough to lie outside the cell";
    for (bool fast : {false, true}) {
        Dataset::setMaximumSpeed(fast);
        Dataset dataset;
        Batch({{text}, {text}}).appendTo(dataset);
        Batch({{text}}).appendTo(dataset);
        const CellColumn &column = dataset.column(ColumnIndex(0));
        EXPECT_EQ(column.at(0).bits() == column.at(2).bits(), !fast);
        EXPECT_TRUE(column.at(0).sameText(column.at(2)));
    }
    Dataset::setMaximumSpeed(false);
}

TEST(DatasetAppender, TextsLiveAsLongAsTheTableThatSharesThem)
{
    Dataset copy;
    {
        Dataset dataset;
        Batch({{"a text outside the cell"}}).appendTo(dataset);
        copy = dataset;
        Batch({{"another text outside the cell"}}).appendTo(dataset);
        EXPECT_EQ(dataset.rowCount(), 2);
    }
    EXPECT_EQ(rows(copy), QStringList("a text outside the cell"));
}
