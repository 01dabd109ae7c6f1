#include "panes/preferences/colorspage.h"

#include "panes/preferences/schemepreview.h"
#include "panes/widgets/colorbutton.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

constexpr int noRole = -1;
constexpr int mostGradient = 10;
constexpr double leastThickness = 0.5;
constexpr double mostThickness = 10.0;

} // namespace

ColorsPage::ColorsPage(QWidget *parent)
    : QWidget(parent)
    , m_first(Settings::current().colorScheme())
    , m_custom(CustomColors::ofScheme(ColorScheme::Custom))
    , m_ownSelection(m_custom.colors[Colors::Selection])
    , m_scheme(new QComboBox)
    , m_preview(new SchemePreview)
{
    m_scheme->addItems(Colors::schemeNames());
    m_scheme->setCurrentIndex(static_cast<int>(m_first));
    m_scheme->setAccessibleName(QStringLiteral("Color scheme:"));
    auto *label = new QLabel(m_scheme->accessibleName());
    label->setBuddy(m_scheme);
    auto *top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(m_scheme);
    top->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_preview, 1);
    layout->addWidget(makeCopyRow());
    layout->addWidget(makeCustomGrid());
    connect(m_scheme, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ColorsPage::onColorSchemeChanged);
    showCustom();
}

QWidget *ColorsPage::makeCopyRow()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *copy = new QPushButton(QStringLiteral("<< Set Custom To"));
    copy->setAutoDefault(false);
    copy->setToolTip(QStringLiteral("Copy the colors of this scheme into the custom scheme."));
    m_source = new QComboBox;
    m_source->addItems(Colors::schemeNames().mid(1));
    m_source->setAccessibleName(QStringLiteral("Set Custom To"));
    layout->addWidget(copy);
    layout->addWidget(m_source);
    layout->addStretch(1);
    connect(copy, &QPushButton::clicked, this, &ColorsPage::onSetCustomButtonClicked);
    return row;
}

QWidget *ColorsPage::makeCustomGrid()
{
    struct Row
    {
        const char *label;
        int fill;
        int border;
        int text;
    };
    const Row rows[] = {{"Inputs:", Colors::InputBox, Colors::InputBorder, Colors::InputText},
        {"Transforms:", Colors::TransformBox, Colors::TransformBorder, Colors::TransformText},
        {"Outputs:", Colors::OutputBox, Colors::OutputBorder, Colors::OutputText},
        {"Notes:", noRole, Colors::NoteBorder, Colors::NoteText}};
    auto *box = new QWidget;
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    const char *titles[] = {"Fill", "Border", "Text"};
    for (int column = 0; column < 3; ++column) {
        grid->addWidget(new QLabel(QLatin1String(titles[column])), 0, column + 1);
    }
    int line = 1;
    for (const Row &row : rows) {
        grid->addWidget(new QLabel(QLatin1String(row.label)), line, 0);
        const int roles[] = {row.fill, row.border, row.text};
        for (int column = 0; column < 3; ++column) {
            if (roles[column] != noRole) {
                addColor(*grid, roles[column], line, column + 1,
                    QLatin1String(row.label) + QLatin1Char(' ') + QLatin1String(titles[column]));
            }
        }
        ++line;
    }
    constexpr int gap = 24;
    grid->setColumnMinimumWidth(4, gap);
    addSingleColors(*grid, 0);
    addNumbers(*grid, 4);
    grid->setColumnStretch(8, 1);
    return box;
}

void ColorsPage::addColor(QGridLayout &grid, int role, int row, int column, const QString &name)
{
    auto *button = new ColorButton;
    button->setAccessibleName(name);
    button->setToolTip(name);
    m_buttons[static_cast<size_t>(role)] = button;
    grid.addWidget(button, row, column);
    connect(button, &ColorButton::colorChosen, this,
        [this, role](const QColor &color) { onCustomSchemeColorChange(role, color); });
}

