#include "panes/canvas/typeablemenu.h"

#include "graph/pictures.h"
#include "panes/canvas/transformchoice.h"
#include "panes/icons.h"

#include <QKeyEvent>
#include <QLabel>
#include <QWidgetAction>

TypeableMenu::TypeableMenu(GraphScene &scene, const QString &typed, QWidget *parent)
    : QMenu(parent)
    , m_scene(scene)
    , m_label(new QLabel)
    , m_header(new QWidgetAction(this))
{
    setObjectName(QStringLiteral("TypeableMenu"));
    setToolTipsVisible(true);
    m_label->setMargin(fontMetrics().height() / 3);
    m_label->setTextFormat(Qt::PlainText);
    m_header->setDefaultWidget(m_label);
    addAction(m_header);
    addSeparator();
    setTyped(typed.trimmed());
}

void TypeableMenu::setTyped(const QString &typed)
{
    m_typed = typed;
    const QString text = typed.isEmpty() ? QStringLiteral("Type the name of a transform") : typed + QLatin1Char('_');
    m_label->setText(text);
    m_label->setEnabled(!typed.isEmpty());
    setAccessibleName(QStringLiteral("Transforms, %1").arg(text));
    fill();
}

void TypeableMenu::fill()
{
    const QList<QAction *> old = actions().mid(2); // behind header and separator
    for (QAction *action : old) {
        removeAction(action);
        action->deleteLater();
    }
    QAction *first = nullptr;
    QVector<TransformChoice> choices = TransformChoice::matching(m_typed);
    const bool isCut = choices.size() > mostEntries;
    if (isCut) {
        choices.resize(mostEntries);
    }
    for (const TransformChoice &choice : qAsConst(choices)) {
        QAction *action = addAction(
            Pictures::icon(Pictures::ofTransform(choice.typeName), Icons::areDark()), choice.displayName);
        action->setToolTip(choice.description);
        connect(action, &QAction::triggered, this, [this, name = choice.typeName] { emit transformChosen(name); });
        if (!first || (!first->data().toBool() && choice.fits(m_scene))) {
            first = action;
        }
        action->setData(choice.fits(m_scene));
    }
    if (choices.isEmpty()) {
        addAction(QStringLiteral("No transform begins so"))->setEnabled(false);
    } else if (isCut) {
        addAction(QStringLiteral("..."))->setEnabled(false);
    }
    setActiveAction(first);
    if (isVisible()) {
        adjustSize();
    }
}

void TypeableMenu::keyPressEvent(QKeyEvent *event)
{
    const bool isCommand = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (event->key() == Qt::Key_Backspace) {
        setTyped(m_typed.left(m_typed.size() - 1));
    } else if (!isCommand && !event->text().isEmpty() && event->text().at(0).isPrint()) {
        setTyped(m_typed + event->text());
    } else {
        QMenu::keyPressEvent(event);
    }
}
