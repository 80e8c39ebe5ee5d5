#pragma once

#include "engine/FormRecord.h"
#include "forms/FieldKind.h"
#include "forms/RecordValues.h"

/// What the alternatives of a choice list show by themselves.
enum class ListContent {
    Unknown,
    Days,
    Months,
    /// Of four digits, shown or meant.
    Years,
    Countries,
    /// Codes to dial: "+49".
    CallingCodes,
    CardTypes,
    Titles,
    Sexes
};

ListContent contentOf(const std::vector<engine::FormOption> &options);

/// The position of the alternative that says what the record has for this kind, counted from 0; -1 when none does.
int fittingOption(const std::vector<engine::FormOption> &options, FieldKind kind, const RecordValues &record);
/// The position of the alternative whose text or value is this text, ignoring case, accents and marks; -1 for none.
int optionNamed(const std::vector<engine::FormOption> &options, const QString &text);

/// 1 to 12 for the name of a month in one of the usual languages, or for a number; 0 for anything else. Other digits
/// and words may stand beside it ("03 - March").
int monthOf(const QString &text);
