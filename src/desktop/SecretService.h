#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

namespace desktop {

struct Paths;

/// Keeps small secrets of the user, as the keyring of a desktop does. Answers come later, from the event loop and at
/// most once: a service that hangs never answers, and one that asks the user for a password takes as long as he does.
class SecretService
{
public:
    virtual ~SecretService() = default;
    /// Nothing: there is no such secret, or it was refused.
    virtual void read(const QString &name, std::function<void(std::optional<QByteArray> secret)> done) = 0;
    virtual void write(const QString &name, const QByteArray &secret, std::function<void(bool written)> done) = 0;
};

/// The secret service of this session. Null without a session bus, which is the only way to one, and for a run that has
/// all its files below one folder: that folder holds its secrets itself, so that it can be moved.
std::unique_ptr<SecretService> secretServiceOf(const Paths &paths);

} // namespace desktop
