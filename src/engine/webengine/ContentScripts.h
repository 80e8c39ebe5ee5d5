#pragma once

#include <QString>

/// The parts of the content policy that happen inside a document.
namespace engine {

/// What the script of `contentScript` is to do in the documents that come.
struct ContentScriptOptions
{
    /// Of the channel; the script asks with it whether Flash is off.
    QString token;
    bool hasVideo = true;
    bool hasPlugins = true;
};

/// For a world of its own, in every frame: asks `engine://content/flash` about the first Flash element and puts a box
/// in the place of each when the answer is "block", tells `engine://content/read` and `/loaded` how far the page has
/// come, and keeps videos and plug-in content away where the options say so.
QString contentScript(const ContentScriptOptions &options);

/// For the same world of the page itself: what the answer "block" does.
QString blockFlashScript();

/// For the pages' own world: keeps videos from loading that are not part of the document, or in a shadow tree.
QString videoScript(const QString &token);

/// For the pages' own world: takes WebAssembly away.
QString javaScript(const QString &token);

} // namespace engine
