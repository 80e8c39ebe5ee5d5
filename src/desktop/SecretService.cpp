#include "desktop/SecretService.h"

#include "desktop/Paths.h"

#include <QFileInfo>
#include <qt6keychain/keychain.h>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

/// Under this name the secrets of the program stand together in the user's keyring.
const QString kService = u"Corvane"_s;

class Keychain : public SecretService
{
public:
    void read(const QString &name, std::function<void(std::optional<QByteArray>)> done) override
    {
        auto *job = new QKeychain::ReadPasswordJob(kService);
        job->setKey(name);
        QObject::connect(job, &QKeychain::Job::finished, job, [job, done = std::move(done)] {
            done(job->error() == QKeychain::NoError ? std::optional(job->binaryData()) : std::nullopt);
        });
        job->start();
    }

    void write(const QString &name, const QByteArray &secret, std::function<void(bool)> done) override
    {
        auto *job = new QKeychain::WritePasswordJob(kService);
        job->setKey(name);
        job->setBinaryData(secret);
        QObject::connect(job, &QKeychain::Job::finished, job,
                         [job, done = std::move(done)] { done(job->error() == QKeychain::NoError); });
        job->start();
    }
};

/// Without one, the library would start a bus of its own and wait for it.
bool hasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR", u"/nonexistent"_s) + u"/bus"_s);
}

} // namespace

std::unique_ptr<SecretService> secretServiceOf(const Paths &paths)
{
    if (paths.isSelfContained || !hasSessionBus())
        return nullptr;
    return std::make_unique<Keychain>();
}

} // namespace desktop
