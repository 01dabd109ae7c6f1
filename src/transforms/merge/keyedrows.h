#pragma once

#include "transforms/frame/transform.h"
#include "transforms/keys/keyindex.h"

class OptionTable;
class OptionValues;

/// Frame of the transforms that choose rows of the top table by keys of the bottom table.
class KeyedRowsTransform : public Transform
{
public:
    bool hasKeyColumns() const override { return true; }
    QString firstKeyParameterName() const override { return QStringLiteral("Column_1"); }
    QString secondKeyParameterName() const override { return QStringLiteral("Column_2"); }
    QString caseSensitiveParameterName() const override { return QStringLiteral("Case_Sensitive"); }
    bool updateInputOrder(const QList<DataSource *> &inputs) override;

protected:
    using Transform::Transform;

    /// The two tables with their keys.
    struct Keys
    {
        const Dataset &top;
        const Dataset &bottom;
        ColumnIndex topColumn;
        ColumnIndex bottomColumn;
        bool caseSensitive;
        CellColumn topKeys;
        KeyIndex bottomKeys;
    };

    /// The two key columns and the case option, with these tool tips for the columns.
    static OptionTable keyOptions(const QString &topTip, const QString &bottomTip);
    void adjustNewParameters(const QList<DataSource *> &inputs, bool isNew) override;
    Dataset computeIncomplete(const Inputs &inputs) override;
    Dataset compute(const OptionValues &values, const Inputs &inputs) final;
    /// Both key columns are there.
    virtual Dataset chooseRows(const OptionValues &values, const Keys &keys) = 0;
    QString topLabel() const;
    QString bottomLabel() const;
};
