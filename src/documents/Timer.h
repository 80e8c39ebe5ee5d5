#pragma once

#include <QString>
#include <QTimer>

/// A timer of a form: on or off, and a text of its own in which it counts its work.
class Timer : public QTimer
{
public:
    /// Off at first. `interval` in milliseconds; a timer with interval 0 cannot be switched on.
    explicit Timer(int interval, const QString &tag = {})
        : m_tag(tag)
    {
        setInterval(interval);
    }

    bool Enabled() const { return isActive(); }
    /// Switching on a timer that is on does not begin its interval anew.
    void setEnabled(bool enabled)
    {
        if (!enabled)
            stop();
        else if (!isActive() && interval() > 0)
            start();
    }
    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }

private:
    QString m_tag;
};
