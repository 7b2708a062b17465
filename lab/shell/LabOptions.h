#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vornlab {

class WatchPost;

// What every command that starts the laboratory can be told.
struct LabOptions {
  // Where the bundle, the client's application and the demonstration's calendar lie.
  std::filesystem::path programs;
  // The bundle to load; "" for the one among the programs.
  std::filesystem::path bundle;
  // A folder for the world; "" for one that is removed at the end.
  std::filesystem::path world;
  bool keepWorld = false;
  // Where the stand-in service keeps its meetings; ":memory:" forgets them at the end.
  std::string clientDatabase = ":memory:";
  // Who is signed in at the client; "" for the plain account.
  std::filesystem::path account;
  // The version of the system that the plug-in finds, which decides the transport: before 10.15 notifications.
  std::string systemVersion = "10.15.0";
  // Seconds that one appointment may take.
  double timeoutSeconds = 60;

  // Where the session tells what happens; null when nobody can watch.
  std::shared_ptr<WatchPost> watchPost;
  // What the session is for, told to those who watch; "" when the command says it all.
  std::string title;

  // Whether the user has told the plug-in not to show its panel, so that a click on Add goes straight through.
  bool panelIsOff = true;
  // Whether a session begins although its client cannot be started, or reached within the timeout.
  bool goesOnWithoutClient = false;

  // For trying what goes wrong.
  // Whether the client can be told to do things wrong while it runs.
  bool takesFaults = false;
  bool withoutClient = false;
  // Whether the agent is a program of its own, which lives while the client does not run. It is reached over a
  // session bus. Otherwise the client plays it.
  bool withAgent = false;
  std::string clientVersion;
  std::vector<std::string> clientArguments;
};

}  // namespace vornlab
