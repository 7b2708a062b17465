#pragma once

#include <string>

#include "platform/controls/ControlSet.h"

namespace vorn {

// The e-mail of the person whom the panel's controls schedule for; "" for oneself. The record may still be
// another's.
std::string chosenPerson(const ControlSet& controls);

}  // namespace vorn
