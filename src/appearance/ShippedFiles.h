#pragma once

#include <QString>

/// Copies the files that come with the program (toolbar strips, skins) into the program folder, each only when it is
/// not there, so that a user's own file stays. A file that cannot be written is left out: whoever wants it treats it as
/// missing.
void installShippedFiles(const QString &programFolder);
