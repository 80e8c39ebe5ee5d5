#pragma once

#include <QFlags>
#include <QString>

namespace engine {

/// The files that the engine keeps for sites, in the folders of a profile. The engine cannot remove what sites have
/// stored while it runs, and loses the removal of cookies when it is ended by force. So that is finished here, when the
/// engine does not use the folders; a marker in them tells what is left to do.
class SiteData
{
public:
    enum class Kind { TemporaryFiles = 1, Cookies = 2, Storage = 4 };
    Q_DECLARE_FLAGS(Kinds, Kind)

    SiteData(const QString &profileFolder, const QString &cacheFolder);

    void remove(Kinds kinds) const;

    Kinds pending() const;
    void addPending(Kinds kinds) const { setPending(pending() | kinds); }
    void dropPending(Kinds kinds) const { setPending(pending() & ~kinds); }
    /// Removes what is left to remove.
    void finishPending() const;

private:
    void setPending(Kinds kinds) const;

    QString m_profileFolder;
    QString m_cacheFolder;
    QString m_marker;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(SiteData::Kinds)

} // namespace engine
