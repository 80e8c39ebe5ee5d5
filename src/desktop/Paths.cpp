#include "desktop/Paths.h"

#include "desktop/instance/Instance.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

/// Name of the program's folder in each of the user's folders.
const QString kName = u"Corvane"_s;

void makeFolder(const QString &folder)
{
    if (!QFileInfo::exists(folder) && QDir().mkpath(folder))
        QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

QString userFolder(QStandardPaths::StandardLocation location)
{
    return QStandardPaths::writableLocation(location) + u'/' + kName;
}

/// Files of the program folder that the program makes by itself.
void placeInProgramFolder(Paths &paths)
{
    paths.profileFolder = paths.programFolder + u"/Profile"_s;
    paths.visitFile = paths.programFolder + u"/visits.sqlite"_s;
}

void makeFolders(const Paths &paths)
{
    makeFolder(paths.programFolder);
    makeFolder(QFileInfo(paths.settingsFile).path());
    makeFolder(paths.profileFolder);
    makeFolder(paths.cacheFolder);
}

} // namespace

Paths Paths::fromEnvironment()
{
    const QString home = qEnvironmentVariable("CORVANE_HOME");
    const QString executableFolder = QCoreApplication::applicationDirPath();
    Paths paths;
    if (!home.isEmpty()) {
        paths = below(QDir(home).absolutePath());
    } else if (QFileInfo::exists(executableFolder + u"/portable"_s)) {
        paths = below(executableFolder);
        paths.downloadFolder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    } else {
        paths.programFolder = userFolder(QStandardPaths::GenericDataLocation);
        placeInProgramFolder(paths);
        paths.settingsFile = userFolder(QStandardPaths::GenericConfigLocation) + u"/settings.ini"_s;
        paths.cacheFolder = userFolder(QStandardPaths::GenericCacheLocation);
        paths.downloadFolder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
        makeFolders(paths);
    }
    paths.runtimeFolder = QFile::decodeName(QByteArray::fromStdString(instance::runtimeFolder()));
    return paths;
}

Paths Paths::below(const QString &folder)
{
    Paths paths;
    paths.programFolder = folder;
    placeInProgramFolder(paths);
    paths.settingsFile = folder + u"/settings.ini"_s;
    paths.cacheFolder = folder + u"/Cache"_s;
    paths.runtimeFolder = folder + u"/run"_s;
    paths.downloadFolder = folder + u"/Downloads"_s;
    paths.isSelfContained = true;
    makeFolders(paths);
    makeFolder(paths.runtimeFolder);
    return paths;
}

} // namespace desktop
