#include "platform/memory.h"

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// The number of kB behind a label such as "\nVmSwap:", 0 when the label isn't there.
long long kibibytesBehind(const char *text, const char *label)
{
    const char *found = std::strstr(text, label);
    return found ? std::strtoll(found + std::strlen(label), nullptr, 10) : 0;
}

} // namespace

double platform::privateMemoryGiB()
{
    const int file = ::open("/proc/self/status", O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return 0.0;
    }
    char text[4096];
    const ssize_t length = ::read(file, text, sizeof text - 1);
    ::close(file);
    if (length <= 0) {
        return 0.0;
    }
    text[length] = '\0';
    const long long kibibytes = kibibytesBehind(text, "\nRssAnon:") + kibibytesBehind(text, "\nVmSwap:");
    return double(kibibytes) / (1024.0 * 1024.0);
}
