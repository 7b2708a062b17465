// A person at work, at random: appointments are opened, typed into, given meetings, saved, dragged, renamed and
// deleted, while something goes wrong now and then. Whatever comes of it, what was saved stands in the calendar
// once, and what was typed and not saved stands in its window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>

#include "tests/road/Calendars.h"
#include "util/TextSearch.h"

namespace vorn {
namespace {

using EditorId = RoadWorld::EditorId;
using testing::HasSubstr;
using testing::Not;

constexpr unsigned kWalks = 150;
// A request is answered within it, and no sheet is up any more.
constexpr double kPause = 10;

constexpr const char* kFaults[] = {
    "silent", "twice", "delay 70", "content", "fields 1",   "fields 13",  "not-utf8",
    "glue",   "close", "restart",  "die",     "error 3001", "error 3402", "error VornClientNotSignIn"};

std::string calendar(bool isHtml) {
  std::string text =
      replacingAll(calendarOfMany(2), "DESCRIPTION:Bring the figures.", "DESCRIPTION:Figures first");
  if (!isHtml) return text;
  return replacingAll(text, "DESCRIPTION:Figures first",
                      "DESCRIPTION:Figures first\r\n"
                      "X-ALT-DESC;FMTTYPE=text/html:<html><body><p><b>Figures</b> first</p></body></html>");
}

class Person {
 public:
  explicit Person(unsigned seed)
      : m_random(seed), m_isUnlucky(seed % 2 == 1), m_isHtml(seed % 3 == 0), m_world(calendar(m_isHtml)) {
    for (const char* uid : {"a0", "a1"}) m_saved[uid] = {{"Figures"}, "Review", "Castle"};
  }

  void work() {
    for (std::size_t steps = 6 + pick(14); steps > 0 && !testing::Test::HasFailure(); --steps) {
      step(pick(3) == 0 ? "a1" : "a0");
      m_world.settle(kPause);
      if (pick(4) == 0) look();
    }
    look();
  }
  const std::string& diary() const { return m_diary; }
  // How often an appointment was seen with a meeting that stands in the calendar.
  int meetings() const { return m_meetings; }

 private:
  // What stands in an appointment or is typed into its window; "" for a text that was not typed.
  struct Words {
    std::set<std::string> ofBody;
    std::string subject, place;
  };
  struct Window {
    EditorId editor;
    Words typed;
    bool isBeingSaved = false;
  };

  std::size_t pick(std::size_t count) { return m_random() % count; }
  std::string word(const char* kind) { return kind + std::to_string(++m_words) + "q"; }
  void note(const std::string& what) { m_diary += what + "\n"; }

  void step(const std::string& uid) {
    if (!m_saved.contains(uid)) return;
    if (m_isUnlucky && pick(5) == 0) return haveBadLuck();
    const auto window = m_windows.find(uid);
    if (window == m_windows.end()) return actOnCalendar(uid);
    if (!window->second.isBeingSaved) actInWindow(uid, window->second);
  }

  void actOnCalendar(const std::string& uid) {
    switch (pick(8)) {
      case 0:
        note("drag " + uid);
        m_world.host.drag(uid, "", m_world.store.find(uid)->start()->seconds + 3600);
        break;
      case 1: {
        const std::string name = word("Name");
        note("rename " + uid + " " + name);
        if (m_world.host.rename(uid, "", name)) m_saved[uid].subject = name;
        break;
      }
      case 2:
        note("delete " + uid);
        if (pick(3) == 0 && m_world.host.deleteFromCalendar(uid, "")) m_saved.erase(uid);
        break;
      default: note("open " + uid); m_windows[uid] = {m_world.host.openEditor(uid), {}};
    }
  }

  void actInWindow(const std::string& uid, Window& window) {
    const EditorId editor = window.editor;
    switch (pick(8)) {
      case 0:
        note("add " + uid);
        if (m_world.offersAdd(editor)) m_world.host.clickBar(editor, "onClickAddVornMeeting:");
        break;
      case 1:
        note("cancel " + uid);
        if (m_world.showsMeeting(editor)) m_world.host.clickBar(editor, "onClickCancelVornMeeting:");
        break;
      case 2:
        window.typed.subject = word("Subject");
        note("subject " + uid + " " + window.typed.subject);
        m_world.host.typeSubject(editor, window.typed.subject);
        break;
      case 3:
        window.typed.place = word("Place");
        note("place " + uid + " " + window.typed.place);
        m_world.host.typeLocation(editor, window.typed.place);
        break;
      case 4: typeIntoBody(uid, window); break;
      case 5:
        note("leave " + uid);
        if (pick(3) != 0) break;
        m_world.host.closeWithoutSaving(editor);
        m_windows.erase(uid);
        break;
      default:
        note("save " + uid);
        window.isBeingSaved = true;
        pick(2) == 0 ? m_world.host.save(editor) : m_world.host.saveAndClose(editor);
    }
  }

