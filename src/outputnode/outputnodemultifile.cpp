#include "data/values.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "outputnode/filenamecontext.h"
#include "outputnode/outputnode.h"
#include "outputs/multifilesummary.h"
#include "outputs/multifiletargets.h"

#include <QFile>

bool OutputNode::writeMultipleFiles()
{
    if (m_options.writeMode == WriteMode::Disabled) {
        return false;
    }
    const ColumnIndex files = m_dataset.columnIndexOfId(m_columns.multiFileColumn());
    if (!files.isValid()) {
        m_warnings.append(QStringLiteral("No column set for 'Files column'"));
        return true;
    }
    const QString documentPath = graphScene() ? graphScene()->documentPath() : QString();
    const MultiFileTargets plan = MultiFileTargets::of(m_dataset.column(files), documentPath, m_warnings);
    const bool confirmed = plan.targets.empty() || !m_options.confirmMultiFile || confirm(plan);
    const int count = confirmed ? writeTargets(plan, files) : 0;
    if (plan.warningsCapped) {
        m_warnings.append(QStringLiteral("\n...etc"));
    }
    if (count > 0) {
        m_infos.append(QStringLiteral("%1 file(s) written").arg(formatInteger(count, true)));
    } else {
        m_warnings.append(QStringLiteral("0 files written"));
    }
    return confirmed;
}

/// Says what is about to be written; false when that is nothing, or the user doesn't want it.
bool OutputNode::confirm(const MultiFileTargets &plan)
{
    const FileNameVariables::Context context = fileNameContext(graphScene());
    QStringList existing;
    QStringList created;
    for (const MultiFileTargets::Target &target : plan.targets) {
        const bool exists = QFile::exists(FileNameVariables::expanded(target.file, context));
        (exists ? existing : created).append(fileSheetText(target.file, target.sheet));
    }
    const MultiFileSummary summary = MultiFileSummary::of(
        existing, created, m_options.writeMode, FileType::isExcel(m_fileType));
    if (summary.count == 0) {
        return false;
    }
    const GraphScene *scene = graphScene();
    if (scene && !scene->document()->hooks.confirmFiles(QStringLiteral("Multi file output"), summary.text)) {
        m_warnings.append(QStringLiteral("Output cancelled by user"));
        return false;
    }
    return true;
}

/// Writes each target's rows without the Files column; returns how many have been written.
int OutputNode::writeTargets(const MultiFileTargets &plan, ColumnIndex files)
{
    const ColumnMaps maps = columnMaps().withoutColumn(files.toInt());
    Dataset rest = m_dataset;
    rest.removeColumn(files);
    m_progressEnd = 0.0;
    int rowsBefore = 0;
    int count = 0;
    for (const MultiFileTargets::Target &target : plan.targets) {
        m_progressStart = m_progressEnd;
        rowsBefore += target.rows.size();
        m_progressEnd = static_cast<double>(rowsBefore) / m_dataset.rowCount();
        count += writeFile(target.file, target.sheet, rest.withRows(target.rows), maps) ? 1 : 0;
    }
    m_progressStart = 0.0;
    m_progressEnd = 1.0;
    return count;
}
