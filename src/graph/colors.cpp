#include "graph/colors.h"

#include "settings/settings.h"

#include <array>

namespace {

constexpr int none = -1;

constexpr int rgb(int red, int green, int blue)
{
    return red << 16 | green << 8 | blue;
}

/// One row of the table of schemes.
struct SchemeRow
{
    const char *name;
    int selection;
    int background;
    int arrow;
    int inputBox;
    int inputBorder;
    int transformBox;
    int transformBorder;
    int outputBox;
    int outputBorder;
    int boxText;
    int noteBorder;
    int noteText;
    int shadow;
    double connectionThickness;
    int gradientEffect;
};

// clang-format off
constexpr SchemeRow dark{"Dark", none, rgb(29, 30, 30), rgb(127, 127, 127), rgb(51, 51, 54), rgb(170, 0, 127),
    rgb(51, 51, 54), rgb(85, 170, 255), rgb(51, 51, 54), rgb(0, 170, 0), rgb(210, 210, 210), rgb(29, 30, 30),
    rgb(29, 30, 30), rgb(0, 0, 0), 4, 0};

constexpr SchemeRow obsidian()
{
    SchemeRow row = dark;
    row.name = "Obsidian";
    row.gradientEffect = 9;
    return row;
}

// The first row only gives the custom scheme its name.
constexpr std::array<SchemeRow, Colors::schemeCount> schemes{{
    {"Custom", none, none, none, none, none, none, none, none, none, none, none, none, none, 2, 0},
    {"Modern", none, rgb(251, 251, 251), rgb(90, 90, 90), rgb(255, 224, 234), rgb(192, 192, 192),
        rgb(214, 234, 255), rgb(192, 192, 192), rgb(214, 255, 234), rgb(192, 192, 192), rgb(60, 60, 60),
        rgb(192, 192, 192), rgb(60, 60, 60), rgb(160, 160, 160), 2, 0},
    {"Original", none, rgb(255, 255, 255), rgb(20, 20, 20), rgb(255, 224, 234), rgb(128, 128, 128),
        rgb(214, 234, 255), rgb(128, 128, 128), rgb(214, 255, 234), rgb(128, 128, 128), rgb(50, 50, 50),
        rgb(128, 128, 128), rgb(50, 50, 50), rgb(63, 63, 63), 2, 0},
    {"Candy", none, rgb(241, 247, 252), rgb(136, 136, 136), rgb(248, 212, 248), rgb(255, 0, 255),
        rgb(216, 239, 255), rgb(0, 170, 255), rgb(202, 240, 236), rgb(0, 210, 0), rgb(60, 60, 60),
        none, rgb(60, 60, 60), none, 2, 0},
    {"The Blues", none, rgb(32, 54, 78), rgb(92, 118, 141), rgb(53, 74, 103), rgb(170, 0, 127),
        rgb(53, 74, 103), rgb(85, 170, 255), rgb(53, 74, 103), rgb(0, 170, 0), rgb(210, 210, 210),
        rgb(32, 54, 78), rgb(32, 54, 78), rgb(0, 0, 0), 4, 0},
    {"Vivid", none, rgb(44, 44, 44), rgb(212, 212, 212), rgb(171, 53, 141), rgb(171, 53, 141),
        rgb(0, 118, 191), rgb(0, 118, 191), rgb(5, 140, 113), rgb(5, 140, 113), rgb(220, 220, 220),
        rgb(44, 44, 44), rgb(50, 50, 50), none, 2, 0},
    {"Hotblack", none, rgb(23, 24, 25), rgb(192, 192, 192), rgb(23, 24, 25), rgb(244, 0, 46),
        rgb(23, 24, 25), rgb(0, 108, 255), rgb(23, 24, 25), rgb(8, 161, 70), rgb(220, 220, 220),
        rgb(23, 24, 25), rgb(23, 24, 25), none, 2, 0},
    dark,
    {"Quartzite", rgb(246, 161, 2), rgb(65, 66, 65), rgb(221, 221, 221), rgb(122, 58, 122), rgb(122, 58, 122),
        rgb(49, 95, 169), rgb(49, 95, 169), rgb(16, 98, 27), rgb(16, 98, 27), rgb(255, 255, 255),
        rgb(65, 66, 65), rgb(0, 0, 0), rgb(0, 0, 0), 2, 5},
    obsidian(),
    {"Sapphire", rgb(246, 161, 2), rgb(32, 54, 88), rgb(140, 167, 190), rgb(53, 74, 125), rgb(170, 0, 127),
        rgb(53, 74, 125), rgb(85, 170, 255), rgb(53, 74, 125), rgb(0, 170, 0), rgb(210, 210, 210),
        rgb(32, 54, 88), rgb(32, 54, 88), rgb(0, 0, 0), 4, 6},
}};

constexpr std::array<const char *, Colors::RoleCount> roleNames{"selection", "background", "arrow", "input_box",
    "input_border", "input_text", "transform_box", "transform_border", "transform_text", "output_box", "output_border",
    "output_text", "note_border", "note_text", "shadow"};

constexpr std::array<int SchemeRow::*, Colors::RoleCount> roleFields{&SchemeRow::selection, &SchemeRow::background,
    &SchemeRow::arrow, &SchemeRow::inputBox, &SchemeRow::inputBorder, &SchemeRow::boxText, &SchemeRow::transformBox,
    &SchemeRow::transformBorder, &SchemeRow::boxText, &SchemeRow::outputBox, &SchemeRow::outputBorder,
    &SchemeRow::boxText, &SchemeRow::noteBorder, &SchemeRow::noteText, &SchemeRow::shadow};
// clang-format on

const SchemeRow &rowOf(ColorScheme scheme)
{
    return schemes[static_cast<size_t>(scheme)];
}

} // namespace

