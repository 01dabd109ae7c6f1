#pragma once

#include <QWidget>

class Prompts;
class QCheckBox;
class QLineEdit;
class QPushButton;

/// Whether a report goes to a file as well, which one, and whether that begins anew.
class LogWidget : public QWidget
{
    Q_OBJECT

public:
    /// `prompts` must outlive this.
    explicit LogWidget(Prompts &prompts, QWidget *parent = nullptr);

    bool isLogging() const;
    QString path() const;
    bool overwrites() const;
    /// Tells nobody.
    void setValues(bool isLogging, const QString &path, bool overwrites);

signals:
    void changed();

private slots:
    void onChanged();
    void onBrowse();

private:
    Prompts &m_prompts;
    QCheckBox *m_logging;
    QLineEdit *m_path;
    QPushButton *m_browse;
    QCheckBox *m_overwrite;
};
