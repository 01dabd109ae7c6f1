#pragma once

#include "data/dataset.h"
#include "data/datasource.h"
#include "graph/graphenums.h"

#include <QDateTime>
#include <QStringList>

/// What came of a node's last run: its table, its state, messages and times.
class NodeResult : public DataSource
{
public:
    /// True only in the sample graph of the preferences.
    bool isPreview() const { return m_isPreview; }
    void setPreview(bool on) { m_isPreview = on; }

    // Table
    Dataset &dataset() { return m_dataset; }
    const Dataset &datasetConst() const override { return m_dataset; }
    void clearDataset() { m_dataset.clear(); }
    virtual bool isEmpty() const { return m_dataset.isEmpty(); }
    int rowCount() const { return m_isPreview ? 100000 : m_dataset.rowCount(); }
    int columnCount() const { return m_isPreview ? 100 : m_dataset.columnCount(); }
    virtual bool hasHeader() const { return m_dataset.hasHeader(); }
    QStringList columnNamesList() const { return m_dataset.columnNames(); }
    QString columnName(ColumnIndex column) const { return m_dataset.columnName(column); }
    QString columnsDescription(const QList<ColumnId> &ids, int maxNames) const override;
    /// One line a column: its number and name.
    QStringList columnsSummary() const;
    QString sizeText() const;
    virtual QString roundedSizeText() const;
    virtual QString displaySizeText() const { return sizeText(); }
    /// The dataset as an HTML table of at most `maxChars` characters, cells cut to `maxCellChars`.
    QString dataHtml(bool showHeader, int maxCellChars, int maxChars) const;

    // State
    virtual NodeState state() const { return m_isPreview ? NodeState::Processed : m_state; }
    static QString stateText(NodeState state);
    QString stateText() const { return stateText(state()); }
    virtual NodeStatusIcon statusIcon() const;
    bool hasRun() const { return state() == NodeState::Processed || state() == NodeState::Failed; }
    bool isReady() const override { return state() == NodeState::Processed; }
    qint64 processingMs() const { return m_processingMs; }
    const QDateTime &lastProcessed() const { return m_lastProcessed; }
    double fraction() const { return m_fraction; }
    void setFraction(double value) { m_fraction = value; }

    // Messages
    virtual QStringList warnings() const { return m_warnings; }
    virtual QStringList infos() const { return m_infos; }
    int warningCount() const { return warnings().size(); }
    bool hasWarnings() const { return !warnings().isEmpty(); }
    bool hasInfos() const { return !infos().isEmpty(); }
    QString warningsText(const QString &separator = QStringLiteral("\n")) const { return warnings().join(separator); }
    QString infosText(const QString &separator = QStringLiteral("\n")) const { return infos().join(separator); }
    /// The outcome of the last run in one line.
    virtual QString resultText() const = 0;
    /// "No data", the result or the error.
    QString statusMessage() const;

protected:
    Dataset m_dataset;
    NodeState m_state = NodeState::NeedsProcessing;
    qint64 m_processingMs = 0;
    QDateTime m_lastProcessed;
    QStringList m_warnings;
    QStringList m_infos;

private:
    bool m_isPreview = false;
    double m_fraction = 0.0;
};
