#pragma once

#include "desktop/TrayIcon.h"

#include <QElapsedTimer>
#include <QSystemTrayIcon>
#include <memory>

namespace desktop {

/// The desktop's notification icon; it shows the application's window icon. Nothing of it exists before AddTrayIcon.
class SystemTrayIcon : public TrayIcon
{
    Q_OBJECT
public:
    using TrayIcon::TrayIcon;
    bool isAvailable() const override;
    void AddTrayIcon(const QString &tip) override;
    void RemoveTrayIcon() override;

private:
    void iconActivated(QSystemTrayIcon::ActivationReason reason);

    std::unique_ptr<QSystemTrayIcon> m_icon;
    /// Since the last doubleClicked().
    QElapsedTimer m_sinceActivation;
};

} // namespace desktop
