#pragma once

#include "document/batchsettings.h"

#include <QDialog>

class BatchGrid;
class BatchGridModel;
class BatchProcess;
class BatchResults;
class GraphScene;
class LogWidget;
class Prompts;
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QPushButton;
class QSplitter;
struct BatchColumns;

/// Runs the open document many times over with other files: a grid of paths, the report below it.
class BatchProcessDialog : public QDialog
{
    Q_OBJECT

public:
    /// `scene` and `prompts` must outlive this. The window is marked modified by what the document keeps of it.
    BatchProcessDialog(const GraphScene &scene, const BatchSettings &settings, Prompts &prompts);
    ~BatchProcessDialog() override;

    /// What the document keeps.
    BatchSettings settings() const;
    /// While a batch runs, stops it and closes when the run under way has ended.
    void done(int result) override;

private slots:
    void onAddRow();
    void onRemoveRows();
    void onClear();
    void onProcess();
    void onStop();
    void onVerbosityChanged();
    void onLoggingChanged();
    void onHelpRequested();
    void onUpdateButtons();
    void onPathModified();
    void onTipsToggled(bool on);
    void onSetSplitterDefaultLayout();
    void onRowProgressed(int row, int percent);

private:
    void build(const BatchColumns &columns);
    QWidget *buildRowButtons();
    QWidget *buildRunRow();
    QString tipText(const BatchColumns &columns) const;
    void fill(const BatchSettings &settings);
    void setRunning(BatchProcess *batch);
    void storeSettings();

    const GraphScene &m_scene;
    Prompts &m_prompts;
    BatchProcess *m_batch = nullptr; ///< while one runs
    bool m_closesAfterRun = false;
    bool m_splitterMoved = false;
    BatchGridModel *m_model;
    BatchGrid *m_grid;
    BatchResults *m_results;
    QLabel *m_tip;
    QPushButton *m_add;
    QPushButton *m_remove;
    QPushButton *m_clear;
    QPushButton *m_process;
    QPushButton *m_stop;
    QCheckBox *m_clearBeforeAppend;
    QCheckBox *m_showTips;
    QCheckBox *m_sound;
    QComboBox *m_verbosity;
    LogWidget *m_log;
    QSplitter *m_splitter;
    QDialogButtonBox *m_buttons;
};
