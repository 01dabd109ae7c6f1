#include "panes/status/logpane.h"

namespace {

constexpr int mostLines = 10000;

}

LogPane::LogPane(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setMaximumBlockCount(mostLines);
    setPlaceholderText(QStringLiteral("What runs have to tell appears here."));
    setAccessibleName(QStringLiteral("Log pane"));
}

void LogPane::onShowLogMessage(const QString &text)
{
    appendPlainText(text);
}
