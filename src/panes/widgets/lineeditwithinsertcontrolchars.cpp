#include "panes/widgets/lineeditwithinsertcontrolchars.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <memory>

namespace {

struct Character
{
    const char *name;
    char16_t code;
};

constexpr Character characters[] = {
    {"&Tab", u'\t'},
    {"&Line feed", u'\n'},
    {"&Carriage return", u'\r'},
    {"&Non-breaking space", u'\u00a0'},
    {"&Zero width space", u'\u200b'},
    {"&Soft hyphen", u'\u00ad'},
    {"&Unit separator", u'\u001f'},
};

} // namespace

LineEditWithInsertControlChars::LineEditWithInsertControlChars(QWidget *parent)
    : QLineEdit(parent)
{
}

void LineEditWithInsertControlChars::addCharacters(QMenu &menu)
{
    for (const Character &character : characters) {
        const QString text{QChar(character.code)};
        menu.addAction(QLatin1String(character.name), this, [this, text] { insert(text); });
    }
}

void LineEditWithInsertControlChars::contextMenuEvent(QContextMenuEvent *event)
{
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    if (!isReadOnly()) {
        menu->addSeparator();
        addCharacters(*menu->addMenu(QStringLiteral("&Insert character")));
    }
    menu->exec(event->globalPos());
}

void LineEditWithInsertControlChars::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() == Qt::ControlModifier && event->key() == Qt::Key_I && !isReadOnly()) {
        popUpCharacters();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void LineEditWithInsertControlChars::popUpCharacters()
{
    QMenu menu(this);
    addCharacters(menu);
    menu.exec(mapToGlobal(cursorRect().bottomLeft()));
}
