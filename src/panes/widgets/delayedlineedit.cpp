#include "panes/widgets/delayedlineedit.h"

namespace {

constexpr int pauseMs = 200;

} // namespace

DelayedLineEdit::DelayedLineEdit(QWidget *parent)
    : QLineEdit(parent)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    connect(this, &QLineEdit::textChanged, &m_pause, QOverload<>::of(&QTimer::start));
    connect(&m_pause, &QTimer::timeout, this, [this] { emit delayedEditTextChanged(text()); });
}

void DelayedLineEdit::flush()
{
    if (m_pause.isActive()) {
        m_pause.stop();
        emit delayedEditTextChanged(text());
    }
}