void ColorsPage::addSingleColors(QGridLayout &grid, int row)
{
    const QPair<const char *, int> singles[] = {{"Background:", Colors::Background}, {"Connections:", Colors::Arrow},
        {"Selection:", Colors::Selection}, {"Shadows:", Colors::Shadow}};
    for (const auto &single : singles) {
        auto *label = new QLabel(QLatin1String(single.first));
        grid.addWidget(label, row, 5);
        addColor(grid, single.second, row, 6, label->text());
        label->setBuddy(m_buttons[static_cast<size_t>(single.second)]);
        if (single.second == Colors::Selection) {
            m_fromSystem = new QCheckBox(QStringLiteral("from operating system"));
            m_fromSystem->setToolTip(QStringLiteral("Check to mark selected items in the color of your desktop."));
            grid.addWidget(m_fromSystem, row, 7);
            connect(m_fromSystem, &QCheckBox::clicked, this, &ColorsPage::onSelectedFromOSChanged);
        }
        ++row;
    }
}

void ColorsPage::addNumbers(QGridLayout &grid, int row)
{
    m_gradient = new QSpinBox;
    m_gradient->setRange(0, mostGradient);
    m_gradient->setAccessibleName(QStringLiteral("Gradient effect:"));
    m_thickness = new QDoubleSpinBox;
    m_thickness->setRange(leastThickness, mostThickness);
    m_thickness->setSingleStep(leastThickness);
    m_thickness->setDecimals(1);
    m_thickness->setAccessibleName(QStringLiteral("Thickness:"));
    m_thickness->setToolTip(QStringLiteral("The thickness of connections."));
    for (QWidget *box : {static_cast<QWidget *>(m_gradient), static_cast<QWidget *>(m_thickness)}) {
        auto *label = new QLabel(box->accessibleName());
        label->setBuddy(box);
        grid.addWidget(label, row, 5);
        grid.addWidget(box, row, 6, 1, 2, Qt::AlignLeft);
        ++row;
    }
    connect(m_gradient, QOverload<int>::of(&QSpinBox::valueChanged), this, &ColorsPage::onCustomNumberChanged);
    connect(
        m_thickness, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &ColorsPage::onCustomNumberChanged);
}

void ColorsPage::showCustom()
{
    for (size_t role = 0; role < m_buttons.size(); ++role) {
        m_buttons[role]->setColor(m_custom.colors[role]);
    }
    const bool fromSystem = !m_custom.colors[Colors::Selection].isValid();
    m_fromSystem->setChecked(fromSystem);
    m_buttons[Colors::Selection]->setEnabled(!fromSystem);
    const QSignalBlocker gradient(m_gradient);
    const QSignalBlocker thickness(m_thickness);
    m_gradient->setValue(m_custom.gradientEffect);
    m_thickness->setValue(m_custom.connectionThickness);
    updatePreview();
}

void ColorsPage::updatePreview()
{
    m_preview->setColors(static_cast<ColorScheme>(m_scheme->currentIndex()), m_custom);
}

void ColorsPage::onColorSchemeChanged()
{
    updatePreview();
}

void ColorsPage::chooseCustom()
{
    m_scheme->setCurrentIndex(static_cast<int>(ColorScheme::Custom));
    showCustom();
}

void ColorsPage::onCustomSchemeColorChange(int role, const QColor &color)
{
    m_custom.colors[static_cast<size_t>(role)] = color;
    chooseCustom();
}

void ColorsPage::onSetCustomButtonClicked()
{
    m_custom = CustomColors::ofScheme(static_cast<ColorScheme>(m_source->currentIndex() + 1));
    chooseCustom();
}

void ColorsPage::onSelectedFromOSChanged(bool on)
{
    QColor &selection = m_custom.colors[Colors::Selection];
    if (on) {
        m_ownSelection = selection;
        selection = QColor();
    } else {
        selection = m_ownSelection.isValid() ? m_ownSelection : palette().color(QPalette::Highlight);
    }
    chooseCustom();
}

void ColorsPage::onCustomNumberChanged()
{
    m_custom.gradientEffect = m_gradient->value();
    m_custom.connectionThickness = m_thickness->value();
    chooseCustom();
}

void ColorsPage::store()
{
    m_custom.store();
    const auto scheme = static_cast<ColorScheme>(m_scheme->currentIndex());
    if (scheme != m_first) {
        Settings::current().setColorScheme(scheme);
    }
}
