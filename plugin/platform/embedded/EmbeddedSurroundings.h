#pragma once

#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "platform/Surroundings.h"

namespace vorn {

// Surroundings that whoever starts the program chooses; what is not chosen comes from the machine.
class EmbeddedSurroundings final : public Surroundings {
 public:
  struct Options {
    std::string home{};
    std::string documents{};         // "" for Documents below home
    std::string applications{};      // "" for /Applications
    std::string userApplications{};  // "" for Applications below home
    std::string resources{};         // the folder with the bundle's resources; "" for none
    Version systemVersion{10, 15, 0};
    std::vector<std::string> languages{};  // none for those of the environment
    std::function<double()> clock{};       // none for the machine's
    std::optional<std::uint64_t> seed{};   // a fixed sequence of random numbers instead of the kernel's
  };

  explicit EmbeddedSurroundings(Options options);

  std::string homeDirectory() override;
  std::string documentsDirectory() override;
  std::string applicationsDirectory() override;
  std::string userApplicationsDirectory() override;
  std::optional<std::string> resource(std::string_view name, std::string_view type) override;
  std::string resourcePath(std::string_view name, std::string_view type) override;
  Version systemVersion() override;
  std::vector<std::string> preferredLanguages() override;
  double currentTime() override;
  // Main thread only: it gives from a stock.
  std::uint32_t random32() override;

 private:
  Options m_options;
  std::mt19937_64 m_seeded;
  // The kernel's, not given out yet.
  std::vector<std::uint32_t> m_random;
};

}  // namespace vorn
