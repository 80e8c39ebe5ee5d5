#pragma once

#include <QStringView>
#include <span>

/// One country of the record. Its position in the list, counted from 1, is what the record stores first.
struct Country
{
    QStringView code;
    QStringView name;
};

/// All 236, in the order of the list. Codes and names are those that the forms of pages use, former states included.
std::span<const Country> countries();
