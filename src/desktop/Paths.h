#pragma once

#include <QString>

namespace desktop {

/// Where the files of a run live. Taken once at start and handed on; tests make their own.
struct Paths
{
    /// The program folder (App.Path): $CORVANE_HOME if set; else the executable's folder if it holds a file
    /// "portable"; else the user's data folder for Corvane.
    QString programFolder;
    /// The settings file.
    QString settingsFile;
    /// Folder of the engine's profile (cookies, storage) and its cache.
    QString profileFolder;
    QString cacheFolder;
    /// The visit file.
    QString visitFile;
    /// Folder of the lock and of the sockets of marked windows (0700).
    QString runtimeFolder;
    QString downloadFolder;
    /// Everything lies below one folder, which can be moved to another machine as it is.
    bool isSelfContained = false;

    /// Reads the environment. Makes the folders that are missing, readable by their owner only; a folder that cannot be
    /// made is no error here.
    static Paths fromEnvironment();
    /// All below one folder.
    static Paths below(const QString &folder);
};

} // namespace desktop
