#pragma once
// Sentences for the notes an analysis leaves where its kept arithmetic rules changed a number
// from its textbook value (support/kept_rules.h), for example:
//   The mean angle of "East" (Data!$B$2:$B$20) reads 315: a mean direction in the third quadrant
//   is reported reflected into the fourth; its direction is 225 (--textbook gives it).
// The command says them as warnings, after the ones it found itself; the Calc extension shows
// the same sentences after a run from its dialog.

#include <string>
#include <vector>

#include "support/kept_rules.h"

namespace orv::cli {

std::string noteSentence(const ArithmeticNote& note);

// Appends one sentence per note to `warnings`.
void addNoteWarnings(const std::vector<ArithmeticNote>& notes, std::vector<std::string>& warnings);

}  // namespace orv::cli
