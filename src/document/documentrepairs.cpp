#include "document/documentrepairs.h"

#include "transforms/frame/messages.h"

namespace {

constexpr int longestName = 40;

struct Wording
{
    const char *one;
    const char *many; ///< %1 is their number
};

const Wording wordings[DocumentRepairs::KindCount] = {
    {"1 item was left out, as its id isn't a number from 0 to 1000000000",
        "%1 items were left out, as their ids aren't numbers from 0 to 1000000000"},
    {"1 item was given a new id, as another item has the same", "%1 items were given new ids, as others have the same"},
    {"1 repeated connection was removed", "%1 repeated connections were removed"},
    {"1 connection was removed, as there is no such item", "%1 connections were removed, as there are no such items"},
    {"1 connection was removed, as it leads into an item that takes none",
        "%1 connections were removed, as they lead into items that take none"},
    {"1 connection was removed, as it leads out of an item that gives none",
        "%1 connections were removed, as they lead out of items that give none"},
    {"1 connection was removed, as it closed a circle", "%1 connections were removed, as they closed circles"},
    {"1 item was part of a circle", "%1 items were part of circles"},
};

} // namespace

void DocumentRepairs::add(Kind kind, const QString &what)
{
    CappedList &examples = m_examples[kind];
    examples.add([&what] {
        const QString text = what.simplified();
        return text.size() > longestName ? text.left(longestName) + QStringLiteral("...") : text;
    });
}

void DocumentRepairs::addConnection(Kind kind, int startId, int endId)
{
    add(kind, QStringLiteral("%1 to %2").arg(QString::number(startId), QString::number(endId)));
}

QStringList DocumentRepairs::lines() const
{
    QStringList result;
    for (int kind = 0; kind < KindCount; ++kind) {
        const CappedList &examples = m_examples[kind];
        if (examples.count() == 0) {
            continue;
        }
        const QString heading = examples.count() == 1
                                    ? QString::fromLatin1(wordings[kind].one)
                                    : QString::fromLatin1(wordings[kind].many).arg(Messages::count(examples.count()));
        result.append(heading + QStringLiteral(": ") + examples.lines().join(QStringLiteral(", ")));
    }
    return result;
}
