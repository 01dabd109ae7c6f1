#pragma once

#include "graph/itemsearch.h"

#include <QDialog>
#include <QVector>
#include <functional>

class GraphScene;
class Node;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class Settings;

/// "Find Items": selects the items that match words. It stays open beside the canvas and looks anew at each press, so
/// that it never holds on to an item that is gone.
class FindItemsDialog : public QDialog
{
    Q_OBJECT

public:
    using SceneGetter = std::function<GraphScene &()>;
    /// `showItem` brings a selected item into view, `zoom` fits what is selected.
    FindItemsDialog(
        SceneGetter scene, std::function<void(Node &)> showItem, std::function<void()> zoom, QWidget *parent = nullptr);

    /// Brings the window to the front, ready to type.
    void open() override;

private:
    struct Check
    {
        QCheckBox *box;
        int flag;
        void (Settings::*store)(const bool &);
    };

    QWidget *makePlaces();
    QWidget *makeKinds();
    void addCheck(QGridLayout &grid, QVector<Check> &checks, const char *text, int flag, bool (Settings::*read)() const,
        void (Settings::*store)(const bool &), const QString &tip = QString());
    QPushButton *addButton(const char *text, void (FindItemsDialog::*action)());
    ItemSearch search() const;
    QString wordsOf(const ItemSearch &search) const;
    void onSelectAll();
    void onSelectNext() { step(1); }
    void onSelectPrev() { step(-1); }
    void step(int direction);
    /// Says so when there are none, or when a run allows no selecting.
    QList<Node *> find(const ItemSearch &wanted) const;
    void select(const QList<Node *> &nodes, Node *shown);
    void onUpdateButtons();
    void storeChoices() const;

    const SceneGetter m_scene;
    const std::function<void(Node &)> m_showItem;
    const std::function<void()> m_zoom;
    QLineEdit *m_text;
    QComboBox *m_join;
    QVector<Check> m_places;
    QVector<Check> m_kinds;
    QCheckBox *m_case;
    QCheckBox *m_zoomSelected;
    QLabel *m_result;
    QVector<QPushButton *> m_buttons;
};
