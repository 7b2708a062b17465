#include "platform/embedded/EmbeddedWorkspace.h"

#include <limits.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

extern char** environ;

namespace vorn {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kProgramFolder = "/Contents/MacOS/";
// The desktop's own opener, looked for as a shell does.
constexpr const char* kOpener = "xdg-open";

std::string withoutEndSlashes(std::string path) {
  while (path.ends_with('/')) path.pop_back();
  return path;
}

std::string inRealForm(const std::string& path) {
  std::error_code failed;
  const fs::path real = fs::weakly_canonical(path, failed);
  return failed ? path : real.string();
}

bool isProcessFolder(const std::string& name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The program of a process; "" when the process is another user's, a zombie, or gone meanwhile.
std::string programOfProcess(const fs::path& processFolder) {
  std::array<char, PATH_MAX> program{};
  const ssize_t length = ::readlink((processFolder / "exe").c_str(), program.data(), program.size());
  return length <= 0 ? "" : std::string(program.data(), static_cast<std::size_t>(length));
}

// The bundle that a program belongs to; "" for a bare program.
std::string bundleOfProgram(const std::string& program) {
  const std::size_t at = program.rfind(kProgramFolder);
  return at == std::string::npos ? "" : program.substr(0, at);
}

}  // namespace

EmbeddedWorkspace::EmbeddedWorkspace(std::string root, std::vector<std::string> applicationFolders)
    : m_root(withoutEndSlashes(inRealForm(withoutEndSlashes(std::move(root))))),
      m_applicationFolders(std::move(applicationFolders)) {}

bool EmbeddedWorkspace::isRunning(std::string_view bundleIdentifier) {
  reapLaunched();
  // Whoever was seen is asked first, and as afresh as all others: this is asked for each appointment, and the list
  // of a machine's processes is long.
  if (!m_lastSeen.empty() && runs(m_lastSeen, bundleIdentifier)) return true;
  std::error_code failed;
  for (fs::directory_iterator process("/proc", failed), end; !failed && process != end;
       process.increment(failed)) {
    if (!isProcessFolder(process->path().filename().string())) continue;
    if (!runs(process->path().string(), bundleIdentifier)) continue;
    m_lastSeen = process->path().string();
    return true;
  }
  return false;
}

bool EmbeddedWorkspace::runs(const std::string& processFolder, std::string_view bundleIdentifier) {
  const std::string program = programOfProcess(processFolder);
  const std::string bundle = bundleOfProgram(program);
  if (bundle.empty() || !isBelowRoot(program)) return false;
  return propertyListAtPath(bundle + "/Contents/Info.plist")["CFBundleIdentifier"].text() == bundleIdentifier;
}

std::string EmbeddedWorkspace::absolutePathForAppBundle(std::string_view bundleIdentifier) {
  for (const std::string& folder : m_applicationFolders) {
    std::vector<std::string> bundles;
    std::error_code failed;
    for (fs::directory_iterator item(folder, failed), end; !failed && item != end; item.increment(failed)) {
      if (isFilePackage(item->path().string())) bundles.push_back(item->path().string());
    }
    std::sort(bundles.begin(), bundles.end());
    for (const std::string& bundle : bundles) {
      const Value information = propertyListAtPath(bundle + "/Contents/Info.plist");
      if (information["CFBundleIdentifier"].text() == bundleIdentifier) return bundle;
    }
  }
  return "";
}

bool EmbeddedWorkspace::isFilePackage(std::string_view path) {
  const std::string bare = withoutEndSlashes(std::string(path));
  std::error_code failed;
  return (bare.ends_with(".app") || bare.ends_with(".bundle")) && fs::is_directory(bare, failed);
}

std::string EmbeddedWorkspace::executablePath(std::string_view bundlePath) {
  const std::string bundle = withoutEndSlashes(std::string(bundlePath));
  std::string name = propertyListAtPath(bundle + "/Contents/Info.plist")["CFBundleExecutable"].text();
  // A bundle that does not name its program has one of its own name.
  if (name.empty()) name = fs::path(bundle).stem().string();
  const std::string program = bundle + std::string(kProgramFolder) + name;
  std::error_code failed;
  return fs::is_regular_file(program, failed) && ::access(program.c_str(), X_OK) == 0 ? program : "";
}

Value EmbeddedWorkspace::propertyListAtPath(std::string_view path) {
  Value read = m_propertyLists.read(std::string(path));
  return read.isDictionary() ? read : Value();
}

bool EmbeddedWorkspace::launch(std::string_view executablePath) { return start(std::string(executablePath), ""); }

bool EmbeddedWorkspace::openFolder(std::string_view path) {
  std::error_code failed;
  const std::string folder(path);
  return fs::is_directory(folder, failed) && start(kOpener, folder);
}

bool EmbeddedWorkspace::openWebPage(std::string_view address) {
  return isWebAddress(address) && start(kOpener, std::string(address));
}

bool EmbeddedWorkspace::start(const std::string& program, const std::string& argument) {
  reapLaunched();
  std::string ownProgram = program;
  std::string ownArgument = argument;
  char* const arguments[] = {ownProgram.data(), argument.empty() ? nullptr : ownArgument.data(), nullptr};
  posix_spawnattr_t attributes;
  if (::posix_spawnattr_init(&attributes) != 0) return false;
  // What is launched is no part of this process's work: it survives an interrupt at the terminal.
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  pid_t process = 0;
  const bool isStarted = ::posix_spawnp(&process, program.c_str(), nullptr, &attributes, arguments, environ) == 0;
  ::posix_spawnattr_destroy(&attributes);
  if (isStarted) m_launched.push_back(process);
  return isStarted;
}

bool EmbeddedWorkspace::isBelowRoot(std::string_view path) const {
  return m_root.empty() || (path.starts_with(m_root) && path.substr(m_root.size()).starts_with('/'));
}

// An ended child stays in the system's list until somebody asks for its status.
void EmbeddedWorkspace::reapLaunched() {
  std::erase_if(m_launched, [](pid_t process) { return ::waitpid(process, nullptr, WNOHANG) != 0; });
}

}  // namespace vorn
