#include "base/StringTable.h"

#include <cstdint>
#include <cstdlib>

/// Content of a string file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto table = parseStringTable({reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)});
    for (const QString &text : table) {
        if (text.isEmpty())
            std::abort();
    }
    return 0;
}
