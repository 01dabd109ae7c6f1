#pragma once

#include <QHash>
#include <QStringList>
#include <array>
#include <vector>

/// Finds columns by name: by the very name first, then without regard to case, then to blanks around it, then to both.
/// A column is found once.
class LooseNames
{
public:
    explicit LooseNames(const QStringList &names);

    /// The first column left whose name is most like `name`, which is then taken; -1 for none.
    int take(const QString &name);
    bool isTaken(int column) const { return m_taken[static_cast<size_t>(column)]; }
    /// How many columns were looked at.
    int lookedAt() const { return m_lookedAt; }

private:
    /// Columns of one form of name, in order; those before `next` are taken.
    struct Columns
    {
        std::vector<int> columns;
        size_t next = 0;
    };
    static constexpr int formCount = 4;
    static QString form(const QString &name, int looseness);

    std::array<QHash<QString, Columns>, formCount> m_byForm;
    std::vector<bool> m_taken;
    int m_lookedAt = 0;
};
