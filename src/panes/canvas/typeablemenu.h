#pragma once

#include <QMenu>

class GraphScene;
class QLabel;
class QWidgetAction;

/// A menu of transforms that is narrowed down by typing: the text stands above the transforms whose names begin with
/// it, and the first that fits the selection is ready to be taken by Enter.
class TypeableMenu : public QMenu
{
    Q_OBJECT

public:
    /// Entries beyond these are left out until more is typed.
    static constexpr int mostEntries = 20;

    /// `typed` is there from the beginning.
    TypeableMenu(GraphScene &scene, const QString &typed, QWidget *parent = nullptr);

    const QString &typedText() const { return m_typed; }

signals:
    void transformChosen(const QString &typeName);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setTyped(const QString &typed);
    void fill();

    GraphScene &m_scene;
    QString m_typed;
    QLabel *m_label;
    QWidgetAction *m_header;
};
