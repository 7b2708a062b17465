// The table of texts against the sources that use it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "platform/Localization.h"
#include "tests/support/TestPlatform.h"
#include "util/AtomicFile.h"

namespace vorn {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

// A key as the sources write it. With something put in between, "A" + x + "B", it stands for all keys that begin
// and end so.
struct UsedKey {
  std::string begin;
  std::string end;
  bool isPattern = false;
  // Arguments that are put into the text.
  std::ptrdiff_t arguments = 0;

  bool meets(const std::string& key) const {
    if (!isPattern) return key == begin;
    return key.size() > begin.size() + end.size() && key.starts_with(begin) && key.ends_with(end);
  }
};

std::vector<std::smatch> matches(const std::string& text, const std::regex& wanted) {
  return {std::sregex_iterator(text.begin(), text.end(), wanted), std::sregex_iterator()};
}

std::ptrdiff_t placeholders(const std::string& text) {
  std::ptrdiff_t count = 0;
  for (std::size_t at = text.find("%@"); at != std::string::npos; at = text.find("%@", at + 2)) ++count;
  return count;
}

const std::string kResources = std::string(VORN_PLUGIN_FOLDER) + "/resources";

// What the table and all sources hold, which takes long to read.
class TextsOfSources {
 public:
  TextsOfSources() {
    const std::string table = readFile(kResources + "/Localizable.strings").value_or("");
    for (const std::smatch& line : matches(table, std::regex(R"re((^|\n)"(([^"\\]|\\.)+)" = )re"))) {
      m_keys.push_back(line[2]);
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(VORN_PLUGIN_FOLDER)) {
      const std::string extension = entry.path().extension();
      if (extension == ".cpp" || extension == ".h") readSource(readFile(entry.path()).value_or(""));
    }
  }

  const std::vector<std::string>& keys() const { return m_keys; }
  const std::vector<UsedKey>& used() const { return m_used; }
  std::vector<std::string> keysOf(const UsedKey& used) const {
    std::vector<std::string> met;
    std::copy_if(m_keys.begin(), m_keys.end(), std::back_inserter(met),
                 [&](const std::string& key) { return used.meets(key); });
    return met;
  }

 private:
  void readSource(const std::string& source) {
    constexpr const char* kSigns[] = {"localizedString(", "panelText(", "texts(", "\"LN_"};
    const auto holds = [&](const char* sign) { return source.find(sign) != std::string::npos; };
    if (std::none_of(std::begin(kSigns), std::end(kSigns), holds)) return;
    // The key, and the braces with the arguments when the call stands within formatText().
    static const std::regex call(
        R"re((formatText\(\s*)?localizedString\(\s*"([^"]+)"(\s*\+\s*\w+\s*\+\s*"([^"]*)")?\)(,\s*\{([^}]*)\})?)re");
    for (const std::smatch& found : matches(source, call)) {
      UsedKey used{found[2], found[4], found[3].matched};
      const std::string arguments = found[6];
      if (found[1].matched && found[5].matched) {
        used.arguments = 1 + std::count(arguments.begin(), arguments.end(), ',');
      }
      m_used.push_back(used);
    }
    // The rules ask for a text with its arguments, and other keys wait in tables.
    static const std::regex asked(R"re((?:texts|panelText)\(\s*"([^"]+)",\s*\{([^{}]*)\}\))re");
    for (const std::smatch& found : matches(source, asked)) {
      const std::string arguments = found[2];
      m_used.push_back(
          {found[1], "", false, arguments.empty() ? 0 : 1 + std::count(arguments.begin(), arguments.end(), ',')});
    }
    for (const std::smatch& found : matches(source, std::regex(R"re("(LN_[^"]+)"(?!\s*\+))re"))) {
      m_used.push_back({found[1], ""});
    }
    if (source.find("localizedString(") == std::string::npos) return;
    // Keys that wait in a table of codes or in a constant.
    for (const std::smatch& found : matches(source, std::regex(R"re(\{\w+, "([A-Z]\w+)"\})re"))) {
      m_used.push_back({found[1], ""});
    }
    for (const std::smatch& found : matches(source, std::regex(R"re(localizedString\((k\w+)\))re"))) {
      const std::regex constant(found[1].str() + R"re(\s*=\s*"([^"]+)")re");
      for (const std::smatch& value : matches(source, constant)) m_used.push_back({value[1], ""});
    }
  }

  std::vector<std::string> m_keys;
  std::vector<UsedKey> m_used;
};

class LocalizableTexts : public testing::Test {
 protected:
  LocalizableTexts() { m_world.surroundings.resourceFolder = kResources; }

  static const TextsOfSources& texts() {
    static const TextsOfSources read;
    return read;
  }

 private:
  TestPlatform m_world;
};

TEST_F(LocalizableTexts, HaveEveryKeyThatTheSourcesUse) {
  ASSERT_GT(texts().used().size(), 20u) << "the sources were not found";
  for (const UsedKey& used : texts().used()) {
    EXPECT_THAT(texts().keysOf(used), testing::Not(IsEmpty()))
        << used.begin << (used.isPattern ? "…" : "") << used.end;
  }
}

TEST_F(LocalizableTexts, HaveAsManyPlaceholdersAsTheirUsePutsIn) {
  std::map<std::string, std::ptrdiff_t> expected;
  for (const UsedKey& used : texts().used()) {
    for (const std::string& key : texts().keysOf(used)) expected[key] = std::max(expected[key], used.arguments);
  }
  for (const auto& [key, arguments] : expected) EXPECT_EQ(placeholders(localizedString(key)), arguments) << key;
  EXPECT_EQ(placeholders(localizedString("JBHPMIRequiredPassword")), 2) << "the sources were not understood";
}

TEST_F(LocalizableTexts, StandOnceEachAndSaySomething) {
  const std::vector<std::string>& keys = texts().keys();
  EXPECT_THAT(std::set<std::string>(keys.begin(), keys.end()), SizeIs(keys.size()));
  for (const std::string& key : keys) {
    const std::string text = localizedString(key);
    EXPECT_THAT(text, testing::Not(IsEmpty())) << key;
    const bool isAKey =
        text == key && key.find_first_of("_ ") == std::string::npos && key != "OK" && key != "Edit";
    EXPECT_FALSE(isAKey) << key << " was not read, or has no text of its own";
  }
}

}  // namespace
}  // namespace vorn
