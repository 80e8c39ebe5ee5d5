#pragma once

#include <QAbstractButton>

/// A part of a window by its object name; a window without it ends the test program.
template <typename T>
T &part(const QWidget &window, const char *name)
{
    T *found = window.findChild<T *>(QLatin1StringView(name));
    return *(found ? found : (qFatal("no part %s", name), nullptr));
}

/// Clicks a button by its object name; one that its user could not click ends the test program.
inline void clickPart(const QWidget &window, const char *name)
{
    auto &button = part<QAbstractButton>(window, name);
    if (!button.isEnabled())
        qFatal("%s is out of service", name);
    button.click();
}
