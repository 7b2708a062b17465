#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorn {

// Facts of the machine, the session and the bundle. Main thread, except homeDirectory(), which is fixed and may
// be read from any thread. Paths are absolute UTF-8 texts without a slash at the end.
class Surroundings {
 public:
  struct Version {
    int major = 0;
    int minor = 0;
    int patch = 0;
  };

  virtual ~Surroundings() = default;

  // The home folder that the host's sandbox gives.
  virtual std::string homeDirectory() = 0;
  virtual std::string documentsDirectory() = 0;
  virtual std::string applicationsDirectory() = 0;
  // The user's own Applications folder.
  virtual std::string userApplicationsDirectory() = 0;
  // The whole content of a resource of the bundle, by name and type; absent when there is none.
  virtual std::optional<std::string> resource(std::string_view name, std::string_view type) = 0;
  // Where such a resource lies, there or not; "" without a bundle, and for a name that is a path.
  virtual std::string resourcePath(std::string_view name, std::string_view type) = 0;
  virtual Version systemVersion() = 0;
  // Language tags, the preferred one first; never empty.
  virtual std::vector<std::string> preferredLanguages() = 0;
  // Seconds since 1970 in UTC.
  virtual double currentTime() = 0;
  // An evenly distributed random number.
  virtual std::uint32_t random32() = 0;
};

}  // namespace vorn
