#pragma once

#include <QString>
#include <optional>

namespace engine {

/// A folder that one program uses at a time: two engines on one profile hang in each other's data bases. The hold ends
/// with the object, and with the process however that ends.
class ProfileFolder
{
public:
    /// Takes `wanted`, or the first of "<wanted>-2", "<wanted>-3", ... that nobody holds. Makes the folder (0700).
    /// Nothing when none can be made or written to.
    static std::optional<ProfileFolder> take(const QString &wanted);

    ProfileFolder(ProfileFolder &&other) noexcept;
    ProfileFolder &operator=(ProfileFolder &&other) noexcept;
    ~ProfileFolder();

    const QString &path() const { return m_path; }
    /// 1 for the wanted folder, 2 for "<wanted>-2".
    int number() const { return m_number; }

private:
    ProfileFolder(const QString &path, int number, int lock);
    QString m_path;
    int m_number;
    int m_lock;
};

/// Makes a folder with all its parents and gives it to its owner only (0700).
bool makePrivateFolder(const QString &path);

} // namespace engine
