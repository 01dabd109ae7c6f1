#pragma once

#include "panes/items/dataitemwidget.h"

class CompareRow;
class ExploreKeysButton;
class ParameterForm;
class QLabel;
class QLayout;
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
    void addKeysButton(QLayout &layout);
    void showChanges(bool on);
    void highlightColumns();
    QWidget *makeDuplicatesButton();
    void exploreDuplicates();

    ParameterForm *m_form;
    QTimer *m_examplePause;
    QLabel *m_example = nullptr;         ///< null for kinds that have none
    ExploreKeysButton *m_keys = nullptr; ///< null for kinds without keys
    CompareRow *m_compare = nullptr;
};
