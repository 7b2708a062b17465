#include "lab/shell/World.h"

#include "lab/shell/LabError.h"
#include "util/PropertyList.h"
#include "util/vStringUtils.h"

namespace vornlab {
namespace {

namespace fs = std::filesystem;
using vorn::Value;

constexpr auto kOutlookIdentifier = "com.microsoft.Outlook";
constexpr auto kOutlookFolder = "Microsoft Outlook.app";
constexpr auto kOutlookVersion = "16.78.1";
// Room for "/home/s.vop" in the longest path to which the plug-in connects.
constexpr std::size_t kLongestRoot = 103 - 11;

void writeList(const Value& value, const fs::path& path) {
  if (!vorn::writePropertyList(value, path.string())) throw LabError("cannot write " + path.string());
}

// Links where both lie on one disk, so that no megabytes are copied, and copies elsewhere.
void installFile(const fs::path& from, const fs::path& to) {
  std::error_code failed;
  fs::create_hard_link(from, to, failed);
  if (failed) fs::copy_file(from, to, fs::copy_options::overwrite_existing);
}

}  // namespace

bool World::mayStandIn(const fs::path& folder) {
  std::error_code failed;
  return !fs::exists(folder, failed) || fs::is_empty(folder, failed) ||
         fs::exists(folder / "Applications" / kOutlookFolder, failed);
}

World::World(const Options& options) {
  makeRoot(options);
  try {
    for (const fs::path& folder : {documents(), preferences(), applications()}) fs::create_directories(folder);
    installOutlook();
    if (options.client.empty()) {
      fs::remove_all(clientApplication());
    } else {
      installClient(options.client, options.clientVersion);
    }
    if (options.panelIsOff) saveChoice(options.userId, "notShowMeAgain", "true");
  } catch (const fs::filesystem_error& error) {
    throw LabError(error.what());
  }
}

fs::path World::clientApplication() const { return applications() / "vornclient.app"; }

fs::path World::clientProgram() const { return clientApplication() / "Contents/MacOS/vornclient"; }

void World::makeRoot(const Options& options) {
  const fs::path& folder = options.folder;
  if (folder.empty()) {
    m_root = options.keep ? TemporaryFolder::make() : m_temporary.emplace().path();
  } else {
    std::error_code failed;
    fs::create_directories(folder, failed);
    if (!failed) m_root = fs::canonical(folder, failed);
    if (failed) throw LabError("cannot make the folder " + folder.string() + ": " + failed.message());
  }
  if (!m_temporary && m_lock.emplace(m_root).state() == FolderLock::State::heldByAnother) {
    throw UsageError("--world: " + m_root.string() + " is in use by another run");
  }
  if (!options.mayBeTooLongForSocket && m_root.native().size() > kLongestRoot) {
    throw LabError("the path of the folder " + m_root.string() + " is too long for a socket in it");
  }
}

void World::installOutlook() const {
  const fs::path contents = applications() / kOutlookFolder / "Contents";
  fs::create_directories(contents);
  writeList(Value(Value::Dictionary{{"CFBundleIdentifier", kOutlookIdentifier},
                                    {"CFBundleShortVersionString", kOutlookVersion}}),
            contents / "Info.plist");
}

void World::installClient(const fs::path& application, const std::string& version) const {
  const fs::path target = clientApplication();
  fs::remove_all(target);
  fs::create_directories(target / "Contents/MacOS");
  installFile(application / "Contents/MacOS/vornclient", clientProgram());
  Value facts = vorn::readPropertyList((application / "Contents/Info.plist").string());
  if (!version.empty()) {
    facts.set("CFBundleShortVersionString", version);
    facts.set("CFBundleVersion", version);
  }
  writeList(facts, target / "Contents/Info.plist");
}

// The file is a property list of one text that holds JSON.
void World::saveChoice(const std::string& userIdOrSite, const std::string& key, const std::string& value) const {
  const fs::path folder = documents() / "VornOutlookPlugin";
  fs::create_directories(folder);
  const fs::path file = folder / (userIdOrSite + ".txt");
  const Value stored = vorn::readPropertyList(file.string());
  Value choices = vorn::vStringUtils::toArrayOrNSDictionary(
      stored.items().empty() ? std::nullopt : stored.items().front().optionalText());
  if (!choices.isDictionary()) choices = Value::dictionary();
  choices.set(key, valueOfChoice(value));
  writeList(Value(Value::Array{Value(vorn::vStringUtils::toJSONString(choices))}), file);
}

Value World::valueOfChoice(const std::string& text) {
  const Value document = vorn::vStringUtils::toArrayOrNSDictionary(text);
  return document.isAbsent() ? Value(text) : document;
}

}  // namespace vornlab
