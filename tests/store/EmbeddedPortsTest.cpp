#include <gtest/gtest.h>

#include "platform/Localization.h"
#include "platform/embedded/EmbeddedSurroundings.h"
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

TEST(EmbeddedSurroundings, AnswerWhatWasChosen) {
  TestSurroundings other;
  const std::string home = other.homeDirectory();
  EmbeddedSurroundings surroundings({.home = home,
                                     .resources = home,
                                     .systemVersion = {10, 14, 6},
                                     .languages = {"de"},
                                     .clock = [] { return 7.5; },
                                     .seed = 1});
  EXPECT_EQ(surroundings.documentsDirectory(), home + "/Documents");
  EXPECT_EQ(surroundings.applicationsDirectory(), "/Applications");
  EXPECT_EQ(surroundings.currentTime(), 7.5);
  EXPECT_EQ(surroundings.systemVersion().minor, 14);

  EmbeddedSurroundings again({.home = home, .seed = 1});
  EXPECT_EQ(surroundings.random32(), again.random32());
}

TEST(Localization, ReadsItsTableAndShowsTheKeyOfAMissingText) {
  TestPlatform world;
  world.surroundings.resources["Localizable.strings"] =
      "/* a comment with \"key\" = \"value\"; \n and a line */\n"
      "\"Plain\" = \"A text\";\r\n"
      "// another comment\n"
      "  \"Escapes\"=\"He said \\\"no\\\",\\n\\tback\\\\slash\" ;\n"
      "\"Same line\" = \"1\"; \"Second\" = \"2\";\n"
      "\"No end\" = \"lost\"\n"
      "\"No quote = \"lost\";\n"
      "unquoted = \"lost\";\n"
      "\"Empty\" = \"\";\n"
      "\"Größe\" = \"“ü”\";\n"
      "\"Cut";
  const std::vector<std::pair<std::string, std::string>> cases = {{"Plain", "A text"},
                                                                  {"Escapes", "He said \"no\",\n\tback\\slash"},
                                                                  {"Same line", "1"},
                                                                  {"Second", "2"},
                                                                  {"No end", "No end"},
                                                                  {"No quote", "No quote"},
                                                                  {"unquoted", "unquoted"},
                                                                  {"Empty", ""},
                                                                  {"Größe", "“ü”"},
                                                                  {"Cut", "Cut"},
                                                                  {"key", "key"}};
  for (const auto& [key, text] : cases) EXPECT_EQ(localizedString(key), text);
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
