#include "app/logwidget.h"

#include "outputs/filenamevariables.h"
#include "panes/dialogs/prompts.h"

#include <QCheckBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

LogWidget::LogWidget(Prompts &prompts, QWidget *parent)
    : QWidget(parent)
    , m_prompts(prompts)
    , m_logging(new QCheckBox(QStringLiteral("&Log to:")))
    , m_path(new QLineEdit)
    , m_browse(new QPushButton(QStringLiteral("Browse...")))
    , m_overwrite(new QCheckBox(QStringLiteral("&overwrite")))
{
    m_path->setAccessibleName(QStringLiteral("Log file"));
    m_path->setToolTip(QStringLiteral("Where the report is written to. It may hold the variables %1.")
                           .arg(FileNameVariables::names().join(QStringLiteral(", "))));
    m_overwrite->setToolTip(QStringLiteral("Check to begin the log file anew with each run."));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_logging, m_path, m_browse, m_overwrite}) {
        layout->addWidget(widget);
    }
    connect(m_logging, &QCheckBox::toggled, this, &LogWidget::onChanged);
    connect(m_path, &QLineEdit::textChanged, this, &LogWidget::onChanged);
    connect(m_overwrite, &QCheckBox::toggled, this, &LogWidget::onChanged);
    connect(m_browse, &QPushButton::clicked, this, &LogWidget::onBrowse);
    onChanged();
}

bool LogWidget::isLogging() const
{
    return m_logging->isChecked();
}

QString LogWidget::path() const
{
    return m_path->text();
}

bool LogWidget::overwrites() const
{
    return m_overwrite->isChecked();
}

void LogWidget::setValues(bool isLogging, const QString &path, bool overwrites)
{
    const QSignalBlocker blocker(this);
    m_logging->setChecked(isLogging);
    m_path->setText(path);
    m_overwrite->setChecked(overwrites);
}

void LogWidget::onChanged()
{
    for (QWidget *widget : std::initializer_list<QWidget *>{m_path, m_browse, m_overwrite}) {
        widget->setEnabled(m_logging->isChecked());
    }
    emit changed();
}

void LogWidget::onBrowse()
{
    const QString path = m_prompts.saveFile(
        {QStringLiteral("Log file"), m_path->text(), QStringLiteral("Log files (*.log);;All Files (*)"), false});
    if (!path.isEmpty()) {
        m_path->setText(QDir::toNativeSeparators(path));
    }
}
