#pragma once

#include <QString>

namespace engine {

/// The engine has no way to remove what sites have stored while it runs, and loses the removal of cookies when it is
/// ended by force. So both are finished here, by the files of a profile folder that no engine uses at the moment.

/// Removes cookies and everything that sites have stored.
void removeSiteData(const QString &profileFolder);

/// What is left to do before a profile folder is used again.
enum class Pending {
    Nothing,
    /// Cookies are gone unless the program is ended by force; the rest stays till the next start.
    Everything,
    /// The end was an ordinary one: cookies that came since are to stay.
    Storage,
};
/// Keeps that in the folder. False when it can't be written.
bool setPending(const QString &profileFolder, Pending pending);
Pending pending(const QString &profileFolder);
/// Does what is left to do.
void finishPending(const QString &profileFolder);

} // namespace engine
