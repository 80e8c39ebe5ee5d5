#pragma once

#include "engine/PageFacets.h"

class QFileDialog;

namespace engine {

/// A file name without an ending that any file system takes, made from a page's title; from the last part of its
/// address, or its host, when the title leaves nothing.
QString fileNameFor(const PageInfo &info);

/// Asks where to save a page and in which form, without an event loop. The dialog belongs to `parent` and deletes
/// itself; `chosen` gets a path that has the ending of its format.
QFileDialog *showSaveDialog(const PageInfo &info, const QString &folder, QWidget *parent,
                            std::function<void(const QString &path, SaveFormat format)> chosen);

} // namespace engine
