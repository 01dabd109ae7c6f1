#include "app/report/reportwriter.h"

#include "app/report/reportsink.h"
#include "app/report/runtally.h"
#include "data/values.h"
#include "graph/ionode.h"

#include <QDateTime>
#include <QStringList>

namespace {

QString counted(const char *form, int count)
{
    return QString::fromLatin1(form).arg(formatInteger(count, true));
}

} // namespace

QString ReportWriter::lineOf(const Node &node) const
{
    return node.logLine(tells(Verbosity::Extra));
}

bool ReportWriter::hasNews(const Node &node, bool isProcessed)
{
    const auto *input = node.type() == ItemType::Input ? qobject_cast<const IONode *>(&node) : nullptr;
    return !isProcessed || !input || input->medium() != Medium::Clipboard;
}

void ReportWriter::messages(const Node &node)
{
    if (tells(Verbosity::Maximum)) {
        for (const QString &text : node.infos()) {
            m_sink.info(QStringLiteral("    Info: ") + text);
        }
    }
    if (tells(Verbosity::Extra)) {
        for (const QString &text : node.warnings()) {
            m_sink.info(QStringLiteral("    Warning: ") + text);
        }
    }
}

void ReportWriter::time(const QString &heading)
{
    if (tells(Verbosity::Normal)) {
        m_sink.info(heading + QDateTime::currentDateTime().toString());
    }
}

void ReportWriter::processed(const RunTally &tally)
{
    const QStringList parts{counted("%1 Input(s)", tally.inputs), counted("%1 Transform(s)", tally.transforms),
        counted("%1 Output(s)", tally.outputs), counted("%1 Chart(s)", tally.charts)};
    m_sink.info(QStringLiteral("Processed: %1").arg(parts.join(QStringLiteral(", "))));
}

void ReportWriter::writtenFiles(const RunTally &tally)
{
    paths(QStringLiteral("Outputs written: %1"), tally.outputWrites);
    if (!tally.chartWrites.isEmpty()) {
        paths(QStringLiteral("Charts written: %1"), tally.chartWrites);
    }
}

void ReportWriter::paths(const QString &heading, const QMap<QString, int> &paths)
{
    m_sink.info(heading.arg(formatInteger(paths.size(), true)));
    if (tells(Verbosity::Extra)) {
        for (auto it = paths.cbegin(); it != paths.cend(); ++it) {
            m_sink.info(QStringLiteral("  ") + it.key());
        }
    }
}

void ReportWriter::overwrites(const RunTally &tally)
{
    QStringList lines;
    for (auto it = tally.replacements.cbegin(); it != tally.replacements.cend(); ++it) {
        if (it.value() > 1) {
            lines.append(
                QStringLiteral("  Warning: Overwrote '%1' %2 times").arg(it.key(), formatInteger(it.value(), true)));
        }
    }
    if (lines.isEmpty()) {
        return;
    }
    m_sink.info(counted("Overwritten multiple times: %1", lines.size()));
    if (tells(Verbosity::Extra)) {
        for (const QString &line : qAsConst(lines)) {
            m_sink.info(line);
        }
    }
}

void ReportWriter::elapsed(const QString &heading, qint64 ms)
{
    m_sink.info(heading.arg(QString::number(double(ms) / 1000.0, 'f', 3) + QStringLiteral(" second(s)")));
}

void ReportWriter::results(const QString &heading, const RunTally &tally, bool errorsInRed)
{
    QStringList parts{counted("%1 error(s)", tally.errors)};
    if (tells(Verbosity::Normal)) {
        parts.append(counted("%1 warning(s)", tally.warnings));
    }
    const QString line = heading.arg(parts.join(QStringLiteral(", ")));
    errorsInRed &&tally.errors > 0 ? m_sink.error(line) : m_sink.info(line);
}
