#include "platform/display.h"

#include <QByteArray>
#include <QtGlobal>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

/// Whether somebody listens at a socket of this name; a leading zero byte makes it one without a file.
bool answers(const QByteArray &name)
{
    sockaddr_un address{};
    if (name.isEmpty() || static_cast<size_t>(name.size()) >= sizeof(address.sun_path)) {
        return false;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.constData(), static_cast<size_t>(name.size()));
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0) {
        return true; // nothing is known then
    }
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<size_t>(name.size()));
    const bool connected = ::connect(descriptor, reinterpret_cast<const sockaddr *>(&address), size) == 0;
    ::close(descriptor);
    return connected;
}

bool hasXServer(const QByteArray &display)
{
    const int colon = display.lastIndexOf(':');
    if (colon < 0) {
        return false;
    }
    const QByteArray host = display.left(colon);
    if (!host.isEmpty() && host != "unix") {
        return true; // on another machine: only opening it tells
    }
    QByteArray number = display.mid(colon + 1);
    const int screen = number.indexOf('.');
    number = screen < 0 ? number : number.left(screen);
    const QByteArray socket = "/tmp/.X11-unix/X" + number;
    return answers(socket) || answers('\0' + socket);
}

bool hasWayland(const QByteArray &display)
{
    if (display.isEmpty()) {
        return false;
    }
    return answers(display.startsWith('/') ? display : qgetenv("XDG_RUNTIME_DIR") + '/' + display);
}

} // namespace

bool platform::hasDisplay()
{
    return hasXServer(qgetenv("DISPLAY")) || hasWayland(qgetenv("WAYLAND_DISPLAY"));
}
