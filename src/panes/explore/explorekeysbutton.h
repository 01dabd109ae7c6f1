#pragma once

#include <QPushButton>

class Prompts;
class Transform;

/// Opens the window with the keys of the tables that a transform merges, once both key columns are chosen.
class ExploreKeysButton : public QPushButton
{
    Q_OBJECT

public:
    /// `transform`, which has key columns, outlives the button.
    explicit ExploreKeysButton(const Transform &transform, QWidget *parent = nullptr);

    /// The options or the tables have changed.
    void refresh();
    /// Nothing while a key column is missing.
    void explore(Prompts &prompts) const;

private:
    const Transform &m_transform;
};
