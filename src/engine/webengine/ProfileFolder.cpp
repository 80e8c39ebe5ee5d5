#include "engine/webengine/ProfileFolder.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace engine {

bool makePrivateFolder(const QString &path)
{
    return QDir().mkpath(path) && QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

std::optional<ProfileFolder> ProfileFolder::take(const QString &wanted)
{
    // Nobody runs more programs than this side by side; the bound ends the search where locks don't work at all.
    constexpr int kMost = 50;
    for (int number = 1; number <= kMost; ++number) {
        const QString path = number == 1 ? wanted : u"%1-%2"_s.arg(wanted).arg(number);
        if (!makePrivateFolder(path))
            return std::nullopt;
        // Closed on exec: the engine's own processes must not go on holding the lock when this one has died.
        const int lock = ::open(QFile::encodeName(path + "/lock"_L1).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (lock < 0)
            return std::nullopt;
        if (::flock(lock, LOCK_EX | LOCK_NB) == 0)
            return ProfileFolder(path, number, lock);
        ::close(lock);
    }
    return std::nullopt;
}

ProfileFolder::ProfileFolder(const QString &path, int number, int lock)
    : m_path(path)
    , m_number(number)
    , m_lock(lock)
{}

ProfileFolder::ProfileFolder(ProfileFolder &&other) noexcept
    : m_path(std::move(other.m_path))
    , m_number(other.m_number)
    , m_lock(std::exchange(other.m_lock, -1))
{}

ProfileFolder &ProfileFolder::operator=(ProfileFolder &&other) noexcept
{
    std::swap(m_path, other.m_path);
    std::swap(m_number, other.m_number);
    std::swap(m_lock, other.m_lock);
    return *this;
}

ProfileFolder::~ProfileFolder()
{
    if (m_lock >= 0)
        ::close(m_lock);
}

} // namespace engine
