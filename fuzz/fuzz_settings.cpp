#include "core/state/SettingsFormat.h"

#include <cstdint>
#include <cstdlib>

/// Content of the settings file: what was understood once survives any number of writes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto map = settingsformat::read(content);
    if (!map)
        return 0;
    const QByteArray written = settingsformat::write(*map);
    const auto again = settingsformat::read(written);
    if (!again || settingsformat::write(*again) != written)
        std::abort();
    for (auto entry = map->cbegin(); entry != map->cend(); ++entry) {
        // Lines that are no keys are numbered anew.
        if (!entry.key().contains(u'\u0001') && again->value(entry.key()) != entry.value())
            std::abort();
    }
    return 0;
}
