#include "forms/FormFile.h"

#include "base/step.h"

#include <QtEndian>
#include <sodium.h>

namespace formfile {
namespace {

constexpr char kMagic[] = "CVFORM\r\n";
constexpr qsizetype kMagicSize = sizeof kMagic - 1;
constexpr char kVersion = 1;
/// Magic, version and key id: what every message is bound to.
constexpr qsizetype kHeadSize = kMagicSize + 1 + sizeof(FormKey::Id);
constexpr qsizetype kStreamHeaderSize = crypto_secretstream_xchacha20poly1305_HEADERBYTES;
constexpr qsizetype kOverhead = crypto_secretstream_xchacha20poly1305_ABYTES;
constexpr qsizetype kLengthSize = 4;
constexpr qsizetype kBlock = 64;
/// Flag and the two lengths in front of the texts of a field.
constexpr qsizetype kFieldHead = 1 + 2 * kLengthSize;

using Stream = crypto_secretstream_xchacha20poly1305_state;

const unsigned char *bytesOf(const QByteArray &array, qsizetype from = 0)
{
    return reinterpret_cast<const unsigned char *>(array.constData()) + from;
}

void appendNumber(QByteArray &to, qsizetype number)
{
    const auto little = qToLittleEndian(static_cast<quint32>(number));
    to.append(reinterpret_cast<const char *>(&little), sizeof little);
}

void appendText(QByteArray &to, const QString &text)
{
    for (const QChar unit : text) {
        to.append(static_cast<char>(unit.unicode() & 0xFF));
        to.append(static_cast<char>(unit.unicode() >> 8));
    }
}

QString textAt(const QByteArray &from, qsizetype position, qsizetype units)
{
    QString text(units, Qt::Uninitialized);
    for (qsizetype i = 0; i < units; ++i)
        text[i] = QChar(qFromLittleEndian<quint16>(from.constData() + position + 2 * i));
    return text;
}

void appendMessage(QByteArray &file, Stream &stream, const QByteArray &head, const QByteArray &text, unsigned char tag)
{
    QByteArray sealed(text.size() + kOverhead, Qt::Uninitialized);
    crypto_secretstream_xchacha20poly1305_push(&stream, reinterpret_cast<unsigned char *>(sealed.data()), nullptr,
                                               bytesOf(text), static_cast<unsigned long long>(text.size()),
                                               bytesOf(head), kHeadSize, tag);
    appendNumber(file, sealed.size());
    file.append(sealed);
}

/// The text of the message at `position`, which moves behind it; nothing when it is damaged or cut off.
std::optional<QByteArray> takeMessage(const QByteArray &file, qsizetype &position, Stream &stream, unsigned char &tag)
{
    if (file.size() - position < kLengthSize)
        return std::nullopt;
    const qsizetype size = qFromLittleEndian<quint32>(file.constData() + position);
    if (size < kOverhead || size > file.size() - position - kLengthSize)
        return std::nullopt;
    QByteArray text(size - kOverhead, Qt::Uninitialized);
    const int fault = crypto_secretstream_xchacha20poly1305_pull(
        &stream, reinterpret_cast<unsigned char *>(text.data()), nullptr, &tag, bytesOf(file, position + kLengthSize),
        static_cast<unsigned long long>(size), bytesOf(file), kHeadSize);
    if (fault != 0)
        return std::nullopt;
    position += kLengthSize + size;
    return text;
}

} // namespace

QByteArray encode(const FormField &field)
{
    QByteArray text;
    text.append(field.isProtected ? '\1' : '\0');
    appendNumber(text, field.key.size());
    appendNumber(text, field.value.size());
    appendText(text, field.key);
    appendText(text, field.value);
    return text;
}

std::optional<FormField> decode(const QByteArray &text)
{
    if (text.size() < kFieldHead)
        return std::nullopt;
    const auto keyUnits = static_cast<qsizetype>(qFromLittleEndian<quint32>(text.constData() + 1));
    const auto valueUnits = static_cast<qsizetype>(qFromLittleEndian<quint32>(text.constData() + 1 + kLengthSize));
    if (kFieldHead + 2 * (keyUnits + valueUnits) != text.size() || static_cast<unsigned char>(text[0]) > 1)
        return std::nullopt;
    return FormField{textAt(text, kFieldHead, keyUnits), textAt(text, kFieldHead + 2 * keyUnits, valueUnits),
                     text[0] == '\1'};
}

std::optional<FormKey::Id> keyIdOf(const QByteArray &file)
{
    if (file.size() < kHeadSize + kStreamHeaderSize || !file.startsWith(kMagic) || file[kMagicSize] != kVersion)
        return std::nullopt;
    FormKey::Id id;
    std::copy_n(file.constData() + kMagicSize + 1, id.size(), id.begin());
    return id;
}

Content read(const QByteArray &file, const FormKey &key)
{
    Content content;
    Stream stream;
    if (keyIdOf(file) != key.id || sodium_init() < 0 ||
        crypto_secretstream_xchacha20poly1305_init_pull(&stream, bytesOf(file, kHeadSize), key.secret.data()) != 0)
        return content;
    qsizetype position = kHeadSize + kStreamHeaderSize;
    unsigned char tag = 0;
    while (auto text = takeMessage(file, position, stream, tag)) {
        if (tag == crypto_secretstream_xchacha20poly1305_TAG_FINAL) {
            content.isWhole = text->isEmpty() && position == file.size();
            break;
        }
        std::size_t size = 0;
        if (sodium_unpad(&size, bytesOf(*text), static_cast<std::size_t>(text->size()), kBlock) != 0)
            break;
        text->truncate(static_cast<qsizetype>(size));
        auto field = decode(*text);
        sodium_memzero(text->data(), static_cast<std::size_t>(text->size()));
        if (!field)
            break;
        content.fields.push_back(std::move(*field));
    }
    sodium_memzero(&stream, sizeof stream);
    return content;
}

QByteArray write(const std::vector<FormField> &fields, const FormKey &key)
{
    if (sodium_init() < 0)
        throw ControlError("no encryption");
    QByteArray file(kMagic, kMagicSize);
    file.append(kVersion);
    file.append(reinterpret_cast<const char *>(key.id.data()), key.id.size());
    const QByteArray head = file;
    file.resize(kHeadSize + kStreamHeaderSize);
    Stream stream;
    crypto_secretstream_xchacha20poly1305_init_push(&stream, reinterpret_cast<unsigned char *>(file.data()) + kHeadSize,
                                                    key.secret.data());
    for (const FormField &field : fields) {
        QByteArray text = encode(field);
        const auto size = static_cast<std::size_t>(text.size());
        text.resize((text.size() / kBlock + 1) * kBlock);
        sodium_pad(nullptr, reinterpret_cast<unsigned char *>(text.data()), size, kBlock,
                   static_cast<std::size_t>(text.size()));
        appendMessage(file, stream, head, text, crypto_secretstream_xchacha20poly1305_TAG_MESSAGE);
        sodium_memzero(text.data(), static_cast<std::size_t>(text.size()));
    }
    appendMessage(file, stream, head, QByteArray(), crypto_secretstream_xchacha20poly1305_TAG_FINAL);
    sodium_memzero(&stream, sizeof stream);
    return file;
}

} // namespace formfile
