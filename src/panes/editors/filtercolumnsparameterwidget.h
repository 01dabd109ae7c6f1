#pragma once

#include "panes/editors/recordparameterwidget.h"

class QComboBox;

/// Terms that rows must match, whether they are kept or removed then, and whether all terms or one must hold.
class FilterColumnsParameterWidget : public RecordParameterWidget
{
    Q_OBJECT

public:
    FilterColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

private:
    void addSummaryButton();
    /// The terms in words.
    QString summary() const;

    QComboBox *m_keep;
    QComboBox *m_match;
};
