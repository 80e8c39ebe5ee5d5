#pragma once

#include "forms/FormField.h"
#include "forms/FormKey.h"

#include <QByteArray>
#include <optional>
#include <vector>

/// The content of form.bin: an encrypted list of fields, version 1.
///
///     8   magic "CVFORM\r\n"
///     1   version
///     16  id of the key
///     24  header of the stream
///     then messages: 4 bytes length, and as many bytes of XChaCha20-Poly1305 (libsodium's secretstream)
///
/// Each message is one field; the last one is empty and carries the stream's end mark. Magic, version and id of the key
/// are authenticated with every message. The text of a message is padded to a multiple of 64 bytes, so that the file
/// does not tell how long a value is:
///
///     1   1 for a protected field, else 0
///     4   number of UTF-16 units of the key
///     4   number of UTF-16 units of the value
///     then both, in UTF-16, unit by unit, since a text box takes halves of characters too
///
/// All numbers are little endian.
namespace formfile {

struct Content
{
    /// What could be authenticated, in order.
    std::vector<FormField> fields;
    /// Nothing is missing, damaged or left over.
    bool isWhole = false;
};

/// Largest file that is read, in bytes. A record of 75 fields with full text boxes stays far below.
inline constexpr qint64 kLimit = 16 * 1024 * 1024;

/// The id of the key that opens a file; nothing when it is no file of this version.
std::optional<FormKey::Id> keyIdOf(const QByteArray &file);
/// Reads up to the first damage.
Content read(const QByteArray &file, const FormKey &key);
QByteArray write(const std::vector<FormField> &fields, const FormKey &key);

/// One field as the text of a message, without padding, and back.
QByteArray encode(const FormField &field);
std::optional<FormField> decode(const QByteArray &text);

} // namespace formfile
