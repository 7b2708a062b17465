#include "lab/shell/ReportForm.h"

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "util/vStringUtils.h"

namespace vornlab {

void printJsonLine(const nlohmann::ordered_json& object) {
  std::puts(object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace).c_str());
  std::fflush(stdout);
}

void printJson(const vorn::Value& object) {
  std::printf("%s\n", vorn::vStringUtils::toJSONString(object).value_or("{}").c_str());
}

double roundedSeconds(double seconds) { return std::round(seconds * 1000) / 1000; }

}  // namespace vornlab
