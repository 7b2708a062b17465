#include <gtest/gtest.h>

#include <random>

#include "invitation/vnBodyHelper.h"
#include "util/TextSearch.h"

namespace vorn {
namespace {

const std::string kBegin(kvn_BeginBookmark);
const std::string kEnd(kvn_EndBookmark);
const std::string kBeginEx(kvn_BeginBookmarkEx);
const std::string kEndEx(kvn_EndBookmarkEx);
const std::string kUpperBegin = "<A NAME=\"MACVNBOOKMARKBEGIN\"></A>";
const std::string kFace = "\xF0\x9F\x98\x80";

struct Owner final : InvitationOwner {
  bool isUpdateVornMeetingEvent() override { return updates; }
  bool putInvitationAtTheTop() override { return atTop; }
  OptionalText encodeMailBody() override { return std::nullopt; }

  bool updates = false, atTop = false;
};

class BodyHelper : public testing::Test {
 protected:
  static std::size_t occurrences(const std::string& text, std::string_view wanted) {
    return (text.size() - replacingAll(text, wanted, "").size()) / wanted.size();
  }

  // With a link in place of each URL in brackets.
  static std::string linked(std::string html) {
    for (std::size_t at = 0; (at = html.find('[', at)) != std::string::npos;) {
      const std::string url = html.substr(at + 1, html.find(']', at) - at - 1);
      html.replace(at, url.size() + 2, "<a href=\"" + url + "\">" + url + "</a>");
    }
    return html;
  }

