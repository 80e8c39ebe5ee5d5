#pragma once

#include "forms/FieldKind.h"

#include <QStringView>

/// What the autocomplete attribute of an input says.
struct TokenReading
{
    /// None when the attribute holds no known token; Never when it forbids to fill the input.
    FieldKind kind = FieldKind::None;
    /// A password is what it is said to be for.
    bool isPassword = false;
};

/// Reads the token of a field, the last known one; those of a section, an address or a place ("shipping", "work")
/// change nothing, but that a telephone of the kind "fax" is a fax.
TokenReading readToken(QStringView autocomplete);
