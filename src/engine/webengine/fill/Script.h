#pragma once

#include <QString>

namespace engine {

/// The page's side of filling: Sight.js, Inputs.js and Run.js as one script, with %TOKEN% where the token goes.
const QString &fillScript();

} // namespace engine
