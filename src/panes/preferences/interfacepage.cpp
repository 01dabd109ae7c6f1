#include "panes/preferences/interfacepage.h"

#include "panes/preferences/fontrow.h"

namespace {

constexpr double longestDelay = 60.0;
constexpr int mostSensitive = 10;
constexpr int mostPadding = 50;

} // namespace

InterfacePage::InterfacePage(QWidget *parent)
    : SettingRows(parent)
{
    addChoice<UiTheme>(QStringLiteral("User interface theme:"),
        QStringLiteral("Set the theme for the user interface. Set to 'Automatic' to follow the operating system "
                       "theme."),
        {QStringLiteral("Automatic"), QStringLiteral("Light"), QStringLiteral("Dark")}, &Settings::uiTheme,
        &Settings::setUiTheme);
    addChoice<ToolBarIcons>(QStringLiteral("Tool bar icon size:"),
        QStringLiteral("Change the size of the icons in the tool bar."),
        {QStringLiteral("Small"), QStringLiteral("Medium"), QStringLiteral("Large")}, &Settings::toolbarIconSize,
        &Settings::setToolbarIconSize);
    addReal(QStringLiteral("Right pane processing delay:"),
        QStringLiteral("How long after a change in the right pane it is processed."), 0.0, longestDelay,
        QStringLiteral(" seconds"), &Settings::processingDelay, &Settings::setProcessingDelay);
    addWheel();
    addFont(QStringLiteral("User interface font:"), QStringLiteral("The font of menus, panes and windows."),
        &Settings::uiFont, &Settings::setUiFont);
    addFont(QStringLiteral("Data table font:"),
        QStringLiteral("The font of data tables. In a monospaced font, such as Courier New, DejaVu Sans Mono or "
                       "Liberation Mono, all characters are equally wide."),
        &Settings::dataFont, &Settings::setDataFont);
    addNumber(QStringLiteral("Data table padding:"), QStringLiteral("The space above and below the text of a row."), 0,
        mostPadding, QStringLiteral(" pixels"), &Settings::dataFontVerticalPadding,
        &Settings::setDataFontVerticalPadding);
    addFlag(QStringLiteral("gray Left pane buttons when not available"),
        QStringLiteral("Check to gray the buttons of transforms that can't be added to what is selected."),
        &Settings::grayLeftPaneButtons, &Settings::setGrayLeftPaneButtons);
    addFlag(QStringLiteral("move Note items with associated items"),
        QStringLiteral("Check to move notes together with the items that their arrows point at."),
        &Settings::autoMoveNotes, &Settings::setAutoMoveNotes);
    addFlag(QStringLiteral("use native file windows"),
        QStringLiteral("Check to choose files and folders in the windows of your desktop."),
        &Settings::useNativeFileDialogs, &Settings::setUseNativeFileDialogs);
}

void InterfacePage::addWheel()
{
    addChoice<WheelBehaviour>(QStringLiteral("Zoom wheel behavior:"),
        QStringLiteral("Change the behavior of the mouse wheel in the center pane. \nHold down the Option key to swap "
                       "between zoom and scroll behavior."),
        {QStringLiteral("Forward=Scroll up (+Option=Zoom in)"), QStringLiteral("Forward=Zoom in (+Option=Scroll up)"),
            QStringLiteral("Forward=Zoom out (+Option=Scroll up)"), QStringLiteral("Does nothing")},
        &Settings::mouseWheelBehaviour, &Settings::setMouseWheelBehaviour);
    addNumber(QStringLiteral("Zoom wheel sensitivity:"),
        QStringLiteral("Set the amount to zoom in/out for each click of the mouse wheel."), 1, mostSensitive, QString(),
        &Settings::mouseWheelSensitivity, &Settings::setMouseWheelSensitivity);
}

void InterfacePage::addFont(const QString &label, const QString &tip, Getter<QFont> get, Setter<QFont> set)
{
    auto *row = new FontRow((Settings::current().*get)(), Settings::current().defaultFont());
    row->setToolTip(tip);
    addRow(label, row);
    remember([row] { return QVariant(row->chosenFont()); },
        [set](const QVariant &value) { (Settings::current().*set)(value.value<QFont>()); });
}
