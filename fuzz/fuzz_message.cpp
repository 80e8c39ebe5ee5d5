#include "desktop/instance/Instance.h"

#include <cstdlib>

/// Bytes from the socket of a marked window; the same bytes as a command line.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    instance::CopyData message;
    if (instance::decode(bytes, message) == instance::Decoded::Complete) {
        if (message.bytes.empty() || message.bytes.size() > instance::kMaxBytes ||
            !bytes.starts_with(instance::serialize(message)))
            std::abort();
    }

    const instance::CopyData sent = instance::handOverMessage(bytes);
    instance::CopyData received;
    if (sent.bytes.size() <= instance::kMaxBytes &&
        (instance::decode(instance::serialize(sent), received) != instance::Decoded::Complete ||
         received.bytes != sent.bytes || received.dwData != sent.dwData))
        std::abort();
    return 0;
}
