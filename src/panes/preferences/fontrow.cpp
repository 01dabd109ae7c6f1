#include "panes/preferences/fontrow.h"

#include <QFontDialog>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int mostShownPoints = 14; ///< a large font would tear the rows apart

} // namespace

FontRow::FontRow(const QFont &font, const QFont &usual, QWidget *parent)
    : QWidget(parent)
    , m_usual(usual)
    , m_name(new QLabel)
{
    auto *choose = new QPushButton(QStringLiteral("Choose..."));
    auto *reset = new QPushButton(QStringLiteral("Default"));
    reset->setToolTip(QStringLiteral("Set the font back to the default."));
    for (QPushButton *button : {choose, reset}) {
        button->setAutoDefault(false);
    }
    m_name->setTextFormat(Qt::PlainText);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_name, 1);
    layout->addWidget(choose);
    layout->addWidget(reset);
    setFocusProxy(choose);
    connect(choose, &QPushButton::clicked, this, &FontRow::choose);
    connect(reset, &QPushButton::clicked, this, [this] { show(m_usual); });
    show(font);
}

void FontRow::show(const QFont &font)
{
    m_font = font;
    const QFontInfo info(font);
    QFont sample = font;
    sample.setPointSize(qMin(mostShownPoints, qMax(1, info.pointSize())));
    m_name->setFont(sample);
    m_name->setText(QStringLiteral("%1, %2%3%4")
                        .arg(info.family())
                        .arg(info.pointSize())
                        .arg(info.bold() ? QStringLiteral(", bold") : QString(),
                            info.italic() ? QStringLiteral(", italic") : QString()));
}

void FontRow::choose()
{
    bool chosen = false;
    const QFont font = QFontDialog::getFont(&chosen, m_font, this, accessibleName());
    if (chosen) {
        show(font);
    }
}
