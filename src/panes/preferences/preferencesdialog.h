#pragma once

#include <QDialog>

class ColorsPage;
class DatesPage;
class ExtensionsPage;
class GeneralPage;
class InterfacePage;
class Prompts;
class QTabWidget;
struct PreferencesStore;

/// "Preferences": all settings that a person may change, on tabs. OK stores them, Cancel none.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    PreferencesDialog(const PreferencesStore &store, Prompts &prompts, QWidget *parent = nullptr);

    void accept() override;

private:
    /// Shows the tab with an extension that can't be stored; false where there is none.
    bool showFault();

    QTabWidget *m_tabs;
    GeneralPage *m_general;
    InterfacePage *m_interface;
    DatesPage *m_dates;
    ExtensionsPage *m_inputs;
    ExtensionsPage *m_outputs;
    ColorsPage *m_colors;
};
