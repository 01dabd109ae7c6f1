#pragma once

#include "data/columnmemory.h"
#include "data/columntext.h"

#include <QVariantList>

class Dataset;

/// What an output item says of single columns: where file names stand, and the formats and types that were chosen by
/// hand. Columns are held by identity, so that they survive renaming and reordering upstream. What a document says of
/// them is kept as text, and given back as it was, until the table upstream is there.
class OutputColumns
{
public:
    /// Number of an ExcelColumnFormat or a JsonColumnType by column; 0, which is also that of columns left out, is
    /// Automatic.
    using Choices = QHash<ColumnId, int>;

    ColumnId multiFileColumn() const { return m_multiFileColumn; }
    // A new choice wins over what a document said of it, and leaves the others alone. `upstream` is the table that it
    // was made for, null when none is known.
    void setMultiFileColumn(ColumnId column, const Dataset *upstream);
    const Choices &excelFormats() const { return m_excelFormats; }
    void setExcelFormats(const Choices &formats, const Dataset *upstream);
    const Choices &jsonTypes() const { return m_jsonTypes; }
    void setJsonTypes(const Choices &types, const Dataset *upstream);

    /// The texts of a document: the number of the Files column, and a number for each column in lists.
    void setStored(const QString &multiFileColumn, const QString &excelFormats, const QString &jsonTypes);
    bool isPending() const { return m_fileText.isWaiting() || m_formatsText.isWaiting() || m_typesText.isWaiting(); }
    /// Turns pending texts into columns of `upstream`; numbers beyond its columns are dropped. A table without columns
    /// leaves them pending.
    void resolve(const Dataset &upstream);
    /// The texts for a document. Without a table upstream (null, or one without columns) they are those last known.
    QString storedMultiFileColumn(const Dataset *upstream) const;
    QString storedExcelFormats(const Dataset *upstream) const;
    QString storedJsonTypes(const Dataset *upstream) const;

    /// Lets the next reconnect() look for lost columns by their last names.
    void requestReconnect() { m_memory.allowReconnect(); }
    /// Learns the names of the columns in use and, once after requestReconnect(), finds lost columns by name; the
    /// stored texts follow.
    void reconnect(const Dataset &upstream, QStringList &warnings, QStringList &infos);
    /// Replaces ids; those that `map` lacks stay.
    void remap(const QHash<ColumnId, ColumnId> &map);

    /// Everything held, for comparing two items.
    QVariantList values() const;

private:
    QList<ColumnOption> options();
    void keepTexts(const Dataset &upstream);

    ColumnId m_multiFileColumn;
    Choices m_excelFormats;
    Choices m_jsonTypes;
    ColumnText m_fileText;
    ColumnText m_formatsText;
    ColumnText m_typesText;
    ColumnMemory m_memory;
};
