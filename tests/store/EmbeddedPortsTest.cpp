#include <gtest/gtest.h>

#include "platform/Localization.h"
#include "platform/embedded/EmbeddedUserDefaults.h"
#include "tests/support/TestPlatform.h"
#include "util/AtomicFile.h"
#include "util/PropertyList.h"

namespace vorn {
namespace {

TEST(EmbeddedUserDefaults, WithALoopAreWrittenALittleLaterAndAtTheLatestWithTheirEnd) {
  TestPlatform world;
  const std::string path = world.surroundings.homeDirectory() + "/defaults/host.plist";
  const Value on = Value::dictionaryFromPairs({{"flag", true}});
  {
    EmbeddedUserDefaults defaults(world.surroundings.homeDirectory() + "/defaults", "host", &world.runLoop);
    defaults.setObject(true, "flag");
    EXPECT_TRUE(defaults.objectForKey("flag").boolValue());
    EXPECT_EQ(defaults.persistentDomainForName("host"), on);
    EXPECT_TRUE(readPropertyList(path).isAbsent());
    world.runLoop.runFor(1);
    EXPECT_EQ(readPropertyList(path), on);
    defaults.setObject(2, "late");
  }
  EXPECT_EQ(readPropertyList(path)["late"], Value(2));
  world.runLoop.runDue();
}

TEST(Localization, ReadsItsTableAndShowsTheKeyOfAMissingText) {
  TestPlatform world;
  world.surroundings.resources["Localizable.strings"] =
      "/* a comment with \"key\" = \"value\"; \n and a line */\n"
      "/* tight */\"Tight\" = \"t\";\n"
      "\"Plain\" = \"A text\";\r\n"
      "  \"Escapes\"=\"He said \\\"no\\\",\\n\\tback\\\\slash\" ;\n"
      "\"Same line\" = \"1\"; \"Second\" = \"2\";\n"
      "\"No end\" = \"lost\"\n"
      "\"No quote = \"lost\";\n"
      "unquoted = \"lost\";\n"
      "\"Empty\" = \"\";\n"
      "\"Größe\" = \"“ü”\";\n"
      "\"Cut";
  const std::pair<const char*, const char*> cases[] = {
      {"Plain", "A text"}, {"Tight", "t"},  {"Escapes", "He said \"no\",\n\tback\\slash"},
      {"Same line", "1"},  {"Second", "2"}, {"Empty", ""},
      {"Größe", "“ü”"}};
  for (const auto& [key, text] : cases) EXPECT_EQ(localizedString(key), text);
  for (const char* missing : {"No end", "No quote", "unquoted", "Cut", "key"})
    EXPECT_EQ(localizedString(missing), missing);
}

TEST(Localization, FillsPlaceholdersInTheirOrder) {
  EXPECT_EQ(formatText("%@ and %@", {"a", "b"}), "a and b");
  EXPECT_EQ(formatText("%@, %@", {"%@", "b"}), "%@, b") << "what is put in is not looked at again";
  EXPECT_EQ(formatText("%@ %@.", {"a"}), "a .");
  EXPECT_EQ(formatText("100%% of %@%", {"a", "b"}), "100% of a%");
  EXPECT_EQ(formatText("%d", {"a"}), "%d");
}

}  // namespace
}  // namespace vorn
