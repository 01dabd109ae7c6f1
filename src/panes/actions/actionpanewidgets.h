#pragma once

#include "panes/actions/transformusage.h"

#include <QWidget>

class DelayedLineEdit;
class PaneButton;
class QCheckBox;
class QComboBox;
class QScrollArea;
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
    QComboBox &category() { return *m_category; }
    QCheckBox &advanced() { return *m_advanced; }
    QScrollArea &transforms() { return *m_scroll; }
    PaneButton &fromFile() { return *m_fromFile; }
    PaneButton &toFile() { return *m_toFile; }
    PaneButton &toChart() { return *m_toChart; }
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
    /// A button of the list has got the focus.
    void scrollSoVisible(QWidget *button);

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
    PaneButton *addButton(QVBoxLayout &layout, const char *text, const char *icon, const char *helpPage,
        const QString &tip, void (ActionPaneWidgets::*clicked)());
    /// Offers the lists of used transforms that are long enough.
    void updateUsedEntries();
    void updateButtons();
    /// The buttons of the chosen entry, in their order.
    QList<TransformButton *> chosenButtons() const;
    /// Lays these out in their order, which Tab follows too.
    void order(const QList<TransformButton *> &buttons);
    /// Adds the transform that the words mean.
    void addFound();
    void moveFocus(int step);

    TransformUsage m_usage;
    QList<TransformButton *> m_buttons;
    QStringList m_shown;
    QComboBox *m_category;
    DelayedLineEdit *m_keywords;
    QCheckBox *m_advanced;
    QScrollArea *m_scroll;
    QVBoxLayout *m_buttonLayout = nullptr;
    QList<QPair<PaneButton *, QString>> m_plainButtons; ///< with the names of their icons
    PaneButton *m_fromFile = nullptr;
    PaneButton *m_toFile = nullptr;
    PaneButton *m_toChart = nullptr;
};
