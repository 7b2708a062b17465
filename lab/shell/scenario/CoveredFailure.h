#pragma once

#include "lab/shell/scenario/ScenarioPlayer.h"

namespace vornlab {

// A failure as others may read it: secrets are covered in the command, in what was expected and in what was found.
// A line that is about a secret, such as one that types a passcode, has nothing in it by which the secret could be
// known for one; it is known by the line's words.
ScenarioFailure coveredFailure(const ScenarioFailure& failure);

}  // namespace vornlab
