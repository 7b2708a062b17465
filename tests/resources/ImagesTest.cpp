// The images that the sources name against those of the bundle.

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include "util/AtomicFile.h"

namespace vorn {
namespace {

TEST(Images, ThatTheSourcesNameAreInTheBundle) {
  std::set<std::string> named;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VORN_PLUGIN_FOLDER)) {
    if (!entry.is_regular_file()) continue;
    const std::string source = readFile(entry.path()).value_or("");
    static const std::regex image(R"re("(\w+\.png)")re");
    for (std::sregex_iterator found(source.begin(), source.end(), image), end; found != end; ++found)
      named.insert((*found)[1]);
  }
  EXPECT_TRUE(named.contains("warning.png")) << "the sources were not found";
  for (const std::string& name : named) {
    const std::string image = readFile(std::string(VORN_PLUGIN_FOLDER) + "/resources/" + name).value_or("");
    EXPECT_TRUE(image.starts_with("\x89PNG\r\n\x1a\n") && image.ends_with("IEND\xae\x42\x60\x82")) << name;
  }
}

}  // namespace
}  // namespace vorn
