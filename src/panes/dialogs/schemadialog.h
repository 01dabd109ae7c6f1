#pragma once

#include "inputs/inputschema.h"

#include <QDialog>

class Prompts;
class QComboBox;
class RecordTableWidget;
class RecordTools;
class QToolButton;

/// Edits the columns that an input is expected to have, and what happens when it has others.
class SchemaDialog : public QDialog
{
    Q_OBJECT

public:
    /// `inputNames` are the columns of the present input; `prompts` outlives the dialog.
    SchemaDialog(const InputSchema &schema, const QStringList &inputNames, Prompts &prompts, QWidget *parent = nullptr);

    InputSchema schema() const;
    void accept() override;

private:
    void addTools(RecordTools &tools);
    QComboBox *addMode(class QFormLayout &form, const QString &label, const QStringList &texts, const QString &tip);
    void importNames();
    void sort(bool ascending);
    void onModified();
    void onUpdateButtons();
    void onUpdateTableCols();

    const InputSchema m_first;
    const QStringList m_inputNames;
    Prompts &m_prompts;
    RecordTableWidget *m_table;
    QComboBox *m_missingColsComboBox;
    QComboBox *m_reorderedColsComboBox;
    QComboBox *m_extraColsComboBox;
    QList<QToolButton *> m_needSelection;
    QList<QToolButton *> m_needRows;
};
