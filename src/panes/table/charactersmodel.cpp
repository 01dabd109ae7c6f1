#include "panes/table/charactersmodel.h"

#include "data/values.h"
#include "panes/widgets/tips.h"

namespace {

constexpr int mostExampleCharacters = 100;
constexpr int mostTitleCharacters = 100;
constexpr double percent = 100.0;

} // namespace

CharactersModel::CharactersModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void CharactersModel::setDataset(const Dataset &dataset, const QVector<int> &rows)
{
    beginResetModel();
    m_dataset = dataset;
    m_profile = CharacterProfile(dataset, rows);
    endResetModel();
}

void CharactersModel::clear()
{
    beginResetModel();
    m_dataset.clear();
    m_profile = CharacterProfile();
    endResetModel();
}

int CharactersModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || m_profile.columnCount() == 0 ? 0 : CharacterProfile::ClassCount;
}

int CharactersModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_profile.columnCount();
}

double CharactersModel::share(const QModelIndex &index) const
{
    const qint64 total = m_profile.total(index.column());
    return total == 0 ? 0.0 : static_cast<double>(m_profile.count(index.row(), index.column()).characters) / total;
}

QString CharactersModel::toolTip(const QModelIndex &index) const
{
    const CharacterProfile::Count &count = m_profile.count(index.row(), index.column());
    QString tip = QStringLiteral(
        "%1 %2 character(s) out of %3 character(s)\nsampled from %4 row(s) in column '%5' (%6 of all).")
                      .arg(formatInteger(count.characters, true), CharacterProfile::name(index.row()),
                          formatInteger(m_profile.total(index.column()), true),
                          formatInteger(m_profile.rowCount(), true), m_dataset.columnName(ColumnIndex(index.column())),
                          QStringLiteral("%1%").arg(share(index) * percent, 0, 'f', 1));
    if (!count.rows.isEmpty()) {
        tip += QStringLiteral("\nExample(s):");
        for (const int row : count.rows) {
            const QString value = m_dataset.value(RowIndex(row), ColumnIndex(index.column()));
            tip += QStringLiteral("\nRow %1: %2")
                       .arg(formatInteger(row + 1, true), ellipsized(value, mostExampleCharacters));
        }
    }
    return tip;
}

QVariant CharactersModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return formatInteger(m_profile.count(index.row(), index.column()).characters, true);
    case Qt::ToolTipRole:
        return Tips::plain(toolTip(index));
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    case ShareRole:
        return share(index);
    default:
        return {};
    }
}

QVariant CharactersModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    if (orientation == Qt::Vertical) {
        return CharacterProfile::name(section);
    }
    const QString name = m_dataset.columnName(ColumnIndex(section));
    return role == Qt::DisplayRole ? ellipsized(name, mostTitleCharacters) : Tips::plain(name);
}
