#include "blocking/BlackListFile.h"
#include "blocking/BlackListSearch.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

/// Content of a black list file: what was read comes back from what is written, and its last line taken as an address
/// is judged as by trying one entry after another.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QStringList entries = parseBlackList(content);
    if (parseBlackList(blackListContent(entries)) != entries)
        std::abort();
    if (entries.isEmpty())
        return 0;

    const QString address = entries.takeLast();
    // Stray bytes stand in no address.
    if (!address.isValidUtf16())
        return 0;
    const bool listed = std::any_of(entries.cbegin(), entries.cend(), [&](const QString &entry) {
        return entry.isValidUtf16() && address.contains(entry, Qt::CaseInsensitive);
    });
    if (BlackListSearch(entries).findsAnyIn(address) != listed)
        std::abort();
    return 0;
}