  vnBodyHelper m_helper;
  Owner m_owner;
};

TEST_F(BodyHelper, LinksUrlsExceptWhereTheScannerPassesThemOver) {
  const struct {
    const char *what, *text, *html;
  } cases[] = {
      {"the middle", "at http://a/j/1 now", "at [http://a/j/1] now"},
      {"the very start", "http://a now", "http://a now"},
      {"the very end", "at http://a", "at http://a"},
      {"the end but for blanks", "at http://a  ", "at http://a  "},
      {"start, middle and end", "x http://a b", "x [http://a] b"},
      {"directly behind another", "x http://a http://b http://c y", "x [http://a] http://b http://c y"},
      {"the other scheme has a pass of its own", "x http://a https://b y", "x [http://a] [https://b] y"},
      {"a start that ends the pass of one scheme only", "http://a x https://b y", "http://a x [https://b] y"},
      {"the same URL twice", "x http://a y http://a z", "x [http://a] y [http://a] z"},
      {"a URL that begins another", "x http://a/b y http://a z", "x [http://a/b] y [http://a] z"},
      {"a distance that counts two bytes of UTF-8 as one place",
       "x http://a \xC3\xA9 http://a \xC3\xA9 x y \xC3\xA9     http://a http://a x",
       "x [http://a] \xC3\xA9 [http://a] \xC3\xA9 x y \xC3\xA9     [http://a] http://a x"},
      {"line ends", "\r\n\nx\nhttp://a\r\ny\n", "x<br>[http://a]\r<br>y"},
      {"no URL", "a\n\nb", "a<br><br>b"},
      {"empty", "", ""},
  };
  for (const auto& each : cases)
    EXPECT_EQ(m_helper.convertPlainTextToHTML(each.text), linked(each.html)) << each.what;
  EXPECT_EQ(m_helper.convertPlainTextToHTML(std::nullopt), std::nullopt);
}

TEST_F(BodyHelper, TakesThousandsOfUrlsInItsStride) {
  std::string text = "x";
  for (int i = 0; i < 5'000; ++i) text += " http://host/" + std::to_string(i) + " y";
  const std::string html = m_helper.convertPlainTextToHTML(text).value_or("");
  EXPECT_EQ(occurrences(html, "</a>"), 256U);
  EXPECT_NE(html.find(" http://host/4999 y"), std::string::npos);
  // The distance is the one by which a link moves the text behind it.
  std::string even = "x ";
  for (int i = 0; i < 5'000; ++i) even += "http://a yyyyyyyyyyyyyy";
  EXPECT_EQ(occurrences(m_helper.convertPlainTextToHTML(even).value_or(""), "</a>"), 256U);
  // A URL of one piece repeated almost matches at each of its places.
  std::string repeated = "x ";
  for (int i = 0; i < 20'000; ++i) repeated += "http://";
  EXPECT_EQ(
      occurrences(m_helper.convertPlainTextToHTML(repeated + "a y " + repeated + "b z").value_or(""), "</a>"), 2U);
}

TEST_F(BodyHelper, WrapsAnInvitationInBookmarks) {
  EXPECT_EQ(m_helper.insertVnBodyBookMark(std::nullopt, true), "");
  EXPECT_EQ(m_helper.insertVnBodyBookMark("", false), "");
  EXPECT_EQ(m_helper.insertVnBodyBookMark("<p>Join</p>", true), kBegin + "<p>Join</p>" + kEnd);
  const struct {
    const char* what;
    std::string text, inside;
  } cases[] = {
      {"twenty characters", "12345678901234567890", kBegin + "12345678901234567890" + kEnd},
      {"fewer", "short", kBegin + "short" + kEnd},
      {"an escape", "a < b, and some more text", kBegin + "a &lt; b, and some more text" + kEnd},
      {"white space around, of which the end bookmark leaves three places inside",
       "  The invitation text of a meeting     ",
       "  " + kBegin + "The invitation text of a meeting   " + kEnd + "  "},
      {"a URL at the end, which the end bookmark must not be taken into", "The meeting: https://vorn.us/u/abc",
       linked(kBegin + "The meeting: [https://vorn.us/u/abc]<br>") + kEnd},
      {"characters of two units at both ends", kFace + "meeting of all people of the house" + kFace + "\n",
       kBegin + kFace + "meeting of all people of the house" + kFace + "<br>" + kEnd},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(m_helper.insertVnBodyBookMark(each.text, false), "<br><br>" + each.inside + "<br><br>") << each.what;
  }
}

TEST_F(BodyHelper, PutsANewTextAtTheTopOrAtTheEnd) {
  const struct {
    const char *body, *top, *end;
  } cases[] = {
      {"<html><body>x</body></html>", "<html><body><br>NEWx</body></html>", "<html><body>xNEW</body></html>"},
      {"<body class=\"a\"\nlang=en>x</body>", "<body class=\"a\"\nlang=en><br>NEWx</body>",
       "<body class=\"a\"\nlang=en>xNEW</body>"},
      {"x", "<br>NEWx", "xNEW"},
      {"", "<br>NEW", "NEW"},
      {"<bodyx><body ", "<br>NEW<bodyx><body ", "<bodyx><body NEW"},
      {"a</body>b</body>", "<br>NEWa</body>b</body>", "a</body>bNEW</body>"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(m_helper.newVnBodyToEnd(each.body, "NEW", true), each.top);
    EXPECT_EQ(m_helper.newVnBodyToEnd(each.body, "NEW", false), each.end);
  }
  EXPECT_EQ(m_helper.newVnBodyToEnd(std::nullopt, "NEW", true), std::nullopt);
  EXPECT_EQ(m_helper.updateBodyForPAC("<body>x</body>", "call", false), "<body>x<br><br>call<br><br></body>");
  EXPECT_EQ(m_helper.updateBodyForPAC("<body>x</body>", "<p>call</p>", true), "<body>x<p>call</p></body>");
}

TEST_F(BodyHelper, BringsAnInvitationIntoEveryKindOfBody) {
  const std::string marked = kBegin + "NEW" + kEnd;
  const std::string initBegin(kvn_InitBeginBookMark);
  const std::string initEnd(kvn_InitEndBookMark);
  const struct {
    const char* what;
    std::string body, result;
  } cases[] = {
      {"a placeholder goes with its decoration", "a<br><br>+" + kBegin + "wait" + kEnd + ".<br><br>b",
       "a" + marked + "b"},
      {"between plain bookmarks", "a" + kBegin + "OLD" + kEnd + "b", "a" + marked + "b"},
      {"a begin in another case, and one that was copied",
       "a" + kBegin + "mine" + kUpperBegin + "OLD" + kEnd + "b", "a" + kBegin + "mine" + marked + "b"},
      {"an end that was copied", "a" + kBegin + "OLD" + kEnd + "mine" + kEnd, "a" + marked + "mine" + kEnd},
      {"a begin that was copied behind it", "a" + kBegin + "OLD" + kEnd + "mine" + kBegin,
       "a" + marked + "mine" + kBegin},
      {"an end that was copied before it", "a" + kEnd + "mine" + kBegin + "OLD" + kEnd,
       "a" + kEnd + "mine" + marked},
      {"quotes dropped by an editor come back", "a" + kBeginEx + "OLD" + kEndEx + "b", "a" + marked + "b"},
      {"only a begin: added anew, the old one stays", "a" + kBegin + "OLD", "a" + kBegin + "OLD" + marked},
      {"only an end", "OLD" + kEnd, "OLD" + kEnd + marked},
      {"ends in the wrong order enclose the user's text, which stays", "a" + kEnd + "b" + kBegin,
       "a" + kEnd + "b" + kBegin},
      {"an end that touches the begin encloses nothing", "a" + kEnd + kBegin + "b",
       "a" + kEnd + marked + kBegin + "b"},
      {"and so without quotes", "a" + kEndEx + kBeginEx + "b", "a" + kEndEx + marked + kBeginEx + "b"},
      {"placeholders that touch", "a" + initEnd + initBegin + "b", "a" + initEnd + marked + initBegin + "b"},
      {"placeholders that share their line ends", "a" + kEnd + ".<br><br>+" + kBegin + "b",
       "a" + kEnd + "." + marked + "+" + kBegin + "b"},
      {"characters of two units, and such as change their length with their case",
       kFace + "\xC4\xB0\xC3\x9F" + kBegin + "\xC3\x9F" + kUpperBegin + kFace + kEnd + "\xE2\x84\xAA" + kFace,
       kFace + "\xC4\xB0\xC3\x9F" + kBegin + "\xC3\x9F" + marked + "\xE2\x84\xAA" + kFace},
      {"of two invitations the span from the last begin to the last end",
       "a" + kBegin + "ONE" + kEnd + "b" + kBegin + "TWO" + kEnd + "c",
       "a" + kBegin + "ONE" + kEnd + "b" + marked + "c"},
      {"a placeholder in the wrong order has quoted bookmarks all the same",
       "a" + kEnd + ".<br><br>b<br><br>+" + kBegin + "OLD" + kEnd + "c",
       "a" + kEnd + ".<br><br>b<br><br>+" + marked + "c"},
      {"an empty body", "", marked},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(m_helper.updateVnBodyWithSrcBody(each.body, "NEW", true, &m_owner), each.result) << each.what;
  }
  EXPECT_EQ(m_helper.updateVnBodyWithSrcBody(std::nullopt, "NEW", true, &m_owner), std::nullopt);
}

TEST_F(BodyHelper, AManagerDecidesWhereANewInvitationGoes) {
  const std::string marked = kBegin + "NEW" + kEnd;
  m_owner.atTop = true;
  EXPECT_EQ(m_helper.updateVnBodyWithSrcBody("<body>x", "NEW", true, &m_owner), "<body><br>" + marked + "x");
  EXPECT_EQ(m_helper.updateVnBodyWithSrcBody("<body>x", "NEW", true, nullptr), "<body>x" + marked);
  m_owner.updates = true;
  EXPECT_EQ(m_helper.updateVnBodyWithSrcBody("<body>mine", "NEW", true, &m_owner), marked)
      << "an updated meeting without bookmarks replaces the body";
  for (const std::string& half :
       {"mine" + kBegin + "OLD", "mine" + kEndEx, "mine" + kBegin + "OLD" + kEndEx,
        std::string("mine<A NAME='MacVnBookmarkBegin'></A>OLD<A NAME='MacVnBookmarkEnd'></A>more")}) {
    EXPECT_EQ(m_helper.updateVnBodyWithSrcBody(half, "NEW", true, &m_owner), "<br>" + marked + half)
        << "one end is left, or both in a form that is not ours";
  }
}

TEST_F(BodyHelper, TheEditorsFontWrapperGoesWithTheOldInvitation) {
  // The new text has something before its begin bookmark that the body lacks, so the wrapper is what is found.
  const std::string body = "mine <font size=2>" + kBegin + "OLD" + kEnd + " more@</font> rest";
  const std::string update = "lead" + kBegin + "NEW" + kEnd + "trail";
  EXPECT_EQ(m_helper.updateVnBodyWithVnBookmark(body, update), "mine " + update + " rest");
  // An editor writes what stands behind the invitation without line ends.
  const std::string lines = "lead" + kBegin + "NEW" + kEnd + "\r\n<br>trail";
  EXPECT_EQ(m_helper.updateVnBodyWithVnBookmark("mine lead" + kBegin + "OLD" + kEnd + "trail rest", lines),
            "mine " + lines + " rest");
  for (const std::string mine : {"<font size=2>mine</font>", "<font size=2>mine<br> "}) {
    EXPECT_EQ(m_helper.updateVnBodyWithVnBookmark(mine + kBegin + "OLD" + kEnd + " rest", update),
              mine + update + " rest");
  }
  EXPECT_EQ(m_helper.updateVnBodyWithVnBookmark(body, "no bookmarks"), std::nullopt);
  EXPECT_EQ(m_helper.updateVnBodyWithVnBookmarkEx("no bookmarks", update), std::nullopt);
}

TEST_F(BodyHelper, ADeleteTakesTheInvitationOut) {
  const struct {
    std::string body;
    OptionalText result;
  } cases[] = {
      {"a" + kBegin + "OLD" + kEnd + "b", "ab"},
      {"a" + kBeginEx + "OLD" + kEndEx + "b", "ab"},
      {"typed before " + kEndEx + "b", "b"},
      {"typed before " + kEnd + "b", std::nullopt},
      {"a" + kBegin + "OLD" + kEndEx + "b", "ab"},
      {"a" + kBegin + "mine" + kBegin + "OLD" + kEnd + "b", "a" + kBegin + "mineb"},
      {"a" + kEnd + "mine" + kBegin + "OLD" + kEnd + "b", "a" + kEnd + "mineb"},
      {"a" + kEnd + "mine" + kBegin + "b", "a" + kEnd + "mine" + kBegin + "b"},
      {"a" + kBegin + "OLD", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& each : cases) EXPECT_EQ(m_helper.removeVnBodyForDelete(each.body), each.result) << each.body;
  EXPECT_EQ(m_helper.removeVnBodyForDelete(std::nullopt), std::nullopt);
}

TEST_F(BodyHelper, BodiesAreEqualWhenTheyReadTheSameApartFromBlanks) {
  EXPECT_TRUE(m_helper.isEqualHTMLBodyContent("<p>a b</p>", "<div>a&nbsp;b </div>"));
  EXPECT_TRUE(m_helper.isEqualHTMLBodyContent("a b", "<b>ab</b>"));
  EXPECT_FALSE(m_helper.isEqualHTMLBodyContent("<p>a</p><p>b</p>", "ab"));
  EXPECT_FALSE(m_helper.isEqualHTMLBodyContent(std::nullopt, std::nullopt));
  EXPECT_FALSE(m_helper.isEqualHTMLBodyContent("", ""));
  EXPECT_EQ(m_helper.trimHTMLNBSPTags("a&nbsp;b"), "ab");
  EXPECT_EQ(m_helper.trimHTMLNBSPTags(std::nullopt), std::nullopt);
  EXPECT_EQ(m_helper.convertHTMLToPlainText(""), std::nullopt);
  EXPECT_EQ(m_helper.convertHTMLToPlainText("a&nbsp;b"), "ab");
}

TEST_F(BodyHelper, BigBodiesCostTimeInProportionToTheirSize) {
  const std::string almost(1'000'000, '<');
  const std::string body = almost + kBegin + almost + kEnd + almost;
  const std::string lead = almost + "x";
  const OptionalText result = m_helper.updateVnBodyWithVnBookmark(body, lead + kBegin + "NEW" + kEnd + lead);
  EXPECT_EQ(result->size(), 2 * almost.size() + 2 * lead.size() + kBegin.size() + kEnd.size() + 3);
}

// -- What holds for every body: a few hundred that chance has put together --------------------------------------

// The same numbers in every run.
class BodyProperty : public BodyHelper {
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
