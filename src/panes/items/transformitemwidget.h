#pragma once

#include "panes/items/dataitemwidget.h"

class CompareRow;
class ParameterForm;
class QLabel;
class QTimer;
class TransformNode;

/// The panel of a transform: its options, and its table with what it changed there.
class TransformItemWidget : public DataItemWidget
{
    Q_OBJECT

public:
    explicit TransformItemWidget(TransformNode &node, QWidget *parent = nullptr);

    void setPanelState(PanelState &state) override;
    ParameterForm &form() const { return *m_form; }

protected:
    void refreshOptions() override;
    const Dataset *previousDataset() const override;
    void onTableShown() override;

private:
    TransformNode *transformNode() const;
    QLabel *makeExample();
    void updateExample();
    void addVerificationColors();
    void showChanges(bool on);
    void highlightColumns();

    ParameterForm *m_form;
    QTimer *m_examplePause;
    QLabel *m_example = nullptr; ///< null for kinds that have none
    CompareRow *m_compare = nullptr;
};
