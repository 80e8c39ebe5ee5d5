#pragma once

#include "forms/FieldGuess.h"
#include "forms/RecordValues.h"

/// Settles what single inputs leave open by what stands beside them: dates and numbers that are split over several
/// inputs, "name" beside a last name, a second line of an address. `entries` are those of one frame in document order.
void settleNeighbours(std::vector<FormEntry> &entries, const RecordValues &record);
