#pragma once

#include <QString>

namespace engine {

/// The page's side of filling: the .js files here as one script, with %TOKEN% where the token goes.
const QString &fillScript();

} // namespace engine
