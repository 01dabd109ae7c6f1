#pragma once

#include "graph/colors.h"

#include <QWidget>

class ColorButton;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QSpinBox;
class SchemePreview;

/// "Colors": the scheme of the canvas, and the colours of the custom one.
class ColorsPage : public QWidget
{
    Q_OBJECT

public:
    explicit ColorsPage(QWidget *parent = nullptr);

    void store();

private:
    QWidget *makeCustomGrid();
    QWidget *makeCopyRow();
    void addColor(QGridLayout &grid, int role, int row, int column, const QString &name);
    void addSingleColors(QGridLayout &grid, int row);
    void addNumbers(QGridLayout &grid, int row);
    void showCustom();
    void updatePreview();
    void onColorSchemeChanged();
    void onCustomSchemeColorChange(int role, const QColor &color);
    void onSetCustomButtonClicked();
    void onSelectedFromOSChanged(bool on);
    void onCustomNumberChanged();
    void chooseCustom();

    const ColorScheme m_first;
    CustomColors m_custom;
    QColor m_ownSelection; ///< what comes back when the system's colour isn't wanted any more
    QComboBox *m_scheme;
    QComboBox *m_source = nullptr;
    SchemePreview *m_preview;
    std::array<ColorButton *, Colors::RoleCount> m_buttons{};
    QCheckBox *m_fromSystem = nullptr;
    QSpinBox *m_gradient = nullptr;
    QDoubleSpinBox *m_thickness = nullptr;
};
