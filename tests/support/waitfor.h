#pragma once

#include <QTest>

/// Handles events until `condition` holds; false when it doesn't within `milliseconds`.
template<class Condition>
bool waitFor(Condition condition, int milliseconds = 5000)
{
    return QTest::qWaitFor(condition, milliseconds);
}
