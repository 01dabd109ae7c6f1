#include "panes/preferences/extensionspage.h"

#include "panes/widgets/faultlabel.h"
#include "panes/widgets/recordtablewidget.h"
#include "panes/widgets/recordtools.h"
#include "settings/filetypes.h"
#include "settings/settingsdefaults.h"

#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace {

/// In lower case, without the point that some would put before it.
QString extensionOf(const QVariant &typed)
{
    QString extension = typed.toString().trimmed().toLower();
    while (extension.startsWith(QLatin1Char('.'))) {
        extension.remove(0, 1);
    }
    return extension;
}

QString faultOf(const QString &extension)
{
    const bool isWrong = std::any_of(extension.begin(), extension.end(), [](QChar c) {
        return c.isSpace() || c == QLatin1Char('/') || c == QLatin1Char('\\') || c == QLatin1Char(',');
    });
    return extension.isEmpty() ? QStringLiteral("The extension is empty")
           : isWrong           ? QStringLiteral("'%1' can't be an extension").arg(extension)
                               : QString();
}

} // namespace

ExtensionsPage::ExtensionsPage(Side side, QWidget *parent)
    : QWidget(parent)
    , m_side(side)
    , m_types(side == Input ? FileType::inputTypes() : FileType::outputTypes())
    , m_table(new RecordTableWidget)
    , m_fault(new FaultLabel)
{
    RecordField extension;
    extension.title = QStringLiteral("Extension");
    extension.fault = [](const QVariantList &record) { return faultOf(extensionOf(record.first())); };
    RecordField type;
    type.title = QStringLiteral("Type");
    type.kind = RecordField::Choice;
    for (const int number : m_types) {
        type.choices.append(FileType::label(number));
    }
    m_table->setFields({extension, type}, {QString(), 0});
    m_table->setMovable(false);
    m_table->setDragDropMode(QAbstractItemView::NoDragDrop);
    m_table->setAccessibleName(
        side == Input ? QStringLiteral("Input extensions") : QStringLiteral("Output extensions"));
    m_table->setEmptyText(QStringLiteral("Add the extensions of files"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeTools());
    layout->addWidget(m_table, 1);
    layout->addWidget(m_fault);
    layout->addWidget(makeBlocked());
    connect(m_table, &RecordTableWidget::edited, this, &ExtensionsPage::onEdited);
    const Settings &settings = Settings::current();
    showTypes(side == Input ? settings.inputFileExtensions() : settings.outputFileExtensions());
    m_first = types();
}

QWidget *ExtensionsPage::makeTools()
{
    const QString word = m_side == Input ? QStringLiteral("input") : QStringLiteral("output");
    auto *tools = new RecordTools;
    connect(tools->add(QStringLiteral("list-add"), QStringLiteral("Add"),
                QStringLiteral("Add a new %1 file extension.").arg(word)),
        &QToolButton::clicked, m_table, &RecordTableWidget::addRecord);
    connect(tools->add(QStringLiteral("list-remove"), QStringLiteral("Remove"),
                QStringLiteral("Remove the selected %1 file extensions.").arg(word)),
        &QToolButton::clicked, m_table, &RecordTableWidget::removeSelected);
    connect(tools->add(QStringLiteral("edit-undo"), QStringLiteral("Default"),
                QStringLiteral("Set the %1 file extensions back to the default.").arg(word)),
        &QToolButton::clicked, this, [this] {
            showTypes(m_side == Input ? SettingsDefaults::inputExtensions() : SettingsDefaults::outputExtensions());
            onEdited();
        });
    return tools;
}

QWidget *ExtensionsPage::makeBlocked()
{
    const Settings &settings = Settings::current();
    m_firstBlocked = m_side == Input ? settings.blockedInputExtensions() : settings.blockedOutputExtensions();
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *label = new QLabel(m_side == Input ? QStringLiteral("Block input from files with extensions:")
                                             : QStringLiteral("Block output to files with extensions:"));
    m_blocked = new QLineEdit(m_firstBlocked);
    m_blocked->setToolTip(QStringLiteral("Extensions parted by commas."));
    m_blocked->setAccessibleName(label->text());
    m_blocked->setCursorPosition(0);
    label->setBuddy(m_blocked);
    layout->addWidget(label);
    layout->addWidget(m_blocked);
    return box;
}

void ExtensionsPage::showTypes(const SettingsExtensions &types)
{
    QVector<RecordTableWidget::Record> records;
    for (auto type = types.begin(); type != types.end(); ++type) {
        records.append({type.key(), qMax(0, m_types.indexOf(type.value()))});
    }
    m_table->setRecords(records);
    onEdited();
}

SettingsExtensions ExtensionsPage::types() const
{
    SettingsExtensions types;
    for (const RecordTableWidget::Record &record : m_table->records()) {
        const QString extension = extensionOf(record.first());
        if (faultOf(extension).isEmpty()) {
            types.insert(extension, m_types.value(record.at(1).toInt()));
        }
    }
    return types;
}

void ExtensionsPage::onEdited()
{
    QStringList faults;
    QSet<QString> seen;
    for (const RecordTableWidget::Record &record : m_table->records()) {
        const QString extension = extensionOf(record.first());
        const QString fault = faultOf(extension);
        if (!fault.isEmpty()) {
            faults.append(fault);
        } else if (seen.contains(extension)) {
            faults.append(QStringLiteral("'%1' is there twice; the lower one counts").arg(extension));
        }
        seen.insert(extension);
    }
    faults.removeDuplicates();
    m_fault->setFaults(faults);
}

int ExtensionsPage::firstFaultyRow() const
{
    const QVector<RecordTableWidget::Record> records = m_table->records();
    // A row in which nothing was typed loses nothing.
    const auto found = std::find_if(records.begin(), records.end(), [](const RecordTableWidget::Record &record) {
        const QString extension = extensionOf(record.first());
        return !extension.isEmpty() && !faultOf(extension).isEmpty();
    });
    return found == records.end() ? -1 : static_cast<int>(found - records.begin());
}

bool ExtensionsPage::hasFaults() const
{
    return firstFaultyRow() >= 0;
}

void ExtensionsPage::showFault()
{
    m_table->setFocus();
    m_table->setCurrentCell(firstFaultyRow(), 0);
}

void ExtensionsPage::store()
{
    Settings &settings = Settings::current();
    if (types() != m_first) {
        m_side == Input ? settings.setInputFileExtensions(types()) : settings.setOutputFileExtensions(types());
    }
    if (m_blocked->text() != m_firstBlocked) {
        m_side == Input ? settings.setBlockedInputExtensions(m_blocked->text())
                        : settings.setBlockedOutputExtensions(m_blocked->text());
    }
}
