#include "app/batch/batchresults.h"

#include "data/values.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {

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
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(m_cutNote);
}

void BatchResults::clear()
{
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
    m_text->appendHtml(html);
    if (m_text->blockCount() >= maxLines) {
        m_cutNote->show();
    }
}
