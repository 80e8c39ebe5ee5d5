#pragma once

#include "desktop/Dialogs.h"

namespace desktop {

/// The dialogs as the desktop shows them. Each runs until the user has answered.
class DesktopDialogs : public Dialogs
{
public:
    int messageBox(QWidget *owner, const QString &prompt, int style, const QString &title = {}) override;
    QString openFile(QWidget *owner, const QString &title, const QString &filter) override;
    QString saveFile(QWidget *owner, const QString &title, const QString &proposedPath, const QString &filter) override;
};

/// "Text|*.a;*.b|Other|*.*" as Qt wants it: "Text (*.a *.b);;Other (*)".
QString qtFilter(const QString &filter);

} // namespace desktop
