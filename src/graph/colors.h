#pragma once

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
    enum Scheme {
        Custom = 0,
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
        SchemeCount
    };

    /// `scheme` outside the table reads as Custom, whose colours are those of the settings.
    explicit Colors(int scheme = Modern);
    /// The scheme that the settings name, read anew by each reload().
    static Colors &current();
    /// Reads scheme and custom colours from the settings again.
    void reload();

    int scheme() const { return m_scheme; }
    /// Invalid where the role takes no colour of its own.
    QColor color(Role role) const;
    QColor color(int role, int scheme) const;
    double connectionThickness() const;
    int gradientEffect() const;

    /// "selection", "background" and so on.
    static QString roleName(int role);
    static QStringList schemeNames();

private:
    int m_scheme;
};
