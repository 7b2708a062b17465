#pragma once

#include <filesystem>
#include <string>

namespace vornlab {

// What a person can change at the client, and where the client says what passes. Main thread only. What is
// refused beforehand throws LabError and changes nothing; after a start that fails the client is away.
class ClientDesk {
 public:
  virtual ~ClientDesk() = default;

  // Who is signed in; "" for the plain account.
  virtual std::filesystem::path account() const = 0;
  // Each starts the client anew.
  virtual void signIn(const std::filesystem::path& account) = 0;
  // "" for its own.
  virtual void showVersion(const std::string& version) = 0;
  // What it does wrong from its next reply on, in the language of its faults; "" for nothing.
  virtual void misbehave(const std::string& rules) = 0;
  virtual bool isClientRunning() = 0;
  virtual void startClientAgain() = 0;
  virtual void endClient() = 0;
  // What passes, a line each, with secrets covered already.
  virtual std::filesystem::path clientJournal() const = 0;
};

}  // namespace vornlab
