#pragma once

#include "panes/actions/transformusage.h"

#include <QWidget>

class DelayedLineEdit;
class QAction;
class QCheckBox;
class QComboBox;
class QScrollArea;
class QToolButton;
class QVBoxLayout;
class Transform;
class TransformButton;

/// The buttons of the left pane: inputs, the transforms narrowed down by category and words, outputs.
class ActionPaneWidgets : public QWidget
{
    Q_OBJECT

public:
    /// The prototypes outlive it.
    explicit ActionPaneWidgets(const QList<Transform *> &prototypes, QWidget *parent = nullptr);

    DelayedLineEdit &keywords() { return *m_keywords; }
    QList<TransformButton *> visibleButtons() const;
    /// Buttons for outputs follow whether one can be added.
    void setCanOutput(bool can);
    /// Windows have become dark or light.
    void updateIcons();

signals:
    void addedTransform(Transform *prototype);
    void inputFileClicked();
    void inputFolderClicked();
    void inputClipboardClicked();
    void outputFileClicked();
    void outputChartClicked();
    void highlightTransformNodes(bool on, int transformType);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void onCategoryChanged() { updateButtons(); }
    void onAdvancedChanged();
    void onMatchTextChanged() { updateButtons(); }
    void onTransformButtonClicked();
    void onHoverStatusChange(bool hovered);

private:
    void addInputs(QVBoxLayout &layout);
    void addFilters(QVBoxLayout &layout);
    void addTransforms(QVBoxLayout &layout, const QList<Transform *> &prototypes);
    void addOutputs(QVBoxLayout &layout);
    QToolButton *addButton(QVBoxLayout &layout, const char *text, const char *icon, const QString &tip,
        void (ActionPaneWidgets::*clicked)());
    /// Offers the lists of used transforms that are long enough.
    void updateUsedEntries();
    void updateButtons();
    /// The buttons of the chosen entry, in their order.
    QList<TransformButton *> chosenButtons() const;
    void addFirst();
    void moveFocus(int step);

    TransformUsage m_usage;
    QList<TransformButton *> m_buttons;
    QStringList m_shown;
    QComboBox *m_category;
    DelayedLineEdit *m_keywords;
    QCheckBox *m_advanced;
    QScrollArea *m_scroll;
    QVBoxLayout *m_buttonLayout = nullptr;
    QList<QPair<QToolButton *, QString>> m_plainButtons; ///< with the names of their icons
    QToolButton *m_toFile = nullptr;
    QToolButton *m_toChart = nullptr;
};
