#include "tests/ports/SmallMachine.h"

#include <chrono>
#include <filesystem>
#include <thread>

#include "util/AtomicFile.h"
#include "util/PropertyList.h"

namespace vorn {

namespace fs = std::filesystem;

std::string SmallMachine::install(const std::string& name, const std::string& identifier) {
  const std::string bundle = userApplications() + "/" + name + ".app";
  fs::create_directories(bundle + "/Contents/MacOS");
  writePropertyList(
      Value::dictionaryFromPairs({{"CFBundleIdentifier", identifier}, {"CFBundleExecutable", "main"}}),
      bundle + "/Contents/Info.plist");
  replaceFile(programOf(bundle), "#!/bin/sh\necho started > \"${0%/Contents/*}/started\"\n");
  fs::permissions(programOf(bundle), fs::perms::owner_all);
  return bundle;
}

bool SmallMachine::wasStarted(const std::string& bundle) {
  for (int i = 0; i < 120'000 && !fs::exists(bundle + "/started"); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return fs::exists(bundle + "/started");
}

// The system names the program of a process, and that of a script is its interpreter.
void SmallMachine::run(const std::string& bundle) {
  const std::string program = programOf(bundle);
  fs::copy_file("/bin/sleep", program, fs::copy_options::overwrite_existing);
  m_running.emplace(program, std::vector<std::string>{"3600"});
}

void SmallMachine::writeResource(const std::string& file, const std::string& content) {
  fs::create_directories(resources());
  replaceFile(resources() + "/" + file, content);
}

}  // namespace vorn
