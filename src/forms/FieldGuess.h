#pragma once

#include "engine/FormRecord.h"
#include "forms/FieldKind.h"
#include "forms/FormChoices.h"

#include <deque>
#include <vector>

/// What an input seems to be for.
struct FieldGuess
{
    FieldKind kind = FieldKind::None;
    /// Its autocomplete token says so.
    bool byToken = false;
    /// Its name or id says so, not only a text beside it.
    bool byName = false;
    /// A word says so that could mean anything else; its neighbours may know better.
    bool isWeak = false;
    /// A text beside it asks for first and last name in one.
    bool isWholeName = false;
    /// It asks for the name of somebody else.
    bool isStranger = false;
    /// Which one of several people it is about, -1 when that is not said.
    int person = -1;
    /// Everything that is said about it.
    FieldKinds said;
    /// Number of the user's own field when it is one.
    int own = -1;
};

/// One input of a form, or all radio buttons of one name: what gets one value.
struct FormEntry
{
    /// The first radio button stands for its group.
    const engine::FormInput *input = nullptr;
    /// Of a choice list, or made of the radio buttons; null for text.
    const std::vector<engine::FormOption> *options = nullptr;
    /// The numbers of the radio buttons, in the order of the options; empty for a list.
    std::vector<int> buttons;
    /// What the options show.
    ListContent content = ListContent::Unknown;
    FieldGuess guess;

    /// Only part of a number belongs into this one of several inputs: `length` digits from `from`.
    int from = 0;
    int length = -1;
    /// The country's code of a telephone has an input of its own beside this one.
    bool withoutCountry = false;
    /// The house number has an input of its own beside this one of the street.
    bool withoutHouseNumber = false;

    bool isList() const { return options != nullptr; }
    int maxLength() const { return input->maxLength; }
};

/// The entries of a frame, in document order.
class FormEntries
{
public:
    explicit FormEntries(const std::vector<engine::FormInput> &inputs);

    std::vector<FormEntry> &all() { return m_entries; }

private:
    std::vector<FormEntry> m_entries;
    /// Options of radio buttons; a deque never moves them.
    std::deque<std::vector<engine::FormOption>> m_made;
};

/// Whether an input of this type can take what this kind is.
bool canTake(const engine::FormInput &input, FieldKind kind);

/// What the attributes and texts of one entry say about it. A known autocomplete token decides; then its name; then its
/// id, label and the rest. `ownKeys`: of the user's own fields.
FieldGuess guessOf(const FormEntry &entry, const OwnKeys &ownKeys);
