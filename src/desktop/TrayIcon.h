#pragma once

#include <QObject>
#include <QString>

namespace desktop {

/// The notification icon.
class TrayIcon : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    /// False where the desktop has no tray: a hidden window could never come back.
    virtual bool isAvailable() const = 0;
    virtual void AddTrayIcon(const QString &tip) = 0;
    virtual void RemoveTrayIcon() = 0;

signals:
    /// The icon was activated by a double click (or by the desktop's one way to activate it).
    void doubleClicked();
};

} // namespace desktop
