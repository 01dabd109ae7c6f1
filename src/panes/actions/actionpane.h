#pragma once

#include <QWidget>

class ActionPaneWidgets;
class Transform;

/// The left pane, where a person adds inputs, transforms and outputs. It only says what was asked for.
class ActionPane : public QWidget
{
    Q_OBJECT

public:
    explicit ActionPane(const QList<Transform *> &prototypes, QWidget *parent = nullptr);

    ActionPaneWidgets &widgets() { return *m_widgets; }
    void setCanOutput(bool can);

public slots:
    void onThemeChanged();
    void onSetFocusToTransformFilter();
    /// Scrolls the list of transforms up or down until this button of it shows.
    void onScrollSoVisible(QWidget *button);

signals:
    void addedTransform(Transform *prototype);
    void inputFileClicked();
    void inputFolderClicked();
    void inputClipboardClicked();
    void outputFileClicked();
    void outputChartClicked();
    void highlightTransformNodes(bool on, int transformType);
    void scrollSoVisible(QWidget *button);

private:
    ActionPaneWidgets *m_widgets;
};
