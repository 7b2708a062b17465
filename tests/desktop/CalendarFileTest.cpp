// What becomes of a calendar's file and of the changes to the calendar, whatever somebody else does to the file.

#include "lab/desktop/CalendarFile.h"

#include <deque>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lab/shell/LabError.h"
#include "lab/shell/TemporaryFolder.h"
#include "util/AtomicFile.h"

namespace vornlab {
namespace {

namespace fs = std::filesystem;
using Answer = FilePerson::Answer;
using testing::ElementsAre;
using testing::HasSubstr;

const char* const kCalendar =
    "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:a\r\nDTSTART:20300318T090000Z\r\nSUMMARY:First\r\n"
    "END:VEVENT\r\nEND:VCALENDAR\r\n";

class CalendarFileTest : public testing::Test, public FilePerson {
 protected:
  CalendarFileTest() : folder(TemporaryFolder::make()) {}
  ~CalendarFileTest() override { fs::remove_all(folder); }

  Answer next(const std::string& question) {
    asked.push_back(question);
    if (answers.empty()) return Answer::cancel;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  Answer askAboutChanges(bool hasFile) override { return next(hasFile ? "changes" : "changes, no file"); }
  Answer tellThatNothingWasSaved(const std::string& reason, bool canOverwrite) override {
    reasons = reason;
    return next(canOverwrite ? "not saved, or over it" : "not saved");
  }
  std::optional<fs::path> choosePlace(const fs::path&) override {
    asked.push_back("where");
    return std::exchange(place, std::nullopt);
  }

  void load(const fs::path& path) {
    file = std::make_unique<CalendarFile>(path, calendar, *this);
    IcsProblem problem;
    ASSERT_TRUE(calendar.loadText(kCalendar, problem)) << problem.message;
    file->begin();
  }
  void openFile() {
    vorn::replaceFile(path.string(), kCalendar, "");
    load(path);
  }
  void name(const std::string& summary) { calendar.find("a")->setSummary(summary); }
  std::string written(const fs::path& where) { return vorn::readFile(where.string()).value_or(""); }
  std::vector<std::string> takeAsked() { return std::exchange(asked, {}); }

  const fs::path folder;
  const fs::path path = folder / "mine.ics";
  CalendarStore calendar;
  std::unique_ptr<CalendarFile> file;
  std::deque<Answer> answers;
  std::optional<fs::path> place;
  std::vector<std::string> asked;
  std::string reasons;
};

TEST_F(CalendarFileTest, WhatWasSavedIsNoChangeUntilTheNextOne) {
  openFile();
  EXPECT_TRUE(file->mayEnd());
  for (const std::string summary : {"Second", "Third"}) {
    name(summary);
    EXPECT_TRUE(file->isChanged());
    EXPECT_FALSE(file->mayEnd());
    EXPECT_THAT(takeAsked(), ElementsAre("changes"));
    EXPECT_TRUE(file->save());
    EXPECT_THAT(written(path), HasSubstr("SUMMARY:" + summary));
    EXPECT_FALSE(file->isChanged());
    EXPECT_TRUE(file->mayEnd());
  }
  name("Fourth");
  name("Third");
  EXPECT_TRUE(file->mayEnd()) << "it is what the file holds";
  EXPECT_THAT(takeAsked(), ElementsAre());
}

TEST_F(CalendarFileTest, WhatSomebodyElseHasWrittenIsOverwrittenOnlyWhenThePersonWantsIt) {
  openFile();
  name("Mine");
  vorn::replaceFile(path.string(), "Theirs", "");
  EXPECT_FALSE(file->save());
  EXPECT_THAT(reasons, HasSubstr("has been changed meanwhile"));
  answers = {Answer::save, Answer::cancel};
  EXPECT_FALSE(file->mayEnd());
  EXPECT_THAT(takeAsked(), ElementsAre("not saved, or over it", "changes", "not saved, or over it"));
  EXPECT_EQ(written(path), "Theirs");
  EXPECT_TRUE(file->isChanged());

  answers = {Answer::saveAs};
  place = folder / "other.ics";
  EXPECT_TRUE(file->save());
  EXPECT_THAT(written(folder / "other.ics"), HasSubstr("Mine"));
  EXPECT_EQ(written(path), "Theirs");
  // From now on that is the calendar's file.
  name("Again");
  EXPECT_TRUE(file->save());
  EXPECT_THAT(written(folder / "other.ics"), HasSubstr("Again"));

  vorn::replaceFile((folder / "other.ics").string(), "Theirs", "");
  name("Over it");
  answers = {Answer::overwrite};
  EXPECT_TRUE(file->save());
  EXPECT_THAT(written(folder / "other.ics"), HasSubstr("Over it"));
  EXPECT_TRUE(file->mayEnd());
}

TEST_F(CalendarFileTest, WithoutAFileItGoesWhereThePersonWants) {
  load("");
  EXPECT_TRUE(file->mayEnd());
  name("Mine");
  answers = {Answer::dontSave, Answer::saveAs};
  EXPECT_TRUE(file->mayEnd());
  EXPECT_FALSE(file->mayEnd()) << "no place was chosen";
  EXPECT_FALSE(file->save());
  EXPECT_THAT(takeAsked(), ElementsAre("changes, no file", "changes, no file", "where", "where"));
  // A folder is no place, which is told; with another the person is through.
  answers = {Answer::saveAs, Answer::cancel};
  place = folder;
  EXPECT_FALSE(file->mayEnd());
  EXPECT_THAT(takeAsked(), ElementsAre("changes, no file", "where", "not saved"));
  answers = {Answer::saveAs};
  place = path;
  EXPECT_TRUE(file->mayEnd());
  EXPECT_THAT(written(path), HasSubstr("Mine"));
}

}  // namespace
}  // namespace vornlab
