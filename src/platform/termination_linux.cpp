#include "platform/termination.h"

#include <QSocketNotifier>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int signalNumbers[] = {SIGTERM, SIGHUP, SIGINT};

/// A handler may do next to nothing: it writes to one end, the event loop reads at the other.
int sockets[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    const ssize_t written = write(sockets[0], &byte, sizeof byte);
    (void)written; // a full socket has told of the end already
}

} // namespace

platform::TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
{
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets) != 0) {
        return;
    }
    m_notifier = new QSocketNotifier(sockets[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        if (read(sockets[1], bytes, sizeof bytes) > 0) {
            emit received();
        }
    });
    for (int number : signalNumbers) {
        struct sigaction action = {};
        action.sa_handler = onSignal;
        action.sa_flags = SA_RESTART;
        sigaction(number, &action, nullptr);
    }
}

platform::TerminationSignals::~TerminationSignals()
{
    if (!m_notifier) {
        return;
    }
    for (int number : signalNumbers) {
        signal(number, SIG_DFL);
    }
    delete m_notifier;
    for (int &socket : sockets) {
        close(socket);
        socket = -1;
    }
}
