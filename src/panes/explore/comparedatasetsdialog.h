#pragma once

#include "panes/explore/datasetcomparison.h"

#include <QDialog>
#include <QVector>

class ColorButton;
class ComparedSide;
class DataTableView;
class DiffsOverview;
class ExploredItems;
class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;

/// The tables of two items side by side, row by row, with their differences coloured. The window follows the items
/// while they run, change or go.
class CompareDatasetsDialog : public QDialog
{
    Q_OBJECT

public:
    /// `items` outlives the dialog.
    CompareDatasetsDialog(ExploredItems &items, int leftId, int rightId, QWidget *parent = nullptr);
    ~CompareDatasetsDialog() override;

    const DatasetComparison &comparison() const { return m_comparison; }

public slots:
    void onChangeCompareBy(int index);
    void onShowComboChanged(int index);
    void onLeftKeyColumnChanged();
    void onRightKeyColumnChanged();
    void onSortByKeyChanged(bool on);
    void onCaseSensitiveChanged(bool on);
    void onScrollTop();
    void onNextRowDiff();
    void onNextDiff();
    void onPrevDiff();
    void onPrevRowDiff();
    void onScrollBottom();
    void onLeftVertScroll(int value);
    void onLeftHorizScroll(int value);
    void onRightVertScroll(int value);
    void onRightHorizScroll(int value);
    void onSyncVert(bool on);
    void onSyncHoriz(bool on);
    void onChangeColor(const QColor &color);
    void onLeftViewCurrentRowChange(const QModelIndex &current);
    void onSwap();

private:
    QHBoxLayout *makeChoices();
    QHBoxLayout *makeTools();
    QHBoxLayout *makeBottom();
    QWidget *makeSides();
    QToolButton *addStep(QHBoxLayout &row, const QString &icon, const QString &name, const QString &tip,
        const QString &keys, void (CompareDatasetsDialog::*step)());
    void connectSide(const ComparedSide &side);
    void connectItems();
    void readSettings();
    bool isByKey() const;
    /// Compares anew what the items have now.
    void rebuild();
    bool hasTables();
    bool runComparison();
    void showPairs();
    /// Shows the pairs in another way, if there are any.
    void refreshPairs();
    /// Explains on either side why nothing is compared.
    void showNothing(const QString &left, const QString &right);
    void updateCounts(bool isCompared);
    void updateSteps();
    void updateOverview();
    DatasetComparison::Place currentPlace() const;
    void goTo(const DatasetComparison::Place &place);
    void scrollTo(int pair);

    ExploredItems &m_items;
    DatasetComparison m_comparison;
    bool m_isCompared = false;  ///< else there is nothing to compare
    bool m_isComparing = false; ///< events are let in meanwhile
    bool m_isOutdated = false;  ///< something changed while it compared
    QComboBox *m_by;
    QComboBox *m_show;
    QCheckBox *m_caseSensitive;
    QCheckBox *m_sortByKey;
    ColorButton *m_color;
    QPushButton *m_swap;
    ComparedSide *m_left;
    ComparedSide *m_right;
    DiffsOverview *m_overview;
    QVector<QToolButton *> m_steps; ///< in their order from top to bottom
    QLabel *m_rowDifferences;
    QLabel *m_headerDifferences;
    QCheckBox *m_syncVert;
    QCheckBox *m_syncHoriz;
};