  // At the front, behind the first words, or at the end: before, in front of or behind an invitation.
  void typeIntoBody(const std::string& uid, Window& window) {
    const std::string typed = word("Word");
    std::string body = m_world.host.body(window.editor);
    const std::string_view places[] = {"<body>", "Figures", "</body>"};
    const std::string_view place = places[pick(std::size(places))];
    const std::size_t found = body.find(place);
    const std::size_t behind = place == "</body>" ? 0 : place.size();
    body.insert(found == std::string::npos ? body.size() : found + behind, " " + typed + " ");
    note("type " + uid + " " + typed + " at " + std::string(place));
    m_world.host.typeBody(window.editor, body);
    window.typed.ofBody.insert(typed);
  }

  void haveBadLuck() {
    const std::size_t what = pick(std::size(kFaults) + 3);
    if (what < std::size(kFaults)) {
      const std::string fault = "reply " + std::to_string(1 + pick(4)) + ": " + kFaults[what];
      note(fault);
      m_world.client->setFaults(fault);
    } else if (what == std::size(kFaults)) {
      note("the host stores nothing");
      m_world.setHostStores(false);
    } else if (what == std::size(kFaults) + 1) {
      note("the client quits");
      m_world.quitClient();
    } else {
      note("the client is back");
      m_world.bringClientBack();
    }
  }

  void look() {
    note("look");
    m_world.settle(200);
    for (auto each = m_windows.begin(); each != m_windows.end();) {
      auto& [uid, window] = *each;
      const bool isOpen = m_world.host.isOpen(window.editor);
      // A save that was stopped leaves the window as it was.
      if (window.isBeingSaved && !(isOpen && m_world.host.isDirty(window.editor))) save(window, m_saved[uid]);
      window.isBeingSaved = false;
      if (isOpen) expectInWindow(uid, window);
      each = isOpen ? std::next(each) : m_windows.erase(each);
    }
    for (const auto& [uid, words] : m_saved) expectInCalendar(uid, words);
    m_world.setHostStores(true);
  }

  static void save(Window& window, Words& saved) {
    saved.ofBody.merge(window.typed.ofBody);
    if (!window.typed.subject.empty()) saved.subject = window.typed.subject;
    if (!window.typed.place.empty()) saved.place = window.typed.place;
    window.typed = {};
  }

  void expectInWindow(const std::string& uid, const Window& window) const {
    const std::string body = m_world.host.body(window.editor);
    for (const auto* words : {&m_saved.at(uid).ofBody, &window.typed.ofBody}) {
      for (const std::string& word : *words) EXPECT_THAT(body, HasSubstr(word));
    }
    EXPECT_THAT(m_world.host.subject(window.editor), HasSubstr(window.typed.subject));
    EXPECT_THAT(m_world.host.location(window.editor), HasSubstr(window.typed.place));
  }

  void expectInCalendar(const std::string& uid, const Words& words) {
    const auto event = m_world.store.find(uid);
    ASSERT_TRUE(event && !event->isRemoved()) << uid;
    const std::string text = event->description().value_or("");
    m_meetings += m_world.record(uid)["meetingKey"].isPresent() ? 1 : 0;
    EXPECT_TRUE(event->htmlDescription() || !m_isHtml);
    for (const std::string& word : words.ofBody) {
      const std::size_t found = text.find(word);
      ASSERT_NE(found, std::string::npos) << word << " is lost:\n" << text;
      EXPECT_THAT(text.substr(found + word.size()), Not(HasSubstr(word))) << "it stands there twice";
      EXPECT_THAT(event->htmlDescription().value_or(word), HasSubstr(word));
    }
    EXPECT_EQ(event->summary(), words.subject);
    EXPECT_THAT(event->location().value_or(""), HasSubstr(words.place));
  }

  std::mt19937 m_random;
  const bool m_isUnlucky;
  const bool m_isHtml;
  RoadWorld m_world;
  std::map<std::string, Words> m_saved;
  std::map<std::string, Window> m_windows;
  int m_words = 0;
  int m_meetings = 0;
  std::string m_diary;
};

TEST(UsersWords, AreNeverLostWhateverHappens) {
  int meetings = 0;
  for (unsigned seed = 0; seed < kWalks && !HasFailure(); ++seed) {
    Person person(seed);
    person.work();
    EXPECT_FALSE(HasFailure()) << "seed " << seed << ":\n" << person.diary();
    meetings += person.meetings();
  }
  EXPECT_GT(meetings, HasFailure() ? 0 : 50);
}

}  // namespace
}  // namespace vorn
