#pragma once

#include "panes/preferences/settingrows.h"

class QPushButton;

/// "User Interface": theme, tool bar, delay, wheel, fonts and habits of the canvas.
class InterfacePage : public SettingRows
{
    Q_OBJECT

public:
    explicit InterfacePage(QWidget *parent = nullptr);

private:
    void addWheel();
    void addFont(const QString &label, const QString &tip, Getter<QFont> get, Setter<QFont> set);
};
