// What holds for every body, tried on a few hundred that chance has put together.

#include <gtest/gtest.h>

#include <random>

#include "invitation/vnBodyHelper.h"
#include "util/TextSearch.h"

namespace vorn {
namespace {

const std::string kBegin(kvn_BeginBookmark);
const std::string kEnd(kvn_EndBookmark);

struct Owner final : InvitationOwner {
  bool isUpdateVornMeetingEvent() override { return false; }
  bool putInvitationAtTheTop() override { return atTop; }
  OptionalText encodeMailBody() override { return std::nullopt; }

  bool atTop = false;
};

// The same numbers in every run.
class BodyProperty : public testing::Test {
 protected:
  static constexpr int kRounds = 320;

  std::string textOf(std::initializer_list<std::string> further = {}) {
    static const std::vector<std::string> pieces{
        "<html>", "<body>", "<body class=a>", "<BODY>", "</body>", "<br>", "<p class=\"x\">", "</p>", "text", " ",
        "\r\n",
        // What the search for bookmarks and wrappers could stumble over.
        "<font size=", "@</font>", "<a name=", "<a name=\"MacVnBookmarkBegin\" >", "MacVnBookmarkEnd", "</a>",
        "\"", "+", ".",
        // Characters outside the first plane, and those whose length changes with their case.
        "\xF0\x9F\x98\x80", "\xC4\xB0", "\xC3\x9F", "\xE2\x84\xAA",
        // Halves of pairs, stray bytes and the zero byte.
        "\xED\xA0\xBD", "\xED\xB8\x80", "\xFF", "\xC3", std::string(1, '\0')};
    std::vector<std::string> all(pieces);
    all.insert(all.end(), further);
    std::string text;
    for (int i = number(0, 30); i > 0; --i)
      text += all[static_cast<std::size_t>(number(0, static_cast<int>(all.size()) - 1))];
    return text;
  }

  int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_random); }

  std::mt19937 m_random{20};
  vnBodyHelper m_helper;
  Owner m_owner;
};

// The pieces cannot make a whole bookmark, so the invitation's are the only ones.
TEST_F(BodyProperty, WhatWasAddedIsTakenOutAgain) {
  for (int i = 0; i < kRounds; ++i) {
    const std::string body = textOf();
    const std::string invitation = textOf() + "x";
    const std::string html = m_helper.insertVnBodyBookMark(invitation, true);
    EXPECT_EQ(m_helper.removeVnBodyForDelete(m_helper.newVnBodyToEnd(body, html, false)), body);
    // At the top the "<br>" before the bookmarks stays, and around a plain invitation its blank lines.
    EXPECT_EQ(m_helper.removeVnBodyForDelete(m_helper.newVnBodyToEnd(body, html, true)),
              m_helper.newVnBodyToEnd(body, "", true));
    const std::string plain = m_helper.insertVnBodyBookMark("Join the meeting " + std::to_string(i), false);
    EXPECT_EQ(m_helper.removeVnBodyForDelete(m_helper.newVnBodyToEnd(body, plain, false)),
              m_helper.newVnBodyToEnd(body, "<br><br><br><br>", false));
  }
}

// It holds for bodies with at most one bookmark of each end, or none of the pair: a lone one before or behind an
// invitation that is put in anew makes a pair with it at the next update.
TEST_F(BodyProperty, UpdatingTwiceEqualsUpdatingOnceForHtml) {
  const std::string spans[] = {"", kBegin + "OLD" + kEnd,
                               std::string(kvn_BeginBookmarkEx) + "OLD" + std::string(kvn_EndBookmarkEx),
                               std::string(kvn_InitBeginBookMark) + "wait" + std::string(kvn_InitEndBookMark)};
  for (int i = 0; i < kRounds; ++i) {
    const std::string before = textOf();
    const std::string after = textOf();
    m_owner.atTop = number(0, 1) == 1;
    const std::string invitation = textOf() + "x";
    for (const std::string& span : spans) {
      const OptionalText once =
          m_helper.updateVnBodyWithSrcBody(before + span + after, invitation, true, &m_owner);
      EXPECT_EQ(m_helper.updateVnBodyWithSrcBody(once, invitation, true, &m_owner), once);
      if (span.empty()) continue;
      EXPECT_EQ(once, before + kBegin + invitation + kEnd + after);
    }
  }
}

// A plain invitation brings two blank lines on either side with it, and an update finds its bookmarks, not these:
// so they add up. Apart from line breaks the body stays the same.
TEST_F(BodyProperty, UpdatingAPlainInvitationTwiceAddsItsBlankLinesTwice) {
  for (int i = 0; i < kRounds; ++i) {
    const std::string invitation = "  Join the meeting " + textOf({"http://a ", "https://b\n"}) + " at any time.";
    const std::string marked = m_helper.insertVnBodyBookMark(invitation, false);
    const OptionalText once = m_helper.updateVnBodyWithSrcBody(textOf(), invitation, false, &m_owner);
    ASSERT_TRUE(once.has_value());
    const std::string span = marked.substr(8, marked.size() - 16);
    const std::size_t at = once->find(marked);
    ASSERT_NE(at, std::string::npos);
    std::string twice = *once;
    // The blanks before the begin bookmark belong to what is found again, those behind the end to nothing.
    twice.insert(at + 8 + span.size(), "<br><br>").insert(at, "<br><br>");
    EXPECT_EQ(m_helper.updateVnBodyWithSrcBody(once, invitation, false, &m_owner), twice);
  }
}

// Broken UTF-8 comes through byte for byte, also where positions are counted in UTF-16.
TEST_F(BodyProperty, PlainTextComesThroughWhateverItsBytes) {
  for (int i = 0; i < kRounds; ++i) {
    const std::string text =
        "x" + textOf({"http://a\xFF\xC3/\xF0\x9F\x98\x80 ", "https://b \n", "\xF0\x9F\x98"}) + "x";
    const std::string html = m_helper.convertPlainTextToHTML(text).value_or("");
    std::string unlinked;
    for (std::string_view rest = html; !rest.empty();) {
      const std::size_t link = rest.find("<a href=\"http");
      unlinked += rest.substr(0, link);
      if (link == std::string_view::npos) break;
      rest = rest.substr(rest.find("\">", link) + 2);
      unlinked += rest.substr(0, rest.find("</a>"));
      rest = rest.substr(rest.find("</a>") + 4);
    }
    EXPECT_EQ(unlinked, replacingAll(text, "\n", "<br>"));
    m_helper.convertHTMLToPlainText(text);
  }
}

}  // namespace
}  // namespace vorn
