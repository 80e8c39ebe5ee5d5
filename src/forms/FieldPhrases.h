#pragma once

#include "forms/FieldKind.h"

#include <QStringView>
#include <span>

/// Words that say what an input is.
struct FieldPhrases
{
    FieldKind kind;
    /// True for words that only place an input ("address", "user") or may name anything ("name"): they give way to
    /// those that say what it is, wherever those stand.
    bool isWeak;
    /// Parted by "|". Accents, capitals and blanks don't matter. "=" in front: only where a word begins and another one
    /// ends, as for all of less than four letters; "~" in front of such a short one: in parts of words, too; "^": only
    /// where nothing else is said beside it; "'": only in texts for people, where words begin and end.
    QStringView phrases;
};

/// In the order in which they count: the one of the record, but that what the record does not hold stands where it
/// takes its own from the others.
std::span<const FieldPhrases> fieldPhrases();
