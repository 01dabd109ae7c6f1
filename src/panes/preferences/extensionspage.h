#pragma once

#include "settings/settings.h"

#include <QWidget>

class FaultLabel;
class QLineEdit;
class RecordTableWidget;

/// "Input Extensions" or "Output Extensions": which type a file has by its extension, and what is blocked.
class ExtensionsPage : public QWidget
{
    Q_OBJECT

public:
    enum Side { Input, Output };
    explicit ExtensionsPage(Side side, QWidget *parent = nullptr);

    /// Whether a typed extension can't be one; it would be lost by store().
    bool hasFaults() const;
    /// Puts the keyboard where the first fault is.
    void showFault();
    void store();

private:
    QWidget *makeTools();
    QWidget *makeBlocked();
    void showTypes(const SettingsExtensions &types);
    SettingsExtensions types() const;
    int firstFaultyRow() const;
    void onEdited();

    const Side m_side;
    const QList<int> m_types; ///< in the order of the choices
    SettingsExtensions m_first;
    QString m_firstBlocked;
    RecordTableWidget *m_table;
    FaultLabel *m_fault;
    QLineEdit *m_blocked = nullptr;
};
