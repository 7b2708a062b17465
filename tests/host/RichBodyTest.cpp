#include "lab/host/RichBody.h"

#include <gtest/gtest.h>

#include "invitation/vnBodyHelper.h"
#include "util/HtmlText.h"
#include "util/Utf16.h"

namespace vornlab {
namespace {

using vorn::toUtf16;
using vorn::toUtf8;

// The shown text with what is bold as *b*, italic as /i/, underlined as _u_, and a link as [text](address).
std::string drawn(const RichBody& body) {
  std::string result;
  std::size_t at = 0;
  for (const RichBody::Run& run : body.runs()) {
    std::string signs;
    if ((run.style & kBold) != 0) signs += '*';
    if ((run.style & kItalic) != 0) signs += '/';
    if ((run.style & kUnderlined) != 0) signs += '_';
    result += toUtf8(body.text().substr(at, run.begin - at)) + signs + (run.link.empty() ? "" : "[");
    result += toUtf8(body.text().substr(run.begin, run.length));
    if (!run.link.empty()) result += "](" + run.link + ")";
    result.append(signs.rbegin(), signs.rend());
    at = run.begin + run.length;
  }
  return result + toUtf8(body.text().substr(at));
}

TEST(RichBody, ShowsWhatAReaderSees) {
  struct Row {
    const char* html;
    const char* drawn;
  };
  const Row rows[] = {
      {"", ""},
      {"plain & <3 > \"2\" &amp &#65 &nosuch; &lt;b&gt;&#x1F600;", "plain & <3 > \"2\" &amp A &nosuch; <b>😀"},
      {"<p>one</p>\n <p>two<br>three</p><hr>four<div></div>", "one\ntwo\nthree\nfour"},
      {"<B>bold <i>both</i></B><em>slant</em> <u>line</u><h2>Head</h2>rest",
       "*bold **/both/*/slant/ _line_\n*Head*\nrest"},
      {"<a href='http://v.example/?a=1&amp;b=2'>go</a> <a name=x>no <A HREF=to>yes</A></a>",
       "[go](http://v.example/?a=1&b=2) no [yes](to)"},
      {"a<!-- <b>not</b> --><style>b{}</style><script>'</b>'</script><title>t</title>b", "ab"},
      {"a<![if mso]>b<![endif]><o:p>&nbsp;</o:p>c<img src=\"x>y\" alt='\"'>d", "ab cd"},
      {"<table><tr><td>1</td><td><p>2</p></td></tr><tr><td>3</td><td></td></tr></table>5", "1\t2\n3\t\n5"},
      {"<pre>\n a\n  <b>b</b>\r\n</pre>c", " a\n  *b*\nc"},
      {"a \n <b> b </b> c", "a *b *c"},
      {"e\xCC\x81\xF0\x9F\x98\x80\xC2\x80\xC2\xA0\xFF", "e\xCC\x81\xF0\x9F\x98\x80\xE2\x82\xAC \xEF\xBF\xBD"},
      {"</b>a<b>b<i>c</b>d</i>e<b", "a*b**/c/*/d/e<b"},
      {"a&#32;&#32;b<p>&#32;a<pre>c&#10;&#32;d", "a b\na\nc\n d"},
      {"<img alt= src=\"a>b\">t<a href=u?q=\"x>y\">u</a><b =\"x>y\">v<br / >", "t[u](u?q=\"x>y\")*v\n*"},
      {"\xEF\xBB\xBF"
       "a\x01\f\xEF\xBF\xBE"
       "b",
       "ab"},
  };
  for (const Row& row : rows) {
    const RichBody body(row.html);
    EXPECT_EQ(drawn(body), row.drawn) << row.html;
    EXPECT_EQ(toUtf8(body.text()), vorn::htmlToPlainText(row.html)) << "as the plug-in reads it: " << row.html;
    EXPECT_EQ(body.html(), row.html);
  }
}

TEST(RichBody, AnEditChangesTheBytesOfItsOwnPlace) {
  struct Row {
    const char* html;
    std::size_t begin;
    std::size_t length;
    const char* typed;
    const char* after;
  };
  const Row rows[] = {
      // Beginning, middle and end, also of nothing.
      {"", 0, 0, "a<b>&\n\"c\"", "a&lt;b&gt;&amp;<br>\"c\""},
      {"<html><head><style>p{}</style></head><body class=x></body></html>", 0, 0, "hi",
       "<html><head><style>p{}</style></head><body class=x>hi</body></html>"},
      {"<p>ab</p>", 0, 0, "x", "<p>xab</p>"},
      {"<p>ab</p>", 2, 0, "x", "<p>abx</p>"},
      {"<p>a<!--k--><img src=1>b</p>", 0, 2, "", "<p><!--k--><img src=1></p>"},
      {"<p>a&amp;b</p>", 1, 1, "+", "<p>a+b</p>"},
      // What is new looks as what stands before it, and what replaces something as that did.
      {"<b>a</b>b", 1, 0, "x", "<b>ax</b>b"},
      {"<b>ab</b>cd", 1, 2, "x", "<b>ax</b>d"},
      {"see <a href=u>it</a>", 6, 0, " now", "see <a href=u>it</a> now"},
      {"<a href=u>it </a>", 2, 0, "x", "<a href=u>it</a>x"},
      {"<a href=u>a<a href=v>b</a>c</a>", 1, 0, "x", "<a href=u>ax<a href=v>b</a>c</a>"},
      {"<p><a href=u>i</a></p><p>b</p>", 1, 0, "x", "<p><a href=u>i</a>x</p><p>b</p>"},
      // Blanks that would be lost are made firm.
      {"<p>a</p>", 1, 0, " ", "<p>a&nbsp;</p>"},
      {"a b c", 2, 1, "", "a&nbsp; c"},
      {"a b<br>c", 2, 1, "", "a&nbsp;<br>c"},
      {"a<b> </b> b", 1, 1, "", "a<b></b>b"},
      {"a <b> b</b>", 2, 0, "x", "a x<b>b</b>"},
      {"a\n  b", 1, 1, "", "ab"},
      // Lines.
      {"<p>a</p> <p>b</p>", 1, 1, "", "<p>ab</p>"},
      {"<div><p class=x>ab</p><!--k--></div><div><p>cd</p></div>", 1, 3, "",
       "<div><p class=x>a<!--k-->d</p></div>"},
      {"<p>a</p><p>b</p><p>c</p>", 2, 1, "", "<p>a</p><p><br></p><p>c</p>"},
      {"<p>a</p><p>b</p><p>c</p>", 2, 2, "", "<p>a</p><p>c</p>"},
      {"<p>a</p><p>b</p>", 1, 0, "\n", "<p>a<br><br></p><p>b</p>"},
      {"<p>a<p>b", 1, 1, "-", "<p>a-b"},
      {"<ul><li>a</ul><p>b</p>", 1, 1, "", "<ul><li>a</ul><p>b</p>"},
      {"<table><tr><td>ab</td><td>cd</td></tr></table>", 1, 3, "x",
       "<table><tr><td>ax</td><td>d</td></tr></table>"},
      {"<p>a</p> <p>bc</p>", 1, 2, "", "<p>ac</p>"},
      {"<p>a</p><p>bc</p>", 1, 2, "x", "<p>axc</p>"},
      {"<p>a</p><p>q</p>", 2, 1, "", "<p>a<br></p><p></p>"},
      {"<table><tr><td>a</td><td>b</td></tr></table>", 1, 2, " y ",
       "<table><tr><td>a</td><td>&nbsp;y&nbsp;</td></tr></table>"},
      {"<table><tr><td>a</td><td>&lt;</td></tr></table>", 1, 1, " y ",
       "<table><tr><td>a y&nbsp;</td><td>&lt;</td></tr></table>"},
      {"<!DOCTYPE html><html><p></p></html>", 0, 0, "q", "<!DOCTYPE html><html>q<p></p></html>"},
      // A sign that stands for itself alone does not become markup with what is typed or left beside it.
      {"<p>x < y > z</p>", 3, 1, "", "<p>x &lt;y > z</p>"},
      {"<p>x < y > z</p>", 3, 0, "q", "<p>x &lt;q y > z</p>"},
      {"a&", 2, 0, "lt;", "a&amp;lt;"},
      {"&#128512a", 2, 1, "4", "&#128512;4"},
      {"&#xDfffffffffffffffffffffffffffffffffffffffffffU+", 0, 1, "",
       "&#xDfffffffffffffffffffffffffffffffffffffffffff;+"},
      {"a&xlt;", 2, 1, "", "a&amp;lt;"},
      {"a&#65", 2, 0, "6", "a&#65;6"},
      {"<p>a&#32b</p>", 2, 0, "6", "<p>a&#32;6b</p>"},
      {"a&#65b", 1, 1, "6", "a6b"},
      {"a < b</", 7, 0, "c\n", "a < b&lt;/c<br>"},
      {"<b t=\"x>y", 1, 0, "\"", "<b t=\"x>y&quot;"},
      {"a<br b='>'&#6", 2, 0, "x", "a<br b='>'&#6>x"},
      {"a<br b='>'", 1, 0, "x", "ax<br b='>'"},
      {"<div><br></div>", 0, 0, "x", "<div>x<br></div>"},
      {"<pre>a\nb</pre>", 1, 1, "", "<pre>ab</pre>"},
      // Characters of two units, in whole and by half, and signs above a letter.
      {"a\xF0\x9F\x98\x80"
       "b",
       1, 2, "", "ab"},
      {"a\xF0\x9F\x98\x80"
       "b",
       2, 1, "x", "axb"},
      {"a\xF0\x9F\x98\x80"
       "b",
       1, 1, "\xF0\x9F\x98\x81",
       "a\xF0\x9F\x98\x81"
       "b"},
      {"e\xCC\x81", 1, 1, "", "e"},
      // What has no sign, and what lies behind the end.
      {"a", 1, 0, "\t\x01\xEF\xBF\xBC\r\nb", "a&nbsp;<br>b"},
      {"ab", 1, 99, "", "a"},
      {"ab", 99, 99, "c", "abc"},
  };
  for (const Row& row : rows) {
    RichBody body(row.html);
    body.replace(row.begin, row.length, toUtf16(row.typed));
    EXPECT_EQ(body.html(), row.after) << row.html << " at " << row.begin;
  }
}

// Wherever somebody types or deletes in one line, exactly that is shown afterwards, and nothing unseen is lost.
TEST(RichBody, ShowsAfterEachEditWhatAPersonExpects) {
  const char* const bodies[] = {
      R"(<html><body><p class=M>Dear <b>all</b>, &nbsp;<!--k--> see <a href=u> this </a>.</p>
<p> next  &amp; <i>x </i> y
</p></body></html>)",
      "one<br>two <br><br> <div> three <u> four</u></div><div>five<br></div>six",
      "<ul>\n<li>a <b> b</b></li>\n<li>c</li></ul><!--k--><div><br></div>end <span style='x'> of</span> it "};
  const std::u16string texts[] = {u"", u"x", u" ", u"  ", u"\n", u" x ", u"x\ny"};
  for (const char* html : bodies) {
    const std::u16string shown = RichBody(html).text();
    for (std::size_t begin = 0; begin <= shown.size(); ++begin) {
      for (std::size_t length = 0; length <= 3 && begin + length <= shown.size(); ++length) {
        if (shown.substr(begin, length).find(u'\n') != std::u16string::npos) continue;
        for (const std::u16string& typed : texts) {
          RichBody body(html);
          body.replace(begin, length, typed);
          std::u16string expected = shown;
          expected.replace(begin, length, typed);
          EXPECT_EQ(toUtf8(body.text()), toUtf8(expected))
              << html << "\n"
              << begin << "+" << length << " '" << toUtf8(typed) << "'\n"
              << body.html();
          EXPECT_EQ(body.html().find("<!--k-->") == std::string::npos,
                    std::string(html).find("<!--k-->") == std::string::npos);
        }
      }
    }
  }
}

TEST(RichBody, WhatIsTypedInOneGoHasBlanksThatCanBeBroken) {
  RichBody body("<p>now: </p>");
  const std::u16string typed = u"two words,\nand  more";
  for (const char16_t unit : typed) body.replace(body.text().size(), 0, std::u16string(1, unit));
  EXPECT_EQ(body.html(), "<p>now:two words,<br>and &nbsp;more </p>");
  body.replace(body.text().size() - 4, 4, u"");
  EXPECT_EQ(body.html(), "<p>now:two words,<br>and &nbsp; </p>");
  body.replace(0, 0, u"x ");
  EXPECT_EQ(body.html(), "<p>x now:two words,<br>and &nbsp; </p>");

  // A line that is empty for a moment leaves no break behind.
  RichBody lines("<p>a</p><p>b</p>");
  struct Row {
    std::size_t begin;
    std::size_t length;
    const char16_t* typed;
    const char* html;
    const char* text;
  };
  const Row rows[] = {{1, 0, u"\n", "<p>a<br><br></p><p>b</p>", "a\n\nb"},
                      {2, 0, u"c", "<p>a<br>c</p><p>b</p>", "a\nc\nb"},
                      {2, 1, u"", "<p>a<br><br></p><p>b</p>", "a\n\nb"},
                      {2, 1, u"", "<p>a<br></p><p>b</p>", "a\nb"}};
  for (const Row& row : rows) {
    lines.replace(row.begin, row.length, row.typed);
    EXPECT_EQ(toUtf8(lines.text()), row.text);
    EXPECT_EQ(lines.html(), row.html);
  }
  // Behind the break that nobody has typed the next line begins.
  RichBody next("<p>a</p><p>b</p>");
  next.replace(1, 0, u"\n");
  next.replace(3, 0, u"x");
  EXPECT_EQ(next.html(), "<p>a<br><br></p><p>xb</p>");
  RichBody emptied("<p>a</p><p>b</p>");
  emptied.replace(0, 1, u"");
  EXPECT_EQ(emptied.html(), "<p><br></p><p>b</p>");
  emptied.replace(0, 0, u"c");
  EXPECT_EQ(emptied.html(), "<p>c</p><p>b</p>");
}

// What somebody types at either end of the invitation, in place of all of it, or inside; "^" is where the caret is
// then. The plug-in's next update keeps exactly what was typed outside.
TEST(RichBody, WhatIsTypedAroundAnInvitationIsNotThePlugInsToReplace) {
  const struct {
    const char* html;
    std::size_t begin;
    std::size_t length;
    std::u16string typed;
    const char* shown;
    const char* updated;
  } rows[] = {
      {"<body>{<div><p>Robin</p><p>Help</p></div>}</body>", 0, 0, u"Hi, you\n!", "Hi, you\n!^\nRobin\nHelp",
       "<body>Hi, you<br>!{NEW}</body>"},
      {"<body>{<div><p>Robin</p><p>Help</p></div>}</body>", 10, 0, u" Mine ", "Robin\nHelp\n Mine ^",
       "<body>{NEW}&nbsp;Mine&nbsp;</body>"},
      {"<body>{<p>Robin</p>}</body>", 5, 0, u"\nMine", "Robin\n\nMine^", "<body>{NEW}<br>Mine</body>"},
      {"<body>{<p>Robin</p>}</body>", 0, 5, u"Mine", "Mine^", "<body>Mine{NEW}</body>"},
      {"<body>{<p>Robin</p>}</body>", 3, 0, u"x", "Robx^in", "<body>{NEW}</body>"},
      {"<body>{<p>Robin</p>}</body>", 2, 3, u"x", "Ro\nx^", "<body>{NEW}x</body>"},
      {"<body>{<p>Robin</p>}</body>", 0, 3, u"x", "x^\nin", "<body>x{NEW}</body>"},
      {"{}", 0, 0, u"x", "x^", "x{NEW}"},
      // Beside a person's own text it stands on a line of its own.
      {"<p>Own</p>{<p>Robin</p>}<p>Low</p>", 4, 0, u"xy", "Own\nxy^\nRobin\nLow", "<p>Own</p>xy{NEW}<p>Low</p>"},
      {"<p>Own</p>{<p>Robin</p>}<p>Low</p>", 9, 0, u"xy", "Own\nRobin\nxy^\nLow", "<p>Own</p>{NEW}xy<p>Low</p>"},
      {"Own{<p>Robin</p>}Low", 4, 0, u"xy", "Own\nxy^\nRobin\nLow", "Own<br>xy{NEW}Low"},
      {"Own{<p>Robin</p>}Low", 9, 0, u"xy", "Own\nRobin\nxy^\nLow", "Own{NEW}xy<br>Low"},
      {"Own{Robin}Low", 8, 0, u"xy", "OwnRobinxy^Low", "Own{NEW}xyLow"},
      {"<p>Own</p>{<p>Robin</p>}<p>Low</p>", 6, 5, u"x", "Own\nRox^ow", "<p>Own</p>{NEW}xow</p>"},
      {"<p>Own</p>{<p>Robin</p>}<p>Low</p>", 2, 4, u"x", "Owx^bin\nLow", "<p>Owx{NEW}<p>Low</p>"},
  };
  const auto withBookmarks = [](std::string text, bool isQuoted) {
    const auto put = [&](const char* sign, std::string_view bookmark) {
      if (text.find(sign) != std::string::npos) text.replace(text.find(sign), 1, bookmark);
    };
    put("{", isQuoted ? vorn::kvn_BeginBookmark : vorn::kvn_BeginBookmarkEx);
    put("}", isQuoted ? vorn::kvn_EndBookmark : vorn::kvn_EndBookmarkEx);
    return text;
  };
  for (const auto& row : rows) {
    for (const bool isQuoted : {true, false}) {
      RichBody body(withBookmarks(row.html, isQuoted));
      // At once and, as it comes from a keyboard, one by one.
      std::size_t caret = row.begin;
      for (std::size_t at = 0; at < row.typed.size(); ++at) {
        body.replace(caret, at == 0 ? row.length : 0, row.typed.substr(at, isQuoted ? std::u16string::npos : 1));
        caret = body.caret();
        if (isQuoted) break;
      }
      EXPECT_EQ(toUtf8(body.text().substr(0, caret) + u"^" + body.text().substr(caret)), row.shown) << row.html;
      EXPECT_EQ(vorn::vnBodyHelper::sharedInstance().updateVnBodyWithSrcBody(body.html(), "NEW", true, nullptr),
                withBookmarks(row.updated, true))
          << body.html();
    }
  }
}

TEST(RichBody, AStyleIsGivenToWhatHasItNotAndTakenFromWhatHasIt) {
  struct Row {
    const char* html;
    std::size_t begin;
    std::size_t length;
    const char* after;
  };
  const Row rows[] = {{"<p>ab</p><p>cd</p>", 1, 3, "<p>a<b>b</b></p><p><b>c</b>d</p>"},
                      {"a<i>b</i>c", 0, 3, "<b>a</b><i><b>b</b></i><b>c</b>"},
                      {"a<b>b</b>c", 0, 2, "<b>a</b><b>b</b>c"},
                      {"a<b>b</b><b>c</b>", 1, 2, "abc"},
                      {"<b>ab</b>", 0, 1, "<b>ab</b>"},
                      {"<strong>a</strong>", 0, 1, "<strong>a</strong>"},
                      {"a<b \xFF<b>b</b>c", 1, 1, "a<b \xFF<b>b</b>c"},
                      {"</a", 0, 2, "<b>&lt;/</b>a"},
                      {"ab", 1, 0, "ab"}};
  for (const Row& row : rows) {
    RichBody body(row.html);
    EXPECT_EQ(body.turn(row.begin, row.length, kBold), std::string(row.html) != row.after) << row.html;
    EXPECT_EQ(body.html(), row.after);
  }
}

TEST(RichBody, FindsWhatWasEditedByTheCaret) {
  struct Row {
    const char16_t* before;
    const char16_t* after;
    std::size_t caret;
    RichBody::Edit edit;
  };
  const Row rows[] = {{u"aaa", u"aaaa", 2, {1, 0, u"a"}}, {u"aaa", u"aa", 1, {1, 1, u""}},
                      {u"abc", u"xyc", 2, {0, 2, u"xy"}}, {u"abc", u"abc", 1, {1, 0, u""}},
                      {u"", u"ab", 99, {0, 0, u"ab"}},    {u"ab", u"", 0, {0, 2, u""}}};
  for (const Row& row : rows) EXPECT_EQ(RichBody::editBetween(row.before, row.after, row.caret), row.edit);
}

// What is counted are the bytes that are looked at, some of them more than once.
TEST(RichBody, IsReadInTimeLinearInItsSize) {
  const auto costs = [](std::string_view piece, std::size_t size) {
    std::string html;
    while (html.size() < size) html += piece;
    RichBody body(html + "end");
    body.replace(body.text().size(), 0, u" of it");
    EXPECT_LT(body.lookedAt(), 4 * size) << piece;
    // Nobody would wait for the end of this if each character that goes looked through all of them.
    body.replace(0, body.text().size(), u"new");
    EXPECT_NE(body.text().find(u"new"), std::u16string::npos) << piece;
  };
  costs("<p>a&amp;b</p>", 1 << 20);
  for (const char* hostile : {"<!--", "<a b='", "<b x=\"'>", "<script>", "&#65;&x", "&#32", "<", "<td>",
                              "</p> <i>", "<pre>\n", "\xFF", "<a href=x>y"})
    costs(hostile, 1 << 17);
}

}  // namespace
}  // namespace vornlab
