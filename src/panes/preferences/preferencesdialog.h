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

    /// The page of the help about this window.
    static QString helpPage();
    void accept() override;

signals:
    void helpRequested(const QString &page);

private:
    GeneralPage *m_general;
    InterfacePage *m_interface;
    DatesPage *m_dates;
    ExtensionsPage *m_inputs;
    ExtensionsPage *m_outputs;
    ColorsPage *m_colors;
};
