#include "app/platformchoice.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace {

constexpr off_t mostLookedAt = 4 * 1024 * 1024; // a document that long takes its time anyway

bool namesDocument(std::string argument)
{
    const std::string suffix = ".transform";
    std::transform(argument.begin(), argument.end(), argument.begin(),
        [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
    return argument.size() >= suffix.size()
           && argument.compare(argument.size() - suffix.size(), suffix.size(), suffix) == 0;
}

/// False only when the document surely holds none.
bool mayHoldCharts(const std::string &path)
{
    struct stat status;
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > mostLookedAt) {
        return true;
    }
    std::ifstream file(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::string element = "<chart";
    for (size_t at = text.find(element); at != std::string::npos; at = text.find(element, at + 1)) {
        // The group is there even when it is empty.
        if (text.compare(at, element.size() + 1, "<charts") != 0) {
            return true;
        }
    }
    // Characters of two bytes each would hide them.
    return text.find("<root") == std::string::npos;
}

} // namespace

std::string platformsWithoutWindow(const std::vector<std::string> &arguments)
{
    const bool mayDraw = std::any_of(arguments.begin(), arguments.end(), [](const std::string &argument) {
        // The report on a flow has a picture of it.
        return argument == "-report" || argument == "--report" || (namesDocument(argument) && mayHoldCharts(argument));
    });
    return mayDraw ? "offscreen" : "minimal;offscreen";
}
