#pragma once

#include <QByteArray>
#include <QString>

/// The address inside an internet shortcut file. `pathWithoutExtension` is the file's path less its last four
/// characters; ".url" (then ".URL", then any other case that the folder holds) is added. Empty on any failure.
QString ReadShortcutURL(const QString &pathWithoutExtension);

/// The address inside the content of a shortcut file: what follows the first "url=" in a line from the section's head
/// on. Case is kept, but does not matter for the names; lines end in CR LF, LF or CR. Empty when there is none.
QString shortcutURLOf(const QByteArray &utf8);
