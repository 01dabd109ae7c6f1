#pragma once

#include "settings/choices.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>

struct CustomColors;

/// The colours of the canvas by role and scheme.
class Colors
{
public:
    enum Role {
        Selection,
        Background,
        Arrow,
        InputBox,
        InputBorder,
        InputText,
        TransformBox,
        TransformBorder,
        TransformText,
        OutputBox,
        OutputBorder,
        OutputText,
        NoteBorder,
        NoteText,
        Shadow,
        RoleCount
    };

    static constexpr int schemeCount = lastChoice<ColorScheme> + 1;

    /// The colours of ColorScheme::Custom are those of the settings.
    explicit Colors(ColorScheme scheme = ColorScheme::Modern);
    /// The scheme that the settings name, read anew by each reload().
    static Colors &current();
    /// Reads scheme and custom colours from the settings again.
    void reload();
    /// For a preview: shows `scheme`, with these in the place of the custom colours of the settings.
    void show(ColorScheme scheme, const CustomColors &custom);

    ColorScheme scheme() const { return m_scheme; }
    /// Invalid where the role takes no colour of its own.
    QColor color(Role role) const;
    QColor color(int role, ColorScheme scheme) const;
    double connectionThickness() const;
    int gradientEffect() const;

    /// "selection", "background" and so on.
    static QString roleName(int role);
    static QStringList schemeNames();

private:
    ColorScheme m_scheme;
    std::shared_ptr<const CustomColors> m_custom; ///< null for those of the settings
};

/// What a person's own scheme is made of.
struct CustomColors
{
    std::array<QColor, Colors::RoleCount> colors;
    double connectionThickness = 2.0;
    int gradientEffect = 0;

    static CustomColors ofScheme(ColorScheme scheme);
    /// Writes what differs from the settings.
    void store() const;
};
