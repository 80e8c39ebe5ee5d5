#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTest>
#include <QTimer>

/// Waits until `isThere()` gives true, at most `milliseconds`; gives whether it does. The event loop runs all the time:
/// the waits of Qt Test sleep between their looks, which makes a page engine in the same process many times slower.
template <typename Condition>
bool waitUntil(Condition isThere, int milliseconds = 15'000)
{
    constexpr int kLookEveryMs = 5;
    const QDeadlineTimer deadline(milliseconds);
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (isThere() || deadline.hasExpired())
            loop.quit();
    });
    look.start(kLookEveryMs);
    if (!isThere())
        loop.exec();
    return isThere();
}

/// QTRY_VERIFY and QTRY_COMPARE with that wait.
#define WAIT_VERIFY(condition) QVERIFY(waitUntil([&] { return bool(condition); }))
#define WAIT_COMPARE(actual, expected)                                                                                 \
    do {                                                                                                               \
        const auto &wanted = expected;                                                                                 \
        waitUntil([&] { return (actual) == wanted; });                                                                 \
        QCOMPARE(actual, expected);                                                                                    \
    } while (false)
