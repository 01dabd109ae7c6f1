#pragma once

#include <QDialog>

class QComboBox;
class QTableWidget;

/// Lists the documents opened lately, to open one of them.
class OpenRecentDialog : public QDialog
{
    Q_OBJECT

public:
    /// `paths` are absolute; those without a file don't show.
    explicit OpenRecentDialog(const QStringList &paths, QWidget *parent = nullptr);
    ~OpenRecentDialog() override;

    /// The chosen document, empty for none.
    QString path() const;

private:
    QComboBox *makeFilter();
    QComboBox *makeStartChoice();
    void fillTable();

    const QStringList m_paths;
    QTableWidget *m_table;
    QComboBox *m_filter;
};
