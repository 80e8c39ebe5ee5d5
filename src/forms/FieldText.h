#pragma once

#include "forms/FieldGuess.h"
#include "forms/RecordValues.h"

/// What to write into a text input. Empty when the record has nothing for it, or nothing that the input can take: a
/// value is never cut, only written in a shorter way where there is one (a card number without blanks).
/// `hasSecondLine`: the frame has an input for the second line of an address.
QString textFor(const FormEntry &entry, const RecordValues &record, bool hasSecondLine);
