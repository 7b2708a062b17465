#include <gtest/gtest.h>

#include "platform/Localization.h"
#include "platform/embedded/EmbeddedUserDefaults.h"
#include "tests/support/TestPlatform.h"
#include "util/AtomicFile.h"
#include "util/PropertyList.h"

namespace vorn {
namespace {

TEST(EmbeddedUserDefaults, KeepEachDomainInItsPropertyList) {
  TestSurroundings surroundings;
  const std::string folder = surroundings.homeDirectory() + "/Library/Preferences";
  EmbeddedUserDefaults defaults(folder, "com.example.host");
  defaults.setObject(Value(Value::Array{"x@y.z", "ü"}), "history");
  defaults.setObject(true, "flag");
  const Value both = Value::dictionaryFromPairs({{"history", Value(Value::Array{"x@y.z", "ü"})}, {"flag", true}});
  EXPECT_EQ(readPropertyList(folder + "/com.example.host.plist"), both);
  EXPECT_EQ(EmbeddedUserDefaults(folder, "com.example.host").persistentDomainForName("com.example.host"), both)
      << "another process sees it at once";

  replaceFile(folder + "/us.vorn.xos.plist", "no property list");
  EXPECT_TRUE(defaults.persistentDomainForName("us.vorn.xos").isAbsent());
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
