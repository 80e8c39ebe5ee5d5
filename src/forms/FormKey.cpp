#include "forms/FormKey.h"

#include "base/Files.h"
#include "base/step.h"

#include <QFile>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <sodium.h>

using namespace Qt::StringLiterals;

namespace {

constexpr char kMagic[] = "CVFKEY1\n";
constexpr qsizetype kMagicSize = sizeof kMagic - 1;
constexpr qsizetype kKeyFileSize = kMagicSize + sizeof(FormKey::id) + sizeof(FormKey::secret);

/// One entry for each key, so that a record that was kept aside can still be read.
QString entryOf(const FormKey::Id &id)
{
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(id.data()), id.size());
    return u"Form record "_s + QString::fromLatin1(bytes.toHex());
}

void wipe(QByteArray &bytes)
{
    sodium_memzero(bytes.data(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

FormKey::~FormKey()
{
    sodium_memzero(secret.data(), secret.size());
}

FormKey FormKey::make()
{
    FormKey key;
    if (sodium_init() < 0)
        throw ControlError("no random numbers");
    randombytes_buf(key.id.data(), key.id.size());
    randombytes_buf(key.secret.data(), key.secret.size());
    return key;
}

QByteArray FormKey::bytes() const
{
    QByteArray all;
    all.reserve(kKeyFileSize);
    all.append(kMagic, kMagicSize);
    all.append(reinterpret_cast<const char *>(id.data()), id.size());
    all.append(reinterpret_cast<const char *>(secret.data()), secret.size());
    return all;
}

std::optional<FormKey> FormKey::fromBytes(const QByteArray &bytes)
{
    if (bytes.size() != kKeyFileSize || !bytes.startsWith(kMagic))
        return std::nullopt;
    FormKey key;
    const char *from = bytes.constData() + kMagicSize;
    std::copy_n(from, key.id.size(), key.id.begin());
    std::copy_n(from + key.id.size(), key.secret.size(), key.secret.begin());
    return key;
}

FormKeys::FormKeys(const QString &programFolder, std::unique_ptr<desktop::SecretService> service)
    : m_file(programFolder + u"/form.key"_s)
    , m_service(std::move(service))
{}

FormKeys::~FormKeys() = default;

void FormKeys::readKeyFile()
{
    auto bytes = readFile(m_file, kKeyFileSize);
    if (!bytes)
        return;
    if (auto key = FormKey::fromBytes(*bytes))
        m_key = std::move(key);
    wipe(*bytes);
    if (m_key)
        handOver();
}

const FormKey *FormKeys::find(const FormKey::Id &id)
{
    if (!m_key)
        readKeyFile();
    if (m_key && m_key->id == id)
        return &*m_key;
    if (m_service && !m_isAsking && m_asked != id) {
        m_asked = id;
        ask();
    }
    return nullptr;
}

void FormKeys::ask()
{
    m_isAsking = true;
    const QPointer<FormKeys> self(this);
    m_service->read(entryOf(*m_asked), [self](std::optional<QByteArray> secret) {
        if (!self)
            return;
        self->m_isAsking = false;
        auto key = secret ? FormKey::fromBytes(*secret) : std::nullopt;
        if (secret)
            wipe(*secret);
        if (key && key->id == *self->m_asked) {
            self->m_key = std::move(key);
            emit self->found();
        }
        if (self)
            self->settle();
    });
}

const FormKey &FormKeys::present()
{
    if (!m_key)
        readKeyFile();
    if (m_key)
        return *m_key;
    FormKey key = FormKey::make();
    // What is there now is no key, but it may be what is left of one.
    if (QFile::exists(m_file) && !keepAside(m_file))
        throw ControlError("the key file is in the way");
    QByteArray bytes = key.bytes();
    const bool isWritten = writeFileWhole(m_file, bytes);
    wipe(bytes);
    if (!isWritten)
        throw ControlError("the key cannot be stored");
    m_key = key;
    handOver();
    return *m_key;
}

/// Moves the key from the file into the service. The file goes when the service has given the same key back.
void FormKeys::handOver()
{
    if (!m_service || m_handedOver)
        return;
    m_handedOver = true;
    const QPointer<FormKeys> self(this);
    const QString entry = entryOf(m_key->id);
    m_service->write(entry, m_key->bytes(), [self, entry](bool isWritten) {
        if (!self || !isWritten)
            return;
        self->m_service->read(entry, [self](const std::optional<QByteArray> &secret) {
            if (self && secret && readFile(self->m_file, kKeyFileSize) == secret)
                QFile::remove(self->m_file);
        });
    });
}

void FormKeys::whenSettled(std::function<void()> then)
{
    const bool wasRefused = m_asked && !m_isAsking && (!m_key || m_key->id != *m_asked);
    if (wasRefused && m_service)
        ask();
    if (!m_isAsking) {
        then();
        return;
    }
    m_waiting.push_back(std::move(then));
    QTimer::singleShot(kPatienceMs, this, &FormKeys::settle);
}

void FormKeys::settle()
{
    for (const auto &then : std::exchange(m_waiting, {}))
        then();
}
