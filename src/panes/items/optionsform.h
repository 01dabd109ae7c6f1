#pragma once

#include "panes/items/optionsource.h"

#include <QVector>
#include <QWidget>
#include <memory>

class QGridLayout;
class QLabel;
class QToolButton;

/// The options of an input, an output or a chart: rows of a label and one or more editors. Rows of which nothing
/// applies are hidden.
class OptionsForm : public QWidget
{
    Q_OBJECT

public:
    explicit OptionsForm(std::unique_ptr<OptionSource> source, QWidget *parent = nullptr);
    ~OptionsForm() override;

    /// A row with the editors of some options. The label is the first option's unless told; check boxes bear their own.
    void addRow(const QList<QByteArray> &keys, const QString &label = QString());
    /// A row with a widget of the panel's own, shown while `shown` gives true; null for always.
    void addRow(const QString &label, QWidget *widget, std::function<bool()> shown = nullptr);
    /// Puts a widget behind the editors of the last row.
    void addToRow(QWidget *widget);
    /// Shows all values anew, and the rows that apply.
    void refresh();
    OptionSource &source() const { return *m_source; }
    QWidget *editor(const QByteArray &key) const;

signals:
    /// A person has changed an option; `restart` while typing, when a run can wait.
    void optionChanged(const QByteArray &key);
    void processNow();
    void userInteraction();
    /// The button of a path was pressed.
    void browseClicked(const QByteArray &key);

private:
    struct Field
    {
        QByteArray key;
        QWidget *editor;
        std::function<void(const QVariant &value)> show;
        QToolButton *saveDefault;
        int row;
    };
    struct Row
    {
        QLabel *label;
        QWidget *box;
        std::function<bool()> shown;
    };

    QWidget *makeEditor(const QByteArray &key, const OptionInfo &info, Field &field);
    QWidget *makeFlag(const QByteArray &key, const OptionInfo &info, Field &field);
    QWidget *makeChoice(const QByteArray &key, const OptionInfo &info, Field &field);
    QWidget *makeNumber(const QByteArray &key, const OptionInfo &info, Field &field);
    QWidget *makeReal(const QByteArray &key, Field &field);
    QWidget *makeEncoding(const QByteArray &key, Field &field);
    QWidget *makeText(const QByteArray &key, const OptionInfo &info, Field &field);
    QWidget *makePath(const QByteArray &key, Field &field);
    QToolButton *makeDefaultButton(const QByteArray &key, const QString &label);
    void updateDefaultButton(const Field &field);
    void store(const QByteArray &key, const QVariant &value);
    QString labelOf(const QByteArray &key) const;
    void addRowWidgets(const QString &label, QWidget *box, std::function<bool()> shown);

    std::unique_ptr<OptionSource> m_source;
    QGridLayout *m_grid;
    QVector<Field> m_fields;
    QVector<Row> m_rows;
    bool m_isStoring = false;
};
