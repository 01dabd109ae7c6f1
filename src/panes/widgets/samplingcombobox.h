#pragma once

#include <QComboBox>
#include <QVector>

/// How many rows of a table are looked at. The choice is shared by all such boxes and kept.
class SamplingComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit SamplingComboBox(QWidget *parent = nullptr);

    /// Those of a table of `rowCount` rows, evenly spread.
    QVector<int> rowsOf(int rowCount) const;
    bool takesAllOf(int rowCount) const;

signals:
    void sampleChanged();
};
