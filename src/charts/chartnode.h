#pragma once

#include "charts/chartcolumns.h"
#include "charts/chartmodel.h"
#include "charts/chartoptions.h"
#include "graph/node.h"

/// A leaf of the flow that draws the table of its one input, and may write the picture to a file. It changes no data
/// and keeps none.
class ChartNode final : public Node
{
    Q_OBJECT

public:
    enum { Type = ItemType::Chart };

    explicit ChartNode(const ChartOptions &options = ChartOptions(), int id = -1);

    int type() const override { return Type; }
    const ChartOptions &options() const { return m_options; }
    /// The caller marks the node stale.
    void setOptions(const ChartOptions &options);
    bool writesFile() const { return m_options.writeFile; }
    void setWritesFile(bool on) { m_options.writeFile = on; }
    const QString &path() const { return m_options.path; }
    void setPath(const QString &path);
    /// Native paths written by the last run.
    const QStringList &writtenFiles() const { return m_writtenFiles; }

    /// What the last run found to draw; empty before it.
    const ChartModel &model() const { return m_model; }
    /// One line for the place of the picture; empty when there is a picture to show.
    QString placeText() const;

    /// The table of the one input, or null.
    const Dataset *upstreamDataset() const;
    const ChartColumns &columns() const { return m_columns; }
    ChartColumns &columns() { return m_columns; }
    /// Column references as a document holds them; they wait for the table upstream.
    void setStoredColumns(const QString &x, const QString &y) { m_columns.setStored(x, y); }
    QString storedXColumn() const;
    QString storedYColumns() const;

    void takeColumnsAsText(const Node &original) override;
    QString name() const override;
    QString listName() const override;
    QString description() const override;
    QString helpPage() const override;
    QString resultText() const override;
    bool isEmpty() const override;
    QString roundedSizeText() const override { return displaySizeText(); }
    QString displaySizeText() const override;
    void goToRest() override;
    bool hasInputPreview() const override { return true; }
    int maxInputs() const override { return 1; }
    int maxOutputs() const override { return 0; }
    bool canProcess() const override { return upstreamAllProcessed(); }
    void beforeProcess() override;
    void refreshColumnOptions() override { m_columns.allowReconnect(); }
    void remapColumnIds(const QHash<ColumnId, ColumnId> &map) override { m_columns.remap(map); }
    InfoRows kindRows() const override;
    InfoRows optionRows() const override;
    QVariantList summaryRow() const override;
    QColor borderColor() const override;
    QColor boxColor() const override;
    QColor textColor() const override;

private:
    QString missingChoice() const;
    QString columnsText(const QList<ColumnId> &ids) const;
    bool mayRun() override;
    void prepareRun() override;
    /// Fails, with a warning, when the picture can't be made or written.
    bool produce() override;
    bool writePicture();
    Node *cloneKind() const override;

    ChartOptions m_options;
    ChartColumns m_columns;
    ChartModel m_model;
    QStringList m_writtenFiles;
};
