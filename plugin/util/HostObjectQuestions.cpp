#include "util/HostObjectQuestions.h"

namespace vorn {

namespace {

const HostObjectQuestions* inForce = nullptr;

}  // namespace

const HostObjectQuestions* hostObjectQuestions() { return inForce; }

void setHostObjectQuestions(const HostObjectQuestions* questions) { inForce = questions; }

}  // namespace vorn
