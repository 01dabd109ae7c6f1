#include "panes/editors/replacetermsparameterwidget.h"

#include "panes/dialogs/prompts.h"
#include "panes/editors/replacetablewidget.h"
#include "panes/widgets/delimitedlines.h"
#include "panes/widgets/recordtools.h"
#include "settings/settings.h"
#include "transforms/options/parameter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QToolButton>

namespace {

const QString &fileFilter()
{
    static const QString filter = QStringLiteral("Comma separated (*.csv);;All files (*)");
    return filter;
}

} // namespace

ReplaceTermsParameterWidget::ReplaceTermsParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : RecordParameterWidget(parameter, node, *new ReplaceTableWidget, parent)
{
    addEditButtons(QStringLiteral("Add a replace term. (%1)"), QStringLiteral("Remove selected replace term(s). (%1)"));
    addMoveButtons(
        QStringLiteral("Move selected replace term(s) up."), QStringLiteral("Move selected replace term(s) down."));
    addClipboardButtons(QStringLiteral("Copy replacement terms to the clipboard."),
        QStringLiteral("Paste in replacement terms from the clipboard. Click the ? button for details."));
    addFileButtons();
    connect(tools().add(QStringLiteral("edit-delete"), QStringLiteral("Remove all"),
                QStringLiteral("Remove all replacement term(s).")),
        &QToolButton::clicked, &table(), &RecordTableWidget::removeAll);
    ReplaceTermsParameterWidget::refresh();
}

void ReplaceTermsParameterWidget::addFileButtons()
{
    connect(tools().add(QStringLiteral("document-import"), QStringLiteral("Import"),
                QStringLiteral("Add replacement terms from a .csv file.")),
        &QToolButton::clicked, this, &ReplaceTermsParameterWidget::importTerms);
    connect(tools().add(QStringLiteral("document-export"), QStringLiteral("Export"),
                QStringLiteral("Write the replacement terms to a .csv file.")),
        &QToolButton::clicked, this, &ReplaceTermsParameterWidget::exportTerms);
}

void ReplaceTermsParameterWidget::refresh()
{
    QVector<RecordTableWidget::Record> records;
    for (const ReplaceTerm &term : parameter()->toReplaceTerms()) {
        records.append(ReplaceTableWidget::recordOf(term));
    }
    table().setRecords(records);
    onRefreshed();
}

QVariant ReplaceTermsParameterWidget::value() const
{
    QList<ReplaceTerm> terms;
    for (const RecordTableWidget::Record &record : table().records()) {
        terms.append(ReplaceTableWidget::termOf(record));
    }
    return terms == parameter()->toReplaceTerms() ? parameter()->value() : QVariant::fromValue(terms);
}

void ReplaceTermsParameterWidget::importTerms()
{
    Prompts prompts(window());
    Settings &settings = Settings::current();
    const QString path = prompts.openFile(
        {QStringLiteral("Import replacement terms"), settings.lastDataDir(), fileFilter(), false});
    if (path.isEmpty()) {
        return;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        prompts.warning(QStringLiteral("Unable to read '%1'.").arg(QDir::toNativeSeparators(path)));
        return;
    }
    settings.setLastDataDir(QFileInfo(path).absolutePath());
    table().appendLines(DelimitedLines::fromCsv(file));
}

void ReplaceTermsParameterWidget::exportTerms()
{
    Prompts prompts(window());
    Settings &settings = Settings::current();
    const QString start = QDir(settings.lastOutputDataDir()).filePath(QStringLiteral("replacements.csv"));
    const QString path = prompts.saveFile({QStringLiteral("Export replacement terms"), start, fileFilter(), true});
    if (path.isEmpty()) {
        return;
    }
    QSaveFile file(path);
    const QByteArray bytes = DelimitedLines::toCsv(table().shownTexts()).toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        prompts.warning(QStringLiteral("Unable to write to '%1'.").arg(QDir::toNativeSeparators(path)));
        return;
    }
    settings.setLastOutputDataDir(QFileInfo(path).absolutePath());
}
