#pragma once

#include <QObject>

class QSocketNotifier;

namespace platform {

/// Tells from the event loop that the system asks the process to end (SIGTERM, SIGHUP, SIGINT on Linux). One at a time;
/// while it lives these don't end the process by themselves.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

signals:
    void received();

private:
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace platform
