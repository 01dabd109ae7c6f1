#pragma once

#include <QWidget>

class FaultLabel;
class QPlainTextEdit;

/// "Dates": the formats in which dates are looked for.
class DatesPage : public QWidget
{
    Q_OBJECT

public:
    explicit DatesPage(QWidget *parent = nullptr);

    void store();

private:
    void onDefaultUSDateFormats();
    void onDefaultNonUSDateFormats();
    void onChanged();
    QStringList formats() const;

    QPlainTextEdit *m_formats;
    FaultLabel *m_fault;
    const QStringList m_first;
};
