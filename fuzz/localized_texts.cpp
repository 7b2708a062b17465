// The bundle's table of texts.

#include "fuzz/Fuzzing.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"

namespace {

class OneTable final : public vorn::Surroundings {
 public:
  explicit OneTable(std::string table) : m_table(std::move(table)) {}
  std::string homeDirectory() override { return "/"; }
  std::string documentsDirectory() override { return "/"; }
  std::string applicationsDirectory() override { return "/"; }
  std::string userApplicationsDirectory() override { return "/"; }
  std::optional<std::string> resource(std::string_view, std::string_view) override { return m_table; }
  std::string resourcePath(std::string_view, std::string_view) override { return ""; }
  Version systemVersion() override { return {}; }
  std::vector<std::string> preferredLanguages() override { return {"en"}; }
  double currentTime() override { return 0; }
  std::uint32_t random32() override { return 0; }

 private:
  std::string m_table;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vorn::fuzzing::Input input(data, size);
  const std::string key(input.part());
  OneTable surroundings{std::string(input.rest())};
  vorn::Platform platform;
  platform.surroundings = &surroundings;
  vorn::Registry::install(platform);
  const std::string text = vorn::localizedString(key);
  vorn::formatText(text, {key, text});
  vorn::Registry::reset();
  return 0;
}
