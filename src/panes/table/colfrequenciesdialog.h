#pragma once

#include "data/columnprofile.h"
#include "data/dataset.h"
#include "data/profilelines.h"

#include <QDialog>

class Prompts;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTableWidget;
class QVBoxLayout;
class SamplingComboBox;

/// The most or least frequent values of a column, and figures about it; a double click shows the rows behind either.
class ColFrequenciesDialog : public QDialog
{
    Q_OBJECT

public:
    /// `prompts` outlives the dialog.
    ColFrequenciesDialog(const Dataset &dataset, ColumnIndex column, Prompts &prompts);

public slots:
    /// Tells once that there are examples.
    void onShowTip();
    void onColChanged(int column);
    void onFirstClicked();
    void onPrevClicked();
    void onNextClicked();
    void onLastClicked();
    void onShowBarsToggled(bool on);
    void onFrequenciesPercentageToggled(bool on);
    void onIncludeDatesToggled();
    void onIncludeStatsToggled();
    void onShowNumFrequenciesChanged(int count);
    void onShowTopBottomChanged();
    void onMetricTableCellDoubleClicked(int row, int column);
    void onFrequencyTableCellDoubleClicked(int row, int column);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addColumnRow(QVBoxLayout &layout);
    QWidget *frequencySide();
    QWidget *metricSide();
    void addSampleRow(QVBoxLayout &layout);
    QPushButton *addStep(const QString &text, const QString &tip, void (ColFrequenciesDialog::*step)());
    void readColumn();
    void showFrequencies();
    void showMetrics();
    QString metricTip(ProfileLine line) const;
    void showRows(const QVector<int> &rows);
    void showDuplicates();

    Dataset m_dataset;
    Prompts &m_prompts;
    ColumnProfile m_profile;
    bool m_isSample = false; ///< the profile covers a part of the rows
    QComboBox *m_column;
    QList<QPushButton *> m_steps;
    QComboBox *m_order;
    QSpinBox *m_count;
    SamplingComboBox *m_sample;
    QLabel *m_sampled;
    QCheckBox *m_bars;
    QCheckBox *m_percentages;
    QCheckBox *m_dates;
    QCheckBox *m_statistics;
    QTableWidget *m_frequencies;
    QTableWidget *m_metrics;
};
