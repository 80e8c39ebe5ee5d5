#pragma once

#include <QString>

/// One line of the user's record: what a page calls an input, and what belongs into it.
struct FormField
{
    /// Part of the name that pages give such an input. Not unique: one key can stand several times, with other values.
    QString key;
    /// Can be empty. Days, months and the country are positions in their lists, counted from 1, in decimal.
    QString value;
    /// Stays out of fills while the card details are locked, and out of pages that came over an open path.
    bool isProtected = false;

    bool operator==(const FormField &) const = default;
};
