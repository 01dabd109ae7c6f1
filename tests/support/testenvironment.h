#pragma once

#include <QByteArray>
#include <QHashFunctions>

#include <ctime>

/// Gives every test program the same surroundings, whoever starts it: no display, a UTF-8 locale without a country,
/// UTC, and the hash seed of the program. QT_HASH_SEED asks for another seed, with which everything has to hold too.
/// Called before the application object is made.
inline void prepareTestEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("TZ", "UTC");
    tzset();
    const int seed = qEnvironmentVariableIntValue("QT_HASH_SEED");
    qunsetenv("QT_HASH_SEED"); // which the programs that a test starts would warn about
    qSetGlobalQHashSeed(seed);
}
