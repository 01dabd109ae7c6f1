#include "app/batch/batchresults.h"

#include "data/values.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int showIntervalMs = 100;

QString htmlOf(const QString &text)
{
    QString html = text.toHtmlEscaped();
    return html.replace(QLatin1Char(' '), QStringLiteral("&nbsp;"));
}

} // namespace

BatchResults::BatchResults(QWidget *parent)
    : QWidget(parent)
    , m_text(new QPlainTextEdit)
    , m_cutNote(new QLabel(
          QStringLiteral("Only the last %1 lines are shown. A log keeps all.").arg(formatInteger(maxLines, true))))
    , m_showTimer(new QTimer(this))
{
    m_text->setReadOnly(true);
    m_text->setAccessibleName(QStringLiteral("Results"));
    m_text->setToolTip(QStringLiteral("Processing results. Use splitter above to resize."));
    m_text->setPlaceholderText(QStringLiteral("Click 'Process' to run the rows above. What comes of it is told here."));
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setMaximumBlockCount(maxLines);
    m_text->setTabChangesFocus(true);
    m_log.setErrorsMarked(true);
    m_cutNote->hide();
    m_showTimer->setSingleShot(true);
    m_showTimer->setInterval(showIntervalMs);
    connect(m_showTimer, &QTimer::timeout, this, &BatchResults::showPending);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(m_cutNote);
}

void BatchResults::clear()
{
    m_pending.clear();
    m_text->clear();
    m_cutNote->hide();
    m_log.close();
}

void BatchResults::info(const QString &text)
{
    append(htmlOf(text));
    m_log.info(text);
}

void BatchResults::error(const QString &text)
{
    append(QStringLiteral("<span style=\"color: red;\">%1</span>").arg(htmlOf(text)));
    m_log.error(text);
}

void BatchResults::append(const QString &html)
{
    m_pending.append(html);
    if (m_pending.size() >= maxLines) {
        showPending();
    } else if (!m_showTimer->isActive()) {
        m_showTimer->start();
    }
}

void BatchResults::showPending()
{
    m_text->setUpdatesEnabled(false);
    for (const QString &html : qAsConst(m_pending)) {
        m_text->appendHtml(html);
    }
    m_text->setUpdatesEnabled(true);
    m_pending.clear();
    m_cutNote->setVisible(m_text->blockCount() >= maxLines);
}

void BatchResults::finish()
{
    m_showTimer->stop();
    showPending();
    m_log.close();
}
