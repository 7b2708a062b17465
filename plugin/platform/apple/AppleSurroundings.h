#pragma once

#include <string>

#include "platform/Surroundings.h"

namespace vorn {

// The machine, the session and our bundle as Foundation knows them.
class AppleSurroundings final : public Surroundings {
 public:
  // The folder with the bundle's resources.
  explicit AppleSurroundings(std::string resources);

  std::string homeDirectory() override { return m_home; }
  std::string documentsDirectory() override { return m_home + "/Documents"; }
  std::string applicationsDirectory() override { return "/Applications"; }
  std::string userApplicationsDirectory() override { return m_home + "/Applications"; }
  std::optional<std::string> resource(std::string_view name, std::string_view type) override;
  std::string resourcePath(std::string_view name, std::string_view type) override;
  Version systemVersion() override;
  std::vector<std::string> preferredLanguages() override;
  double currentTime() override;
  std::uint32_t random32() override;

 private:
  std::string m_resources;
  std::string m_home;
};

}  // namespace vorn
