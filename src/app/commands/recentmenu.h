#pragma once

#include <QObject>

class DocumentCommands;
class DocumentSession;
class QMenu;
class RecentDocuments;

/// The menu of documents opened before, without the one that is open.
class RecentMenu : public QObject
{
    Q_OBJECT

public:
    RecentMenu(QMenu &menu, RecentDocuments &recent, DocumentSession &session, DocumentCommands &documents);

    bool isEmpty() const { return m_isEmpty; }

public slots:
    /// Entries have come or gone, or files behind them.
    void update();

signals:
    void updated();

private:
    QMenu &m_menu;
    RecentDocuments &m_recent;
    DocumentSession &m_session;
    DocumentCommands &m_documents;
    bool m_isEmpty = true;
};
