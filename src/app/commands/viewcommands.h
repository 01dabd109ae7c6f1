#pragma once

#include "app/commands/commandcontext.h"

#include <QPointer>
#include <memory>

class FindItemsDialog;
class TwoScreenMode;
class UiThemes;
struct MainActions;
enum class CanvasTips;
enum class NodeStatusIcon;

/// Commands of the View menu.
class ViewCommands
{
public:
    ViewCommands(const CommandContext &context, MainActions &actions);
    ~ViewCommands();

    void setZoomFit(bool on);
    void zoomIn();
    void zoomOut();
    void zoomSelected();
    /// Selects the items with that status, and zooms to them.
    void selectIconsOfType(NodeStatusIcon icon);
    void toggleTheme();
    UiThemes &themes() { return *m_themes; }
    void setCommentsShown(bool on);
    void setChangesShown(bool on);
    void setWarningsShown(bool on);
    /// Turning one on turns the others off.
    void setToolTips(CanvasTips tips, bool on);
    void setMagnified(bool on);
    void setTimingProfileShown(bool on);
    /// After a run, and for another scene.
    void updateTimingProfile();
    void connectByKeyboard();
    /// The panel of the one selected item.
    void showFullscreen();
    void findItems();
    void viewNodeSummary();
    void setToolBarShown(bool on);
    void setActionPaneShown(bool on);
    void setItemPaneShown(bool on);
    void setTwoScreens(bool on);
    bool isInTwoScreens() const;
    void setLogShown(bool on);
    /// For a document that has come or gone.
    void fitDocument();
    /// The action tells whether the graph is kept fitted.
    void onZoomChanged();

private:
    const CommandContext m_context;
    MainActions &m_actions;
    const std::unique_ptr<UiThemes> m_themes;
    const std::unique_ptr<TwoScreenMode> m_twoScreens;
    QPointer<FindItemsDialog> m_find;
};
