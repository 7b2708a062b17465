#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>
#include <limits>

#include "tests/support/TestPlatform.h"
#include "util/AtomicFile.h"
#include "util/HostObject.h"
#include "util/ParsedFiles.h"
#include "util/PropertyList.h"
#include "util/vnOLUtils.h"
#include "util/vnShellCommand.h"

namespace vorn {
namespace {

class Files : public testing::Test {
 protected:
  std::string path(const std::string& name) { return m_world.surroundings.homeDirectory() + "/" + name; }
  std::size_t filesInHome() {
    const std::filesystem::recursive_directory_iterator all(m_world.surroundings.homeDirectory());
    return static_cast<std::size_t>(std::count_if(begin(all), end(all), [](const auto& entry) {
      return entry.symlink_status().type() == std::filesystem::file_type::regular;
    }));
  }

 private:
  TestPlatform m_world;
};

TEST_F(Files, AreReplacedWholeAndKeepTheirModeAndTheirLinks) {
  const std::string file = path("kept");
  ASSERT_TRUE(replaceFile(file, "first"));
  ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
  // Another group, where the system lets this process give one.
  const gid_t group = ::geteuid() == 0 ? 1 : ::getegid();
  ASSERT_EQ(::chown(file.c_str(), ::geteuid(), group), 0);
  std::filesystem::create_symlink(file, path("link"));
  ASSERT_TRUE(replaceFile(path("link"), std::string(200'000, 'x') + std::string(1, '\0')));
  EXPECT_EQ(readFile(file), std::string(200'000, 'x') + std::string(1, '\0'));
  EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
  struct stat facts;
  ASSERT_EQ(::stat(file.c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777, 0640U);
  EXPECT_EQ(facts.st_gid, group);
  EXPECT_EQ(filesInHome(), 1U) << "nothing temporary stays";
  std::filesystem::create_symlink("made", path("to nothing yet"));
  EXPECT_TRUE(replaceFile(path("to nothing yet"), "x"));
  EXPECT_EQ(readFile(path("made")), "x");
  EXPECT_TRUE(std::filesystem::is_symlink(path("to nothing yet")));
  std::filesystem::create_symlink("to itself", path("to itself"));
  EXPECT_FALSE(replaceFile(path("to itself"), "x"));
  std::string longest;
  while (longest.size() + 3 <= NAME_MAX) longest += "会";
  EXPECT_TRUE(replaceFile(path(longest), "x"));
}

// A process without standard input and output replaces a file by one that is longer than the system allows, which
// stops it in the middle. Answers its exit code.
int stopInTheMiddleOf(const std::string& path) {
  const pid_t writer = ::fork();
  if (writer == 0) {
    ::close(STDIN_FILENO);
    ::close(STDOUT_FILENO);
    ::signal(SIGXFSZ, [](int) {
      const bool areFree = ::fcntl(STDIN_FILENO, F_GETFD) < 0 && ::fcntl(STDOUT_FILENO, F_GETFD) < 0;
      ::_exit(areFree ? 0 : 1);
    });
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_FSIZE, &none);
    vnOLUtils::saveStrToFile("x", path);
    ::_exit(2);
  }
  int status = 0;
  ::waitpid(writer, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(Files, ThatAreBeingWrittenAreNobodysStandardOutputAndHoldTheOldContentUntilTheEnd) {
  ASSERT_TRUE(replaceFile(path("file"), "old"));
  EXPECT_EQ(stopInTheMiddleOf(path("file")), 0);
  EXPECT_EQ(readFile(path("file")), "old");
}

TEST_F(Files, ThatCannotBeWrittenOrReadAreToldSo) {
  std::filesystem::create_directory(path("folder"));
  EXPECT_FALSE(replaceFile(path("folder"), "x"));
  EXPECT_FALSE(replaceFile(path("missing/file"), "x"));
  EXPECT_FALSE(replaceFile("", "x"));
  EXPECT_EQ(filesInHome(), 0U);
  ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(readFile(path("pipe")), std::nullopt);
  EXPECT_EQ(readFile(path("folder")), std::nullopt);
  EXPECT_EQ(readFile(path("missing")), std::nullopt);
}

TEST_F(Files, PropertyListsReadBackWhatWasWritten) {
  const Value content = Value::Dictionary{
      {"text", "<a & \"b\"> \xF0\x9F\x98\x80\n"},
      {"empty", ""},
      {"numbers", Value::Array{0, -5, std::numeric_limits<std::int64_t>::max(), 2.5}},
      {"flag", true},
      {"nested", Value::Dictionary{{"list", Value::Array{Value::dictionary(), Value::array()}}}},
  };
  ASSERT_TRUE(writePropertyList(content, path("list.plist")));
  const Value read = readPropertyList(path("list.plist"));
  EXPECT_EQ(read, content);
  EXPECT_TRUE(read["flag"].isBoolean());
}

// A suite of its own, which is left out as a whole.
using FilesAndThePlatformsOwnTool = Files;
TEST_F(FilesAndThePlatformsOwnTool, ReadEachOthersPropertyLists) {
#ifndef PLISTUTIL
  GTEST_SKIP() << "plistutil is not installed";
#else
  vnOLUtils::saveStrToFile("{\"größer\" : \"<&>\"}", path("stored.txt"));
  const auto convert = [&](const std::string& from, const std::string& to) {
    return vnShellCommand::runAsCommand_ret(std::string(PLISTUTIL) + " -i " + path(from) + " -o " + path(to));
  };
  ASSERT_EQ(convert("stored.txt", "binary.plist"), 0);
  ASSERT_TRUE(readFile(path("binary.plist"))->starts_with("bplist"));
  EXPECT_EQ(vnOLUtils::readStrFromFile(path("binary.plist")), "{\"größer\" : \"<&>\"}");
  ASSERT_EQ(convert("binary.plist", "xml.plist"), 0);
  EXPECT_EQ(readPropertyList(path("xml.plist")), (Value::Array{"{\"größer\" : \"<&>\"}"}));
#endif
}

TEST_F(Files, PropertyListsLeaveOutWhatTheyCannotHold) {
  const Value content = Value::Array{1, nullptr, HostObject(16), Value::Dictionary{{"a", nullptr}, {"b", 2}}};
  ASSERT_TRUE(writePropertyList(content, path("list.plist")));
  EXPECT_EQ(readPropertyList(path("list.plist")), (Value::Array{1, Value::Dictionary{{"b", 2}}}));
  for (const Value& refused :
       {Value(), Value(nullptr), Value("\x01"), Value("\xFF"), Value(Value::Array{"\x02"})}) {
    EXPECT_FALSE(writePropertyList(refused, path("list.plist")));
  }
  EXPECT_EQ(readPropertyList(path("list.plist")).count(), 2U) << "the old content is untouched";
}

TEST_F(Files, BrokenPropertyListsReadAsAbsent) {
  const auto repeated = [](std::string_view text) {
    std::string result;
    for (int i = 0; i < 200'000; ++i) result += text;
    return result;
  };
  const std::string endless = repeated("<array>");
  for (const std::string& content :
       {std::string(), std::string("plain text"), std::string("bplist00garbage"),
        std::string("<plist><dict><key>a</key>"), "<plist>" + endless,
        "<plist><!--" + repeated("</array>") + "-->" + endless,
        "<plist><?x " + repeated("</dict>") + "?>" + endless, "<plist>" + repeated("<array><![CDATA[</array>]]>"),
        "<plist>" + repeated("<dict a='/>'>"), "<plist>" + repeated("<array a=\"</array>\">"),
        "<plist>" + repeated("<array><key a=\">\"></array>\">"), "<!DOCTYPE p [<!--]><plist>" + endless,
        "<plist><string>" + repeated("&amp;") + "</string></plist>"}) {
    ASSERT_TRUE(replaceFile(path("broken"), content));
    EXPECT_TRUE(readPropertyList(path("broken")).isAbsent()) << content.substr(0, 40);
  }
  EXPECT_TRUE(readPropertyList(path("missing")).isAbsent());
  ASSERT_TRUE(replaceFile(path("flat"),
                          "<plist><array>" + repeated("<dict />") + "<string>&lt;</string></array></plist>"));
  EXPECT_EQ(readPropertyList(path("flat")).count(), 200'001U);
}

std::string bigEndian(std::size_t number, int bytes) {
  std::string text;
  for (int i = bytes - 1; i >= 0; --i) text += static_cast<char>(number >> (8 * i));
  return text;
}

// An object of the binary form that is made of references to others.
std::string binaryObject(std::size_t marker, const std::vector<std::size_t>& references) {
  std::string object(1, static_cast<char>(marker));
  for (const std::size_t reference : references) object += bigEndian(reference, 3);
  return object;
}

// A list in the binary form with these objects.
std::string binaryList(const std::vector<std::string>& objects, int offsetBytes = 4) {
  std::string list = "bplist00";
  std::string table;
  for (const std::string& object : objects) {
    table += bigEndian(list.size(), offsetBytes);
    list += object;
  }
  return list + table + std::string(6, '\0') + bigEndian(offsetBytes, 1) + "\x03" + bigEndian(objects.size(), 8) +
         bigEndian(0, 8) + bigEndian(list.size(), 8);
}

std::string binaryListOfArrays(const std::vector<std::vector<std::size_t>>& arrays) {
  std::vector<std::string> objects;
  for (const auto& references : arrays) objects.push_back(binaryObject(0xA0 + references.size(), references));
  return binaryList(objects);
}

TEST_F(Files, BinaryPropertyListsHoldEveryKindOfValue) {
  const std::vector<std::string> objects{binaryObject(0xD2, {1, 2, 3, 4}),
                                         "Qa",
                                         std::string("\x61\0\xFC", 3),
                                         binaryObject(0xA3, {5, 6, 7}),
                                         "Qx",
                                         "\x14" + bigEndian(0, 8) + bigEndian(1, 8),
                                         "\x09",
                                         std::string("\x23\x40\x04\0\0\0\0\0\0", 9)};
  for (const int offsetBytes : {1, 4, 8}) {
    ASSERT_TRUE(replaceFile(path("list"), binaryList(objects, offsetBytes)));
    EXPECT_EQ(readPropertyList(path("list")), (Value::Dictionary{{"a", Value::Array{1, true, 2.5}}, {"ü", "x"}}));
  }
}

TEST_F(Files, BinaryPropertyListsMayReferToAnythingAndAreStillRead) {
  const auto read = [&](const std::vector<std::vector<std::size_t>>& arrays) {
    EXPECT_TRUE(replaceFile(path("arrays"), binaryListOfArrays(arrays)));
    return readPropertyList(path("arrays"));
  };
  EXPECT_EQ(read({{1, 1}, {}}), (Value::Array{Value::array(), Value::array()}));
  EXPECT_TRUE(read({{0}}).isAbsent()) << "an array within itself";
  EXPECT_TRUE(read({{1}}).isAbsent()) << "a reference to nothing";
  std::vector<std::vector<std::size_t>> chain;
  for (std::size_t i = 1; i < 200'000; ++i) chain.push_back({i});
  chain.emplace_back();
  EXPECT_TRUE(read(chain).isAbsent());
  std::vector<std::vector<std::size_t>> doubling;
  for (std::size_t i = 1; i < 60; ++i) doubling.push_back({i, i});
  doubling.emplace_back();
  EXPECT_TRUE(read(doubling).isAbsent());
  // From the inside out, so that each is known when the next refers to it.
  std::string backwards = std::string("\xAF\x12", 2) + bigEndian(chain.size(), 4);
  for (std::size_t i = chain.size(); i > 0; --i) backwards += bigEndian(i, 3);
  std::vector<std::string> objects{backwards};
  for (std::size_t i = 1; i < chain.size(); ++i) objects.push_back(binaryObject(0xA1, {i + 1}));
  objects.push_back(binaryObject(0xA0, {}));
  ASSERT_TRUE(replaceFile(path("arrays"), binaryList(objects)));
  EXPECT_TRUE(readPropertyList(path("arrays")).isAbsent());
  const std::string whole = binaryListOfArrays({{1, 2}, {2}, {}});
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_TRUE(replaceFile(path("arrays"), whole.substr(0, length)));
    EXPECT_TRUE(readPropertyList(path("arrays")).isAbsent()) << length;
  }
}

TEST_F(Files, StoredTextIsAListOfOneTextAndEmptyForAnyOtherFile) {
  vnOLUtils::saveStrToFile("{\"a\" : 1}", path("stored.txt"));
  EXPECT_EQ(readPropertyList(path("stored.txt")), (Value::Array{"{\"a\" : 1}"}));
  vnOLUtils::saveStrToFile(std::nullopt, path("stored.txt"));
  EXPECT_EQ(vnOLUtils::readStrFromFile(path("stored.txt")), "{\"a\" : 1}");
  std::filesystem::create_directory(path("folder.txt"));
  for (const std::string& file : {path("missing.txt"), path("folder.txt"), std::string()}) {
    EXPECT_EQ(vnOLUtils::readStrFromFile(file), "") << file;
  }
  EXPECT_EQ(vnOLUtils::readStrFromFile(std::nullopt), std::nullopt);
}

TEST_F(Files, ThatAreAskedForAgainAndAgainTellEveryChangeAndAreMadeAnewOnlyForOne) {
  static int made = 0;
  made = 0;
  ParsedFiles files([](const std::string& content) { return ++made, Value(content); });
  const auto write = [](const std::string& file, const std::string& content) {
    std::ofstream(file, std::ios::trunc) << content;
  };
  const std::string file = path("often");
  EXPECT_TRUE(files.read(file).isAbsent());
  // In place and of one size, within one tick of the file system's clock.
  for (const char* content : {"one", "two", "six", "six", "longer", ""}) {
    write(file, content);
    EXPECT_EQ(files.read(file), Value(content));
  }
  EXPECT_EQ(made, 5);
  ASSERT_TRUE(replaceFile(file, "old"));
  const timespec longAgo[2] = {{1000000000, 1}, {1000000000, 1}};
  ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), longAgo, 0), 0);
  EXPECT_EQ(files.read(file), Value("old"));
  ::usleep(150'000);
  EXPECT_EQ(files.read(file), Value("old"));
  write(file, "new");
  ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), longAgo, 0), 0);
  EXPECT_EQ(files.read(file), Value("new")) << "whatever the times say that anybody can set";
  for (int i = 0; i < 20; ++i) {
    const std::string other = path("other" + std::to_string(i));
    write(other, std::to_string(i));
    EXPECT_EQ(files.read(other), Value(std::to_string(i)));
  }
  EXPECT_EQ(files.read(file), Value("new"));
  std::filesystem::remove(file);
  EXPECT_TRUE(files.read(file).isAbsent());
  write(file, std::string(1 << 19, 'x'));
  EXPECT_EQ(files.read(file).text().size(), 1U << 19) << "what is too large to be kept";
}

}  // namespace
}  // namespace vorn
