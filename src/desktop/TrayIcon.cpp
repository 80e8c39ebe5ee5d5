#include "desktop/SystemTrayIcon.h"

#include <QApplication>

namespace desktop {

bool SystemTrayIcon::isAvailable() const
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void SystemTrayIcon::AddTrayIcon(const QString &tip)
{
    if (!m_icon) {
        m_icon = std::make_unique<QSystemTrayIcon>(QApplication::windowIcon());
        connect(m_icon.get(), &QSystemTrayIcon::activated, this, &SystemTrayIcon::iconActivated);
    }
    m_icon->setToolTip(tip);
    m_icon->show();
}

void SystemTrayIcon::RemoveTrayIcon()
{
    // Removing may be what a double click leads to, and that is the icon's own signal.
    if (m_icon)
        m_icon.release()->deleteLater();
}

void SystemTrayIcon::iconActivated(QSystemTrayIcon::ActivationReason reason)
{
    // Desktops that draw the icon themselves know one way to activate it and send it as Trigger, for each click of a
    // double click. They are the ones that don't tell where the icon is; the others send DoubleClick by itself.
    const bool isOnlyWay = reason == QSystemTrayIcon::Trigger && m_icon && m_icon->geometry().isEmpty();
    if (reason != QSystemTrayIcon::DoubleClick && !isOnlyWay)
        return;
    if (m_sinceActivation.isValid() && m_sinceActivation.elapsed() < QApplication::doubleClickInterval())
        return;
    m_sinceActivation.start();
    emit doubleClicked();
}

} // namespace desktop
