#pragma once

#include <QString>
#include <memory>

namespace engine {

class Engine;

/// Where the engine keeps its things. Folders are made when they are missing, readable by their owner only.
struct EngineConfig
{
    /// Cookies, site storage, permissions. A second program that uses the same one gets "<folder>-2" and so on.
    QString profileFolder;
    QString cacheFolder;
    /// The file of visits.
    QString visitFile;
    QString downloadFolder;
};

/// Makes the program's own address schemes known. Call it before the application object is made.
void registerSchemes();

/// The engine over Qt WebEngine. It has to be gone before the application object, and every browser before it.
std::unique_ptr<Engine> makeWebEngine(const EngineConfig &config);

} // namespace engine
