#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace vornlab {

// Reads members of a document that came from outside: a member that is missing or of another kind gives the empty
// value.
bool flagOf(const nlohmann::json& object, const char* name);
std::int64_t numberOf(const nlohmann::json& object, const char* name, std::int64_t fallback = 0);
std::string textOf(const nlohmann::json& object, const char* name);
const nlohmann::json& memberOf(const nlohmann::json& object, const char* name);  // null when missing

// The texts of a list, or the parts of a text between ";" or ",", without empty ones.
std::vector<std::string> listOf(const nlohmann::json& object, const char* name);

}  // namespace vornlab
