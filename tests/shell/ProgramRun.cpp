#include "tests/shell/ProgramRun.h"

#include <fstream>
#include <sstream>

#include "tests/support/RunningProgram.h"

namespace vornlab::test {

ProgramRun runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  RunningProgram running(program.string(), arguments);
  const int exitCode = running.wait().value_or(-1);
  return {exitCode, running.output(), running.errors()};
}

std::string contentOf(const std::filesystem::path& path) {
  const std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

}  // namespace vornlab::test
