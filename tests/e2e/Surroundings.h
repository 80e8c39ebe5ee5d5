#pragma once

#include <QByteArray>
#include <unistd.h>

/// How long the tests wait for a page, in milliseconds. Only a failure takes so long.
inline constexpr int kPatience = 15'000;

/// Chromium does not start its sandbox for root.
inline void allowRoot()
{
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}
