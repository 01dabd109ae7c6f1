#pragma once

#include "graph/ionode.h"
#include "outputs/columnmaps.h"
#include "outputs/outputcolumns.h"
#include "outputs/outputoptions.h"

#include <QSet>

class TextSink;
struct ExcelFormats;
struct MultiFileTargets;
struct TextLayout;

/// A leaf of the flow that writes the table of its one input to a file. It holds a copy of that table, so that it can
/// be looked at, and changes nothing in it.
class OutputNode final : public IONode
{
    Q_OBJECT

public:
    enum { Type = ItemType::Output };

    /// A new item: delimiter and quoting depend on the path's extension, the byte order mark on the type.
    explicit OutputNode(const QString &path = QString(), int fileType = FileType::Delimited, int id = -1);

    int type() const override { return Type; }
    OutputOptions options() const;
    /// Choices outside their tables become the default, a write mode outside its table Disabled. The caller marks the
    /// node stale.
    void setOptions(const OutputOptions &options);
    int writeMode() const { return m_options.writeMode; }
    void setWriteMode(int mode);
    bool isMultiFile() const { return m_options.outputTarget == OutputTarget::MultipleFiles; }
    /// True when the option has a meaning for the present type, encoding and modes.
    bool applies(OutputOption option) const;

    /// The table of the one input, else the copy of the last run; null when neither has columns.
    const Dataset *knownDataset() const;
    const OutputColumns &columns() const { return m_columns; }
    OutputColumns &columns() { return m_columns; }
    /// The texts that a document holds for the options that refer to columns.
    QString storedMultiFileColumn() const { return m_columns.storedMultiFileColumn(knownDataset()); }
    QString storedExcelFormats() const { return m_columns.storedExcelFormats(knownDataset()); }
    QString storedJsonTypes() const { return m_columns.storedJsonTypes(knownDataset()); }

    /// Native paths written in the last run.
    const QSet<QString> &writtenFiles() const { return m_writtenFiles; }
    /// Path and sheet of the last write, variables replaced; empty before.
    const QString &lastFilePath() const { return m_lastFilePath; }
    const QString &lastSheetName() const { return m_lastSheetName; }
    /// The path with its variables replaced as of now.
    QString expandedPath() const;

    void takeColumnsAsText(const Node &original) override;
    QString name() const override;
    QString listName() const override;
    QString description() const override;
    QString helpPage() const override;
    QString resultText() const override;
    QVariantList summaryRow() const override;
    int maxInputs() const override { return 1; }
    int maxOutputs() const override { return 0; }
    bool canProcess() const override { return upstreamAllProcessed(); }
    void beforeProcess() override;
    void refreshColumnOptions() override { m_columns.requestReconnect(); }
    void remapColumnIds(const QHash<ColumnId, ColumnId> &map) override { m_columns.remap(map); }
    InfoRows kindRows() const override;
    InfoRows optionRows() const override;
    QColor borderColor() const override;
    QColor boxColor() const override;
    QColor textColor() const override;

    // How the columns of the table will be written; none is Automatic
    ExcelFormats automaticExcelFormats() const;
    JsonColumnTypes automaticJsonTypes() const;

    // What a write begins with; `path` has no variables left
    /// False for a file that is to be appended to and holds more than a byte order mark, unless headers are repeated.
    bool shouldWriteHeader(const QString &path) const;
    /// The same for a sheet of a workbook.
    bool shouldWriteHeader(const QString &path, const QString &sheet) const;
    /// True for a Unicode encoding at the start of a file.
    bool shouldWriteBom(const QString &path) const;

private:
    bool mayRun() override;
    void prepareRun() override;
    bool produce() override;
    Node *cloneKind() const override;
    // Each is true unless the item has failed, and adds what there is to tell to the messages.
    bool writeDataset();
    bool writeMultipleFiles();
    bool confirm(const MultiFileTargets &plan);
    int writeTargets(const MultiFileTargets &plan, ColumnIndex files);
    /// What the file type needs of it, for the whole of m_dataset.
    ColumnMaps columnMaps() const;
    bool writeFile(QString path, QString sheet, const Dataset &dataset, const ColumnMaps &maps);
    bool writeTextFile(const QString &path, const Dataset &dataset, const JsonColumnTypes &jsonTypes);
    bool writeExcelFile(const QString &path, const QString &sheet, const Dataset &dataset, const ExcelFormats &formats);
    bool writeSheetByMode(const QString &path, const QString &sheet, const Dataset &dataset,
        const ExcelFormats &formats, QString *textChanges);
    void copyTemplateStyle(const QString &path, const QString &sheet);
    bool nestsTooDeep(const QString &shownPath, const Dataset &dataset);
    bool warnOfOpenFailure(bool existed, const QString &shownPath);
    void writeText(TextSink &sink, const TextLayout &layout, const Dataset &dataset, const JsonColumnTypes &jsonTypes);
    void writeDelimited(TextSink &sink, const TextLayout &layout, const Dataset &dataset);
    void writeJson(TextSink &sink, const TextLayout &layout, const Dataset &dataset, const JsonColumnTypes &types);
    void writeXml(TextSink &sink, const TextLayout &layout, const Dataset &dataset);
    void reportRow(int row, int rowCount);
    void warnOfTagless(const QString &what, const QString &name);
    void warnOfInvalidCharacters(int count);
    void warnOfOtherType(const QString &path);
    QString expandedComment() const;

    OutputOptions m_options; // those that IONode holds as well count there
    OutputColumns m_columns;
    QString m_lastFilePath;
    QString m_lastSheetName;
    QSet<QString> m_writtenFiles;
    // The part of the progress that the file being written takes
    double m_progressStart = 0.0;
    double m_progressEnd = 1.0;
};
