#pragma once

#include "text/cappedlist.h"

#include <QStringList>

/// What had to be left out of a document or changed in it so that it can be used, for telling the user.
class DocumentRepairs
{
public:
    enum Kind {
        IdOutsideRange = 0,
        IdRepeated,
        ConnectionRepeated,
        ConnectionWithoutItem,
        ConnectionIntoInput, ///< or into a note: into what takes none
        ConnectionOutOfEnd,  ///< out of an output, a chart or a note: out of what gives none
        ConnectionClosingCircle,
        ItemInCircle,
        KindCount
    };

    /// `what` names the item or the connection; what a hostile document makes too long is cut.
    void add(Kind kind, const QString &what);
    /// The same for a connection, by the ids of its ends.
    void addConnection(Kind kind, int startId, int endId);
    /// One line for each kind that occurred, with the first few that it was done to.
    QStringList lines() const;

private:
    CappedList m_examples[KindCount];
};
