#pragma once

#include "forms/FieldKind.h"
#include "forms/FieldWords.h"

#include <QString>
#include <vector>

/// What one text of an input says about it.
struct TextReading
{
    FieldKind kind = FieldKind::None;
    /// Its word says too little by itself; a better one elsewhere counts more.
    bool isWeak = false;
    /// It stands in front of another part of a path that says something of its own ("address" in "address[note]").
    bool isFar = false;
    /// It is something that the record does not hold, by the first word of all and one that counts before the record's.
    bool isForeign = false;
    /// It gives a word of the record to somebody or something else; the name of a person when it is one.
    bool isOfOther = false;
    bool isStranger = false;
    /// It counts what it asks for: "line 2".
    bool isSecond = false;
    /// Its word is all there is in a name.
    bool isAlone = false;
    /// The number beside a word for one of several people, -1 for none.
    int person = -1;
    /// It speaks of a name of first and last name.
    bool isWholeName = false;
    /// There are letters in it at all.
    bool hasLetters = false;
    /// Everything that is said, also what does not decide.
    FieldKinds said;
};

/// Reads a name or an id by the rule of names: of the words of the record that are contained in it, ignoring case, the
/// first one in the order of the record counts. Whole words count before parts of words, the last part of a path before
/// the others, and what a word is contained in ("zip" in "zip4") before the word.
TextReading readName(const QString &name);
/// Reads a label or another text for people: of its words the first one counts, and a remark in brackets least.
TextReading readProse(const QString &text);

/// Where keys of the user's own stand in the name of an input.
class OwnKeys
{
public:
    /// The place of a key in the list is its number here.
    void add(const QString &key, int number);
    /// The number of the first key that is contained in the name as words, else of the first one that is contained in
    /// one; -1 for none.
    int find(const FieldWords &name) const;
    bool isEmpty() const { return m_keys.empty(); }

private:
    struct Key
    {
        QString letters;
        int number;
    };
    std::vector<Key> m_keys;
};
