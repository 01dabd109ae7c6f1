#include "panes/table/valuedialog.h"

#include "data/values.h"
#include "data/whitespacemarks.h"
#include "panes/dialogs/helphook.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(500, 300);

/// Marks stand in front of the ends of lines, which stay where they are.
QString marked(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        line = withWhiteSpaceMarks(line);
    }
    return lines.join(QStringLiteral("\u21B5\n"));
}

} // namespace

ValueDialog::ValueDialog(const QString &place, const QString &value, QWidget *parent)
    : QDialog(parent)
    , m_value(value)
    , m_edit(new QPlainTextEdit)
    , m_whitespace(new QCheckBox(QStringLiteral("show &whitespace")))
{
    setWindowTitle(QStringLiteral("Value"));
    HelpHook::setHelpPage(*this, QStringLiteral("Data_table#cells"));
    auto *placeLabel = new QLabel(place);
    placeLabel->setTextFormat(Qt::PlainText);
    m_edit->setReadOnly(true);
    m_edit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_edit->setTabChangesFocus(true);
    m_edit->setAccessibleName(windowTitle());
    m_edit->setFont(Settings::current().dataFont());
    m_whitespace->setToolTip(QStringLiteral("Show whitespace, such as Spaces and Tabs, as visible marks."));
    m_whitespace->setChecked(Settings::current().showWhitespaceValueWindow());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *copy = buttons->addButton(QStringLiteral("&Copy"), QDialogButtonBox::ActionRole);
    copy->setToolTip(QStringLiteral("Copy the whole value to the clipboard."));
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(m_whitespace);
    bottom->addStretch();
    bottom->addWidget(new QLabel(sizeText()));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(placeLabel);
    layout->addWidget(m_edit);
    layout->addLayout(bottom);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(copy, &QPushButton::clicked, this, &ValueDialog::copyValue);
    connect(m_whitespace, &QCheckBox::toggled, this, [this](bool on) {
        Settings::current().setShowWhitespaceValueWindow(on);
        showValue();
    });
    keepGeometry(*this, &Settings::valueSettingWindowGeometry, &Settings::setValueSettingWindowGeometry, firstSize);
    showValue();
}

QString ValueDialog::sizeText() const
{
    const QString size = m_value.size() == 1 ? QStringLiteral("1 character")
                                             : QStringLiteral("%1 characters").arg(formatInteger(m_value.size(), true));
    return m_value.size() <= longestShown
               ? size
               : QStringLiteral("The first %1 of %2 are shown").arg(formatInteger(longestShown, true), size);
}

void ValueDialog::showValue()
{
    const QString shown = m_value.left(longestShown);
    m_edit->setPlainText(m_whitespace->isChecked() ? marked(shown) : shown);
}

void ValueDialog::copyValue()
{
    QGuiApplication::clipboard()->setText(m_value);
}
