#include "forms/Matching.h"

#include "forms/FieldGuess.h"
#include "forms/FieldNeighbours.h"
#include "forms/FieldText.h"
#include "forms/RecordValues.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The answer for a choice list or a group of buttons, if an alternative fits.
void choose(const FormEntry &entry, const RecordValues &record, std::vector<engine::FormAnswer> &answers)
{
    const FieldGuess &guess = entry.guess;
    const int position = guess.kind == FieldKind::Custom ? optionNamed(*entry.options, record.own.value(guess.own))
                                                         : fittingOption(*entry.options, guess.kind, record);
    if (position < 0)
        return;
    if (entry.buttons.empty())
        answers.push_back({entry.input->number, QString::number(position)});
    else
        answers.push_back({entry.buttons[static_cast<size_t>(position)], u"1"_s});
}

} // namespace

std::vector<engine::FormAnswer> MatchForm(const std::vector<FormField> &fields, const engine::FrameForm &frame,
                                          bool locked)
{
    const RecordValues record(fields, !locked && frame.secure);
    std::vector<engine::FormInput> few;
    const bool isTooMany = frame.inputs.size() > kMostInputs;
    if (isTooMany)
        few.assign(frame.inputs.begin(), frame.inputs.begin() + kMostInputs);
    FormEntries form(isTooMany ? few : frame.inputs);
    std::vector<FormEntry> &entries = form.all();
    for (FormEntry &entry : entries)
        entry.guess = guessOf(entry, record.ownKeys);
    settleNeighbours(entries, record);

    const bool hasSecondLine =
        std::ranges::any_of(entries, [](const FormEntry &entry) { return entry.guess.kind == FieldKind::Address2; });
    std::vector<engine::FormAnswer> answers;
    for (const FormEntry &entry : entries) {
        if (entry.isList()) {
            choose(entry, record, answers);
        } else if (canTake(*entry.input, entry.guess.kind)) {
            const QString text = textFor(entry, record, hasSecondLine);
            if (!text.isEmpty())
                answers.push_back({entry.input->number, text});
        }
    }
    return answers;
}
