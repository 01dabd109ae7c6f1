#pragma once

#include <QByteArray>

class Prompts;

/// What a panel shows besides its item, which the next panel takes over, and who asks for it.
struct PanelState
{
    enum Show { OptionsAndData, OnlyOptions, OnlyData };

    int tab = 0; ///< the page that is open
    Show show = OptionsAndData;
    QByteArray splitter; ///< of options and data, as saveState() gives it
    bool showsChanges = false;
    bool showsWhitespace = false;
    bool showsFilter = false;
    Prompts *prompts = nullptr; ///< never null in a panel of the pane
};