Colors::Colors(ColorScheme scheme)
    : m_scheme(scheme)
{
}

Colors &Colors::current()
{
    static Colors colors(Settings::current().colorScheme());
    return colors;
}

void Colors::reload()
{
    m_scheme = Settings::current().colorScheme();
}

void Colors::show(ColorScheme scheme, const CustomColors &custom)
{
    m_scheme = scheme;
    m_custom = std::make_shared<const CustomColors>(custom);
}

QColor Colors::color(Role role) const
{
    return color(role, m_scheme);
}

QColor Colors::color(int role, ColorScheme scheme) const
{
    if (role < 0 || role >= RoleCount) {
        return QColor();
    }
    if (scheme == ColorScheme::Custom && m_custom) {
        return m_custom->colors[static_cast<size_t>(role)];
    }
    if (scheme == ColorScheme::Custom) {
        return Settings::current().customColor(role, color(role, ColorScheme::Modern));
    }
    const int value = rowOf(scheme).*roleFields[static_cast<size_t>(role)];
    return value == none ? QColor() : QColor(static_cast<QRgb>(value) | 0xFF000000U);
}

double Colors::connectionThickness() const
{
    if (m_scheme == ColorScheme::Custom && m_custom) {
        return m_custom->connectionThickness;
    }
    return m_scheme == ColorScheme::Custom ? Settings::current().customConnectionThickness()
                                           : rowOf(m_scheme).connectionThickness;
}

int Colors::gradientEffect() const
{
    if (m_scheme == ColorScheme::Custom && m_custom) {
        return m_custom->gradientEffect;
    }
    return m_scheme == ColorScheme::Custom ? Settings::current().customGradientEffect()
                                           : rowOf(m_scheme).gradientEffect;
}

QString Colors::roleName(int role)
{
    return role < 0 || role >= RoleCount ? QString() : QString::fromLatin1(roleNames[static_cast<size_t>(role)]);
}

QStringList Colors::schemeNames()
{
    QStringList names;
    for (const SchemeRow &row : schemes) {
        names.append(QString::fromLatin1(row.name));
    }
    return names;
}

CustomColors CustomColors::ofScheme(ColorScheme scheme)
{
    const Colors colors(scheme);
    CustomColors custom;
    for (int role = 0; role < Colors::RoleCount; ++role) {
        custom.colors[static_cast<size_t>(role)] = colors.color(role, scheme);
    }
    custom.connectionThickness = colors.connectionThickness();
    custom.gradientEffect = colors.gradientEffect();
    return custom;
}

void CustomColors::store() const
{
    const CustomColors before = ofScheme(ColorScheme::Custom);
    Settings &settings = Settings::current();
    for (size_t role = 0; role < colors.size(); ++role) {
        if (colors[role] != before.colors[role]) {
            settings.setCustomColor(static_cast<int>(role), colors[role]);
        }
    }
    if (!qFuzzyCompare(connectionThickness, before.connectionThickness)) {
        settings.setCustomConnectionThickness(connectionThickness);
    }
    if (gradientEffect != before.gradientEffect) {
        settings.setCustomGradientEffect(gradientEffect);
    }
}
