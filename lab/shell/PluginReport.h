#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "lab/shell/LabSession.h"
#include "lab/shell/ReportForm.h"
#include "util/Value.h"

namespace vornlab {

// Groups of rows, as the plug-in gives them, in words: one line a row, in columns, with secrets covered.
std::vector<std::string> groupsInWords(const vorn::Value& groups);
void printGroups(const vorn::Value& groups);

// The groups as an object of objects by the groups' names and the rows' keys, behind the first entries.
nlohmann::ordered_json groupsAsJson(const vorn::Value& groups, nlohmann::ordered_json first);
void printGroupsAsJson(const vorn::Value& groups, nlohmann::ordered_json first);

// Has the plug-in fetch the profile of the account, the audio conferences and the people to schedule for, and
// waits for the replies. Answers why there is no profile, or "".
std::string fetchAccount(LabSession& session, double timeoutSeconds);

}  // namespace vornlab
