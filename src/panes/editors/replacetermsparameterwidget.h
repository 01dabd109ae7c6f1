#pragma once

#include "panes/editors/recordparameterwidget.h"

/// Terms that are replaced one after the other.
class ReplaceTermsParameterWidget : public RecordParameterWidget
{
    Q_OBJECT

public:
    ReplaceTermsParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

private:
    void addFileButtons();
    void importTerms();
    void exportTerms();
};
