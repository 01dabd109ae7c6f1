#pragma once

#include "panes/explore/keyoverlap.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QTableWidget;

/// The keys of the two tables that a transform merges: which of them the other table has too, and how often.
class ExploreKeysDialog : public QDialog
{
    Q_OBJECT

public:
    /// What a list is headed with, and the table it is of.
    struct Source
    {
        QString label; ///< of the item and its key column
        const Dataset &table;
        ColumnIndex column;
    };

    ExploreKeysDialog(const Source &top, const Source &bottom, bool caseSensitive, QWidget *parent = nullptr);

public slots:
    /// Lists the keys that are chosen to be shown.
    void onUpdateResults();
    void onToggleDuplicates(bool on);

private:
    struct List
    {
        QTableWidget *table;
        QLabel *note;
    };
    QWidget *makeList(KeyOverlap::Side side, const QString &label);
    void fill(KeyOverlap::Side side);
    QString figuresText(KeyOverlap::Side side) const;

    const KeyOverlap m_keys;
    QComboBox *m_show;
    QCheckBox *m_duplicates;
    std::array<List, KeyOverlap::SideCount> m_lists{};
};
