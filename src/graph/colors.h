#pragma once

#include "settings/choices.h"

#include <QColor>
#include <QString>
#include <QStringList>

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
};
