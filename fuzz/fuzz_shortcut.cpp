#include "base/ShortcutFile.h"

#include <cstdint>
#include <cstdlib>

/// Content of an internet shortcut file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QString address = shortcutURLOf(content);
    if (address.contains(u'\n') || address.contains(u'\r'))
        std::abort();
    return 0;
}
