#pragma once

#include <QWidget>

class QComboBox;

/// Whether the widths of fixed-width columns are guessed or set by hand, with a button to set them.
class FixedWidthAutoManualWidget : public QWidget
{
    Q_OBJECT

public:
    explicit FixedWidthAutoManualWidget(QWidget *parent = nullptr);

    void setAutomatic(bool automatic);

signals:
    /// A person has chosen.
    void automaticChanged(bool automatic);
    void manualEditClicked();

private:
    QComboBox *m_mode;
};
