#include "data/regexwork.h"

#include "data/values.h"
#include "text/cappedlist.h"

namespace {

struct Step
{
    int failures; ///< from so many values that were given up on
    int limit;    ///< a match may take this many of the library's steps
};
// A value that is given up takes about 5 ms at first, then 0.1 ms, then 0.01 ms.
constexpr int firstLimit = 1000000;
constexpr Step steps[] = {{20, 20000}, {1000, 2000}};
constexpr int shownText = 50;

} // namespace

RegexWork *RegexWork::s_current = nullptr;

RegexWork::RegexWork()
    : m_outer(s_current)
    , m_limit(firstLimit)
{
    s_current = this;
}

RegexWork::~RegexWork()
{
    s_current = m_outer;
}

int RegexWork::limit()
{
    return s_current ? s_current->m_limit : firstLimit;
}

void RegexWork::note(List &list, QHash<QString, int> &places, const QString &pattern, const QString &text)
{
    auto place = places.constFind(pattern);
    if (place == places.constEnd()) {
        place = places.insert(pattern, list.size());
        list.append({pattern, ellipsized(text, shownText), 0});
    }
    ++list[place.value()].count;
}

void RegexWork::noteTooHard(const QString &pattern, const QString &text)
{
    if (!s_current) {
        return;
    }
    note(s_current->m_tooHard, s_current->m_tooHardPlaces, pattern, text);
    ++s_current->m_tooHardCount;
    for (const Step &step : steps) {
        if (s_current->m_tooHardCount == step.failures) {
            s_current->m_limit = step.limit;
        }
    }
}

void RegexWork::noteUnreadable(const QString &pattern, const QString &text)
{
    if (s_current) {
        note(s_current->m_unreadable, s_current->m_unreadablePlaces, pattern, text);
    }
}

QStringList RegexWork::lines(const List &list, const char *reason)
{
    CappedList told;
    for (const GivenUp &given : list) {
        told.add([&] {
            return QStringLiteral("Regular expression '%1' %2 %3 %4, treated as not matching. E.g. '%5'")
                .arg(ellipsized(given.pattern, shownText), QLatin1String(reason), formatInteger(given.count, true),
                    given.count == 1 ? QStringLiteral("value") : QStringLiteral("values"), given.first);
        });
    }
    QStringList lines = told.texts();
    if (told.others() > 0) {
        lines.last() += QLatin1Char('\n') + told.othersLine("other regular expression", "other regular expressions");
    }
    return lines;
}

QStringList RegexWork::warnings() const
{
    return lines(m_tooHard, "is too complex for") + lines(m_unreadable, "can't read broken characters of");
}
