#pragma once

#include "data/dataset.h"
#include "panes/table/characterprofile.h"

#include <QAbstractTableModel>

/// Classes of characters as rows, columns of a table as columns. Holds a table of its own, which shares its columns
/// with the item's: clear() lets go of it.
class CharactersModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The share of a cell's characters in its column, 0 to 1.
    static constexpr int ShareRole = Qt::UserRole;

    explicit CharactersModel(QObject *parent = nullptr);

    /// Looks at `rows` of the table.
    void setDataset(const Dataset &dataset, const QVector<int> &rows);
    void clear();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    double share(const QModelIndex &index) const;
    QString toolTip(const QModelIndex &index) const;

    Dataset m_dataset;
    CharacterProfile m_profile;
};
