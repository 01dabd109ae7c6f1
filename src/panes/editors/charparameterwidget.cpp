#include "panes/editors/charparameterwidget.h"

#include "panes/widgets/wheelguard.h"
#include "transforms/options/parameter.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>

namespace {

struct Named
{
    char character;
    const char *name;
};

constexpr Named namedCharacters[] = {{' ', "<Space>"}, {'\t', "<Tab>"}};
/// Room for the frame of an option that isn't set.
constexpr int margin = 4;
constexpr char common[] = ",;|:-_/.";

QString nameOf(QChar character)
{
    for (const Named &named : namedCharacters) {
        if (character == QLatin1Char(named.character)) {
            return QLatin1String(named.name);
        }
    }
    return character.isNull() ? QString() : QString(character);
}

QChar characterOf(const QString &text)
{
    for (const Named &named : namedCharacters) {
        if (text == QLatin1String(named.name)) {
            return QLatin1Char(named.character);
        }
    }
    const QChar last = text.isEmpty() ? QChar() : text.at(text.size() - 1);
    return last.isSurrogate() ? QChar() : last;
}

} // namespace

CharParameterWidget::CharParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QWidget(parent)
    , ParameterWidget(parameter, node)
    , m_choice(new QComboBox)
{
    describe(*this);
    m_choice->setEditable(true);
    m_choice->setInsertPolicy(QComboBox::NoInsert);
    m_choice->setCompleter(nullptr);
    m_choice->setAccessibleName(parameter.label());
    m_choice->setToolTip(parameter.toolTip());
    guardFromWheel(*m_choice);
    for (const Named &named : namedCharacters) {
        m_choice->addItem(QLatin1String(named.name));
    }
    for (const char *character = common; *character != '\0'; ++character) {
        m_choice->addItem(QString(QLatin1Char(*character)));
    }
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(m_choice);
    layout->addStretch(1);
    setFocusProxy(m_choice);
    refresh();
    connect(m_choice, &QComboBox::editTextChanged, this, &CharParameterWidget::onChanged);
}

void CharParameterWidget::refresh()
{
    const QSignalBlocker blocker(m_choice);
    m_choice->setEditText(nameOf(parameter()->toChar()));
}

QVariant CharParameterWidget::value() const
{
    return characterOf(m_choice->currentText());
}

void CharParameterWidget::onChanged()
{
    // What is typed behind a character replaces it, so that there is only ever one.
    const QString shown = nameOf(characterOf(m_choice->currentText()));
    if (shown != m_choice->currentText()) {
        const QSignalBlocker blocker(m_choice);
        m_choice->setEditText(shown);
    }
    if (commit()) {
        emit parameterValueChanged(true);
    }
    update();
}

void CharParameterWidget::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    paintUnsetFrame(*this);
}
