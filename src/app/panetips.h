#pragma once

#include "app/commands/commandcontext.h"

#include <QTimer>

class GraphScene;

/// Shows the hints of the left pane and of the canvas, each once, when what it tells of has become useful. They come
/// one at a time, shortly after a step, and never over a dialog or during a run.
class PaneTips
{
public:
    explicit PaneTips(const CommandContext &context);

    /// Listens to another scene from now on.
    void follow(GraphScene *scene);
    /// A step has been made: the next hint may come after a moment.
    void prepare() { m_pause.start(); }
    /// Who listens to the scene, to be disconnected from one that is put away.
    QObject &listener() { return m_pause; }
    /// Shows the first hint whose time has come. True if there was one.
    bool showNext();

private:
    struct Tip;

    /// How many of the hints about the canvas the settings allow.
    static int canvasTipCount();
    QList<Tip> actionTips() const;
    QList<Tip> canvasTips() const;
    QList<Tip> helpTips() const;

    const CommandContext m_context;
    QTimer m_pause;
};
