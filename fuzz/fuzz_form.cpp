#include "forms/FormFile.h"

#include <cstdint>
#include <cstdlib>

/// form.bin with a key that the input cannot know, and the text of a field as it stands behind the encryption.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const FormKey key = FormKey::make();
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (!formfile::read(input, key).fields.empty())
        std::abort();

    // With the head and the stream's header of a real file, the input is its messages.
    const QByteArray whole = formfile::write({{QStringLiteral("key"), QStringLiteral("value"), true}}, key);
    const qsizetype firstMessage = 8 + 1 + 16 + 24;
    if (!formfile::read(whole.first(firstMessage) + input, key).fields.empty())
        std::abort();
    const formfile::Content longer = formfile::read(whole + input, key);
    if (longer.fields.size() != 1 || longer.isWhole != input.isEmpty())
        std::abort();

    const auto field = formfile::decode(input);
    if (field && formfile::encode(*field) != input)
        std::abort();
    return 0;
}
