#pragma once

#include "blocking/BlackListSearch.h"

#include <QString>
#include <cstdint>

struct Settings;

/// The black list: its file, and the test of addresses. The list itself stands in the settings record; whoever changes
/// it there changes what is refused from then on.
class SiteBlocker
{
public:
    /// The file is `blacklist.cvd` in the program folder.
    SiteBlocker(Settings &settings, const QString &programFolder);

    /// Fills the list from its file. A file that is missing or cannot be read gives an empty list, without a message.
    void ReadBlackList();
    /// Writes the whole list. A file that could not be read is kept aside first, and when even that fails it stays as
    /// it is and the list is not stored.
    void WriteBlackList();
    /// The black list test: whether an entry is part of the address, ignoring case.
    bool isListed(const QString &URL);

private:
    QStringList entries() const;

    Settings &m_settings;
    QString m_file;
    /// The file is there, but its entries are not in the list.
    bool m_unread = false;
    /// What m_search was made from. The list shares its data with the one in the settings while that does not change,
    /// which makes the comparison cheap.
    QStringList m_searchedList;
    int32_t m_searchedCount = 0;
    BlackListSearch m_search;
};
