#pragma once

#include <QString>

/// The address inside an internet shortcut file. `pathWithoutExtension` is the file's path less its last four
/// characters; ".url" (then ".URL", then any other case that the folder holds) is added. Empty on any failure.
QString ReadShortcutURL(const QString &pathWithoutExtension);
