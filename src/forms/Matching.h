#pragma once

#include "engine/FormRecord.h"
#include "forms/FormField.h"

#include <vector>

/// What belongs into the inputs of one frame: for each one that the record has something for, in document order. What
/// an input is for, its autocomplete token, its name, its texts and its neighbours tell, in this order of weight; where
/// they leave a doubt, it stays empty. `locked` leaves protected fields out, and so does a frame that is not secure.
/// Linear in the inputs and their options; of more than `kMostInputs` the rest stays empty.
std::vector<engine::FormAnswer> MatchForm(const std::vector<FormField> &fields, const engine::FrameForm &frame,
                                          bool locked);

/// No form for people has as many.
inline constexpr size_t kMostInputs = 5000;
