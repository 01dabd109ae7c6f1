#pragma once

#include "data/columnmemory.h"
#include "data/columntext.h"
#include "transforms/options/parameterdeclaration.h"
#include "transforms/options/records.h"
#include "transforms/options/verifyrules.h"

#include <QDate>
#include <QHash>
#include <QLocale>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

class DataSource;

/// One option of one transform: what it is declared as, and its value. Options that name columns hold column ids of one
/// upstream item, so that they survive renaming and reordering there.
class Parameter : public ParameterDeclaration
{
public:
    Parameter(Kind kind, const QString &name, const QString &label, const QVariant &value = QVariant(),
        const QStringList &choices = QStringList());
    /// For options that name columns of `node`.
    Parameter(Kind kind, const QString &name, const QString &label, DataSource *node);
    Parameter *clone() const { return new Parameter(*this); }

    const QVariant &value() const { return m_value; }
    QStringList choices() const { return m_choices.toStringList(); }
    DataSource *node() const { return m_node; }

    bool dependsOnColumns() const;
    /// The value in words, for tool tips.
    QString summary() const;
    /// True when a run can't use the value: nothing chosen, nothing typed where something is needed.
    bool isUnset() const;
    /// "Column 'x' of 'Sorting' has gone" for the first five columns that the option lacks, and how many more. A
    /// column whose name isn't known goes by the number in its document, and isn't told of in an unset option.
    QStringList lostColumnWarnings() const;

    // What the value is, for run()
    bool toBool() const { return m_value.toBool(); }
    QChar toChar() const { return m_value.toChar(); }
    QDate toDate() const;
    int toInt() const { return m_value.toInt(); }
    double toReal() const { return m_value.toDouble(); }
    QString toText() const { return m_value.toString(); }
    QLocale toLocale() const;
    int toSelectionIndex() const;
    QString toSelectionText() const { return m_value.toString(); }
    ColumnId toColumnId() const;
    /// Invalid when no column is chosen or the chosen one has gone.
    ColumnNumber toColumnNumber() const;
    QList<ColumnNumber> toColumnNumbers(bool sorted) const;
    QList<SortColumn> toSortColumns() const;
    FilterRecord toFilterTerms() const;
    IfRecord toIfBranches() const;
    QHash<ColumnId, QString> toRenames() const;
    QList<ReplaceTerm> toReplaceTerms() const;
    QHash<ColumnId, int> toUniqueColumns() const;
    SplitRowsRecord toSplitRows() const;
    VerifyRuleSet toVerifyRules() const;

    // Setters
    /// A stored value that still waits for its columns is dropped: what a person chose goes first.
    void setValue(const QVariant &value);
    /// Takes a saved default if it makes sense for this option; says whether it did.
    bool setUserDefault(const QVariant &value);
    void setNode(DataSource *node, bool reinitialise = false);
    /// The item upstream is gone or going.
    void clearNode() { m_node = nullptr; }
    /// Two column options change places: each takes the other's item and columns.
    void swapInput(Parameter &other);

    /// Chooses the only column of a one-column table.
    void preselectSingleColumn();
    /// Chooses all columns; those of a table that isn't there yet as soon as it is.
    void selectAllColumns();
    QStringList columnNamesFor(const QList<ColumnId> &ids) const;

    // Stored form
    QString toDocumentText() const;
    /// Bad or unknown parts keep what stands; `version` is the document's.
    void fromDocumentText(const QString &text, int version);
    /// Keeps a stored value until the columns upstream are known; one that names no columns is taken at once.
    void setDeferredText(const QString &text, int version);
    bool hasDeferredText() const { return m_text.isWaiting(); }
    void resolveDeferred();

    // Keeping hold of columns
    void allowReconnect() { m_memory.allowReconnect(); }
    /// Follows renames, and once after a new connection looks lost columns up by their last names.
    void reconnectColumns(QStringList &warnings, QStringList &infos);
    /// True when `id` was found anew under its last name; `newId` and `currentName` are set.
    bool reconnectColumn(ColumnId id, const QString &lastName, ColumnId &newId, QString &currentName,
        QStringList &warnings, QStringList &infos) const;
    void remapColumnIds(const QHash<ColumnId, ColumnId> &map);
    /// The columns that the value names.
    QList<ColumnId> referencedColumns() const;

private:
    void initialiseFromNode();
    /// Keeps the stored text of the columns while they are known.
    void keepColumnText();
    QString columnText() const;
    ColumnOption columnOption();
    /// Calls `change` for each column that `value` names, in order; it may set another id and then returns true. True
    /// when one did.
    bool changeColumns(QVariant &value, const ColumnChange &change) const;
    /// `value` in this kind's form, or nothing.
    QVariant acceptable(const QVariant &value) const;
    /// The columns without which the option does something else, without those that it only arranges or names.
    QList<ColumnId> neededColumns() const;
    /// Whether one of the columns needed is there; a condition on any column counts as one.
    bool hasColumnsLeft() const;
    QString sortSummary() const;
    QString singleColumnSummary() const;

    bool hasSeveralParts() const;
    QStringList splitParts(const QString &text, int version) const;
    QString singleText() const;
    QStringList columnParts() const;
    QStringList recordParts() const;
    QString deferredDocumentText() const;
    void readSingle(const QString &text);
    void readParts(const QStringList &parts);
    void readRecord(const QStringList &parts);

    bool m_selectAllPending = false;
    QVariant m_value;
    QVariant m_choices;
    DataSource *m_node = nullptr;
    ColumnMemory m_memory;
    ColumnText m_text;     ///< what waits, else the stored text that m_knownValue had
    QVariant m_knownValue; ///< the value when its columns were last known
};
