#pragma once

#include "desktop/SecretService.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// What form.bin is encrypted with, and the name that the file knows it by. Wiped when it goes.
struct FormKey
{
    using Id = std::array<unsigned char, 16>;

    Id id{};
    std::array<unsigned char, 32> secret{};

    FormKey() = default;
    FormKey(const FormKey &) = default;
    FormKey &operator=(const FormKey &) = default;
    ~FormKey();

    /// A new one, from the system's random numbers.
    static FormKey make();
    /// Magic, id and secret, as the key file and the secret service hold them.
    QByteArray bytes() const;
    static std::optional<FormKey> fromBytes(const QByteArray &bytes);
};

/// The key of one program folder for the whole run. It is in the secret service of the desktop when there is one, else
/// in the file form.key (0600) of the folder. Nobody ever waits for the service: a new key stands in the file until the
/// service has been seen to give it back.
class FormKeys : public QObject
{
    Q_OBJECT
public:
    /// `service` may be null.
    explicit FormKeys(const QString &programFolder, std::unique_ptr<desktop::SecretService> service = nullptr);
    ~FormKeys() override;

    /// The key of this id when it is known or in the key file. Otherwise null, and the service is asked, once: found()
    /// follows when it has the key.
    const FormKey *find(const FormKey::Id &id);
    /// The key to write with: the one that was found last, else the one in the key file, else a new one. Throws
    /// ControlError when a new one cannot be stored.
    const FormKey &present();
    /// Runs `then` as soon as no answer of the service is awaited any more, at once if none is, and after `kPatienceMs`
    /// at the latest. A key that the service has refused before is asked for again first.
    void whenSettled(std::function<void()> then);

    static constexpr int kPatienceMs = 10000;

signals:
    void found();

private:
    void readKeyFile();
    void ask();
    void settle();
    void handOver();

    QString m_file;
    std::unique_ptr<desktop::SecretService> m_service;
    std::optional<FormKey> m_key;
    /// The id that the service was asked for last.
    std::optional<FormKey::Id> m_asked;
    bool m_isAsking = false;
    bool m_handedOver = false;
    std::vector<std::function<void()>> m_waiting;
};
