#pragma once

#include "graph/ionode.h"
#include "inputs/filewatch.h"
#include "inputs/inputoptions.h"

#include <functional>

class QTimer;
class SourceReader;

namespace spreadsheet {
class Book;
}

/// The item that brings a table into the flow: it reads one source by its options and tells what it met there.
class InputNode : public IONode
{
    Q_OBJECT

public:
    explicit InputNode(const InputOptions &options = InputOptions(), int id = -1);
    ~InputNode() override;
    int type() const override { return ItemType::Input; }

    InputOptions options() const;
    /// Whoever changes options marks the node stale; a change of what is watched takes effect with the next reading.
    void setOptions(const InputOptions &options);
    /// Drops the data and marks everything downstream stale.
    void setPath(const QString &path, const QString &sheet) override;
    /// The column names of the last reading, before a schema or meta information changed them.
    const QStringList &previousColumnNames() const { return m_previousColumnNames; }
    /// The first lines of the last text of fixed width, as they stand there.
    const QStringList &fixedWidthSample() const { return m_fixedWidthSample; }

    QString name() const override;
    QString listName() const override;
    /// A name for a file made of this input's data.
    QString defaultOutputName() const;
    QString description() const override;
    QString helpPage() const override { return QStringLiteral("Input_data"); }
    bool hasHeader() const override;
    int maxInputs() const override { return 0; }
    int maxOutputs() const override { return unlimited; }
    bool canProcess() const override { return true; }
    QString resultText() const override;
    InfoRows kindRows() const override { return informationRows(); }
    InfoRows optionRows() const override { return optionSummary(); }
    /// Where the data comes from and what came of it.
    InfoRows informationRows() const;
    /// The options that matter for this source, with their values.
    InfoRows optionSummary() const;
    QVariantList summaryRow() const override;
    QColor borderColor() const override;
    QColor boxColor() const override;
    QColor textColor() const override;

    void connectToScene(GraphScene *scene) override;
    void goToRest() override;

signals:
    /// The source has changed and is to be read again.
    void sourceChanged(Node *node);

public slots:
    void onWatchedChanged();
    void onDelayedImport();

private:
    bool produce() override;
    Node *cloneKind() const override;

    // Reading (inputnodereading.cpp); each is false when it failed, which the warnings tell
    bool readSingle();
    bool readSource(Dataset &dataset);
    bool readClipboard(Dataset &dataset);
    bool readFile(const QString &path, Dataset &dataset, double progressStart, double progressEnd);
    bool readExcel(
        const QString &path, const QString &sheet, Dataset &dataset, double progressStart, double progressEnd);
    bool readExcel(spreadsheet::Book &book, const QString &path, const QString &sheet, Dataset &dataset,
        double progressStart, double progressEnd);
    void takeResults(const SourceReader &reader);
    bool finishReading();
    void applyHeader();
    bool guessHeader() const;
    bool validateSchema(Dataset &dataset);
    void addMetaInformation(Dataset &dataset, const QString &path, const QString &sheet) const;
    void warnOfExtension();

    // Folders (inputnodefolder.cpp)
    struct FolderReading;
    bool readFolder();
    void readFolderFile(const QString &path, double progressStart, double progressEnd, FolderReading &reading);
    void readFolderBook(const QString &path, double progressStart, double progressEnd, FolderReading &reading);
    bool finishFolderItem(
        const QString &path, const QString &sheet, bool success, Dataset &dataset, FolderReading &reading);
    void warnOfEmptyFolder();

    void updateWatch();
    void startWatching(const QString &path);
    void stopWatching();
    /// What reports progress within a part of the whole.
    std::function<void(double)> progressPart(double start, double end);

    InputOptions m_options; // those that IONode holds as well count there
    QStringList m_previousColumnNames;
    QStringList m_fixedWidthSample;
    QString m_readSheet; // the sheet last read, as its workbook has it
    int m_filesRead = 0; // of a folder, as the next
    int m_sheetsRead = 0;
    FileWatch *m_watcher = nullptr;
    FileWatch::Stamp m_stampBefore; // the file before it was read
    QTimer *m_importTimer = nullptr;
};
