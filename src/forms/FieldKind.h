#pragma once

#include <QtGlobal>

/// What an input of a page asks for.
enum class FieldKind : quint8 {
    /// Nothing is known about it.
    None,
    Title,
    Sex,
    User,
    FullName,
    FirstName,
    LastName,
    Phone,
    /// Parts of a split phone number, in its order.
    PhoneCountry,
    PhoneArea,
    PhoneLocal,
    PhonePrefix,
    PhoneSuffix,
    Fax,
    BirthDate,
    BirthDay,
    BirthMonth,
    BirthYear,
    Mail,
    Job,
    /// Street and house number, or all there is about the street when no second line follows.
    Address1,
    Address2,
    /// Several lines in one input.
    Street,
    HouseNumber,
    Country,
    City,
    State,
    Zip,
    CardType,
    CardNumber,
    CardCode,
    CardDate,
    CardMonth,
    CardYear,
    Bank,
    /// A field of the user's own.
    Custom,

    // What words alone can say; neighbours decide what becomes of it.
    Day,
    Month,
    Year,
    /// A word for a card, which gives the words beside it their sense.
    CardWord,
    /// Words for who sends something and who gets it. Where a page has both, the user is the one who sends.
    Sender,
    Recipient,
    /// A word for one of several people; a number beside it tells which one.
    Companion,
    /// Something that the record does not hold.
    Other,
    /// Never to be filled, whatever else is said about it.
    Never,
    /// A word that only looks as if it held another one.
    Trap,
};

/// A set of kinds.
class FieldKinds
{
public:
    void add(FieldKind kind) { m_bits |= bit(kind); }
    void add(FieldKinds kinds) { m_bits |= kinds.m_bits; }
    bool has(FieldKind kind) const { return (m_bits & bit(kind)) != 0; }
    template <typename... Kinds>
    bool hasAny(Kinds... kinds) const
    {
        return (has(kinds) || ...);
    }

private:
    static quint64 bit(FieldKind kind) { return quint64(1) << static_cast<int>(kind); }

    quint64 m_bits = 0;
};

/// One of the details of a bank card.
inline bool isCard(FieldKind kind)
{
    return kind >= FieldKind::CardType && kind <= FieldKind::CardYear;
}
inline bool isBirth(FieldKind kind)
{
    return kind >= FieldKind::BirthDate && kind <= FieldKind::BirthYear;
}
/// A part of a date that may be any.
inline bool isDatePart(FieldKind kind)
{
    return kind == FieldKind::Day || kind == FieldKind::Month || kind == FieldKind::Year;
}
inline bool isName(FieldKind kind)
{
    return kind == FieldKind::FullName || kind == FieldKind::FirstName || kind == FieldKind::LastName;
}
inline bool isPhone(FieldKind kind)
{
    return kind >= FieldKind::Phone && kind <= FieldKind::PhoneSuffix;
}
