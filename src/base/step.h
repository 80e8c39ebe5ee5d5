#pragma once

#include <stdexcept>
#include <utility>

/// An accessor of a control or of a table that was asked for something that is not there: a position outside a
/// collection, a key that nobody has, a text that does not convert. The one exception of the program.
class ControlError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Runs one statement of a routine that ignores errors step by step: a ControlError costs this step only and the
/// routine goes on with the next one. Nothing else is swallowed. Returns whether the step went through.
template <typename Statement>
bool step(Statement &&statement)
{
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const ControlError &) {
        return false;
    }
}
