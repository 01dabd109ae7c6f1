#pragma once

#include <Qt>

// The settings that are a choice of a few. The numbers are stored. `Last` names the last of each: a number that no
// choice has is read as the first one, as a text that is no number is.

/// How often a newer version is looked for (auto_update_interval). A number that isn't listed means never.
enum class UpdateInterval { Day, Week, Month, Never, Last = Never };

/// Colours of the canvas (color_scheme).
enum class ColorScheme {
    Custom,
    Modern,
    Original,
    Candy,
    TheBlues,
    Vivid,
    Hotblack,
    Dark,
    Quartzite,
    Obsidian,
    Sapphire,
    Last = Sapphire
};

/// How rows of two tables are paired (compare_data_by_index).
enum class RowPairing { RowNumbers, KeyColumns, Last = KeyColumns };

/// How columns of several tables are paired (compare_headers_by_index).
enum class HeaderPairing { ColumnName, ColumnIndex, Last = ColumnIndex };

/// Which pairs a comparison shows (compare_data_show_index, compare_headers_show_index).
enum class ComparedPairs { All, OnlyMatches, OnlyDifferences, Last = OnlyDifferences };

/// Which keys are explored (explore_keys_window_index).
enum class ExploredKeys { All, OnlyMatching, OnlyNonMatching, Last = OnlyNonMatching };

/// How cells stand in a text (copy_data_as): quoted where commas require it, parted by tabs, or not parted at all.
enum class TextForm { CommaSeparated, TabSeparated, Plain, Last = Plain };

/// What the filter of a shown table looks at (filter_data_index).
enum class TableFilter { ColumnName, RowData, ColumnData, Last = ColumnData };

/// Which of several search words an item must have (find_all_any).
enum class SearchJoin { All, Any, Last = Any };

/// What the mouse wheel does on the canvas (mouse_wheel_behaviour). Ctrl changes zooming and scrolling over.
enum class WheelBehaviour { Scroll, ZoomIn, ZoomOut, Nothing, Last = Nothing };

/// What happens when a document that runs by itself and writes files is opened (open_auto_run).
enum class AutoRunChoice {
    LeaveAutoRun,
    AskToDisableAutoRun,
    AskToDisableOutputs,
    DisableAutoRun,
    DisableOutputs,
    Last = DisableOutputs
};

/// What a start without a document opens (open_previous_at_start). "ThisWindow" opens nothing.
enum class StartChoice { Nothing, Previous, RecentWindow, ThisWindow, Last = ThisWindow };

/// Which recent documents are listed (open_recent_filter).
enum class RecentFilter { All, LastWeek, LastMonth, Last = LastMonth };

/// What a run saves when it can't save both (optimize_for).
enum class RunOptimum { Memory, Speed, Last = Speed };

/// How much the tool tips of the canvas say (show_center_pane_tips).
enum class CanvasTips { Off, Brief, Detailed, Last = Detailed };

/// Icons of the tool bar (toolbar_icon_size).
enum class ToolBarIcons { Small, Medium, Large, Last = Large };

/// Look of the windows (ui_theme); Automatic is that of the desktop.
enum class UiTheme { Automatic, Light, Dark, Last = Dark };

/// The greatest number of a choice.
template<class Choice>
constexpr int lastChoice = static_cast<int>(Choice::Last);
template<>
inline constexpr int lastChoice<Qt::SortOrder> = Qt::DescendingOrder;

/// What a number that no choice has is read as.
template<class Choice>
constexpr Choice otherChoice = Choice(0);
template<>
inline constexpr UpdateInterval otherChoice<UpdateInterval> = UpdateInterval::Never;

/// The choice with that number.
template<class Choice>
constexpr Choice choiceOf(int number)
{
    return number >= 0 && number <= lastChoice<Choice> ? static_cast<Choice>(number) : otherChoice<Choice>;
}
