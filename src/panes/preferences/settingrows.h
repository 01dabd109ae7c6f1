#pragma once

#include "settings/settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QSpinBox>
#include <QVector>
#include <QWidget>

#include <functional>

/// A page of rows, each a label and an editor of one setting. What is edited is stored by store() alone, and only what
/// differs from what was there, so that settings nobody touched keep following their defaults.
class SettingRows : public QWidget
{
    Q_OBJECT

public:
    explicit SettingRows(QWidget *parent = nullptr);

    /// Writes what was changed.
    void store();

protected:
    template<class Value>
    using Getter = Value (Settings::*)() const;
    template<class Value>
    using Setter = void (Settings::*)(const Value &);

    /// A choice of texts whose numbers are those of the enumeration, in their order unless `numbers` tells another.
    template<class Choice>
    QComboBox *addChoice(const QString &label, const QString &tip, const QStringList &texts, Getter<Choice> get,
        Setter<Choice> set, const QList<int> &numbers = QList<int>())
    {
        QComboBox *box = addCombo(label, tip, texts, numbers, static_cast<int>((Settings::current().*get)()));
        remember([box] { return QVariant(box->currentData()); },
            [set](const QVariant &value) { (Settings::current().*set)(static_cast<Choice>(value.toInt())); });
        return box;
    }
    QCheckBox *addFlag(const QString &text, const QString &tip, Getter<bool> get, Setter<bool> set);
    QSpinBox *addNumber(const QString &label, const QString &tip, int least, int most, const QString &suffix,
        Getter<int> get, Setter<int> set);
    QDoubleSpinBox *addReal(const QString &label, const QString &tip, double least, double most, const QString &suffix,
        Getter<double> get, Setter<double> set);
    /// A row with a widget of the page's own.
    void addRow(const QString &label, QWidget *widget);
    /// Keeps what an editor shows now, to store only another value.
    void remember(std::function<QVariant()> shown, std::function<void(const QVariant &)> write);

private:
    template<class Box, class Number>
    void addSpinBox(Box *box, const QString &label, const QString &tip, Number least, Number most,
        const QString &suffix, Getter<Number> get, Setter<Number> set);
    QComboBox *addCombo(
        const QString &label, const QString &tip, const QStringList &texts, const QList<int> &numbers, int chosen);

    struct Setting
    {
        std::function<QVariant()> shown;
        std::function<void(const QVariant &)> write;
        QVariant first;
    };

    QFormLayout *m_form;
    QVector<Setting> m_settings;
};
