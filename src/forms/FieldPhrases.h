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

/// Words of the record that a word in front of them gives to somebody else ("Dealer city"), parted by "|".
QStringView ownedPhrases();
/// Words in front of those that leave them with the user ("Billing city").
QStringView ownWords();
/// Words behind a word of the record that give it to what follows ("Name of the dog"), and what leaves it with the user
/// there ("Nom du titulaire").
QStringView particleWords();
QStringView ownNouns();
