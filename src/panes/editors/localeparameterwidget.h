#pragma once

#include "panes/editors/parameterwidget.h"

#include <QLocale>
#include <QWidget>

class QPushButton;

/// Language and country, by which numbers and dates are read or written.
class LocaleParameterWidget : public QWidget, public ParameterWidget
{
    Q_OBJECT

public:
    LocaleParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

public slots:
    void onChanged();

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
    void userInteraction();

private:
    void choose();

    QPushButton *m_button;
    QLocale m_locale;
};
