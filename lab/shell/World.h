#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "lab/shell/FolderLock.h"
#include "lab/shell/TemporaryFolder.h"
#include "util/Value.h"

namespace vornlab {

// The folders of one small machine: a home, an Applications folder with the two programs, and the user's files.
//
//   home/Documents/VornOutlookPlugin/<user id>.txt   what the user chose last
//   home/Documents/VornOutlookPlugin/vnConfig.txt    what the plug-in remembers of the site
//   home/Library/Preferences/                        user defaults
//   Applications/Microsoft Outlook.app               its version only
//   Applications/vornclient.app                      the stand-in client, a real program
//   journal, client.err, agent.err                   what the client and the agent write
class World {
 public:
  struct Options {
    // An existing or new folder; "" makes one in the system's folder for temporary files. Its path must be short:
    // a socket in its home has room for about a hundred bytes.
    std::filesystem::path folder;
    // Whether a folder that was made here stays at the end. A folder that was named always stays.
    bool keep = false;
    // The application to install as the client; "" for a machine without one, also where the folder had one.
    std::filesystem::path client;
    // The version that the installed client shows; "" for its own.
    std::string clientVersion;
    // The user who is signed in at the client.
    std::string userId;
    // Whether that user has told the plug-in not to show its panel.
    bool panelIsOff = true;
    // Whether the path may be too long for a socket. A client cannot listen in such a world.
    bool mayBeTooLongForSocket = false;
  };

  // Whether nothing of anybody's would be written over in that folder: it is new, empty, or a world already.
  static bool mayStandIn(const std::filesystem::path& folder);

  // Throws LabError when something cannot be made, and UsageError, before anything is touched, when another run
  // uses the folder.
  explicit World(const Options& options);
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  const std::filesystem::path& root() const { return m_root; }
  std::filesystem::path home() const { return m_root / "home"; }
  std::filesystem::path documents() const { return home() / "Documents"; }
  std::filesystem::path preferences() const { return home() / "Library/Preferences"; }
  std::filesystem::path applications() const { return m_root / "Applications"; }
  std::filesystem::path clientProgram() const;
  std::filesystem::path journal() const { return m_root / "journal"; }
  std::filesystem::path clientErrors() const { return m_root / "client.err"; }
  std::filesystem::path agentErrors() const { return m_root / "agent.err"; }
  // What the client is told to do wrong, where a session can tell it so.
  std::filesystem::path faults() const { return m_root / "faults"; }

  // Installs the application as the client, in place of the one that is there. It shows the version; "" its own.
  // It does not run meanwhile. Throws LabError.
  void installClient(const std::filesystem::path& application, const std::string& version) const;

  // Writes one choice into the profile that the plug-in has saved for the user, or into what it remembers of the
  // site, beside those that are there. Throws LabError when it cannot be written.
  static constexpr const char* kSite = "vnConfig";
  void saveChoice(const std::string& userIdOrSite, const std::string& key, const std::string& value) const;
  // What a text such as true, 5 or "en-US" stands for: JSON, or else the text itself.
  static vorn::Value valueOfChoice(const std::string& text);

 private:
  void makeRoot(const Options& options);
  std::filesystem::path clientApplication() const;
  void installOutlook() const;

  // Absent for a world that stays.
  std::optional<TemporaryFolder> m_temporary;
  std::filesystem::path m_root;
  // Absent for a world that does not stay, which nobody else knows.
  std::optional<FolderLock> m_lock;
};

}  // namespace vornlab
