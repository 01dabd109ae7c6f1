#include "panes/preferences/settingrows.h"

#include <QLabel>

SettingRows::SettingRows(QWidget *parent)
    : QWidget(parent)
    , m_form(new QFormLayout(this))
{
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_form->setHorizontalSpacing(12);
}

void SettingRows::remember(std::function<QVariant()> shown, std::function<void(const QVariant &)> write)
{
    const QVariant first = shown();
    m_settings.append({std::move(shown), std::move(write), first});
}

void SettingRows::store()
{
    for (Setting &setting : m_settings) {
        const QVariant now = setting.shown();
        if (now != setting.first) {
            setting.write(now);
            setting.first = now;
        }
    }
}

void SettingRows::addRow(const QString &label, QWidget *widget)
{
    m_form->addRow(label, widget);
    if (auto *caption = qobject_cast<QLabel *>(m_form->labelForField(widget))) {
        caption->setToolTip(widget->toolTip());
    }
    if (widget->accessibleName().isEmpty()) {
        widget->setAccessibleName(label);
    }
}

QComboBox *SettingRows::addCombo(
    const QString &label, const QString &tip, const QStringList &texts, const QList<int> &numbers, int chosen)
{
    auto *box = new QComboBox;
    for (int i = 0; i < texts.size(); ++i) {
        box->addItem(texts.at(i), numbers.isEmpty() ? i : numbers.at(i));
    }
    box->setCurrentIndex(qMax(0, box->findData(chosen)));
    box->setToolTip(tip);
    addRow(label, box);
    return box;
}

QCheckBox *SettingRows::addFlag(const QString &text, const QString &tip, Getter<bool> get, Setter<bool> set)
{
    auto *box = new QCheckBox(text);
    box->setToolTip(tip);
    box->setChecked((Settings::current().*get)());
    m_form->addRow(QString(), box);
    remember([box] { return QVariant(box->isChecked()); },
        [set](const QVariant &value) { (Settings::current().*set)(value.toBool()); });
    return box;
}

template<class Box, class Number>
void SettingRows::addSpinBox(Box *box, const QString &label, const QString &tip, Number least, Number most,
    const QString &suffix, Getter<Number> get, Setter<Number> set)
{
    box->setRange(least, most);
    box->setSuffix(suffix);
    box->setToolTip(tip);
    box->setValue((Settings::current().*get)());
    box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    addRow(label, box);
    remember([box] { return QVariant(box->value()); },
        [set](const QVariant &value) { (Settings::current().*set)(value.value<Number>()); });
}

QSpinBox *SettingRows::addNumber(const QString &label, const QString &tip, int least, int most, const QString &suffix,
    Getter<int> get, Setter<int> set)
{
    auto *box = new QSpinBox;
    addSpinBox(box, label, tip, least, most, suffix, get, set);
    return box;
}

QDoubleSpinBox *SettingRows::addReal(const QString &label, const QString &tip, double least, double most,
    const QString &suffix, Getter<double> get, Setter<double> set)
{
    constexpr double step = 0.5;
    auto *box = new QDoubleSpinBox;
    box->setDecimals(1);
    box->setSingleStep(step);
    addSpinBox(box, label, tip, least, most, suffix, get, set);
    return box;
}
