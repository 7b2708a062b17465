#include <gtest/gtest.h>

#include <limits>

#include "tests/support/Texts.h"
#include "util/DateText.h"
#include "util/HtmlText.h"

namespace vorn {
namespace {

TEST(HtmlText, HasTheLinesThatAReaderSees) {
  const struct {
    const char *html, *text;
  } cases[] = {
      {"", ""},
      {"plain  text\n here ", "plain text here"},
      {"a<br>b<br><br>c", "a\nb\n\nc"},
      {"<p>a</p>\n<p>b</p>", "a\nb"},
      {"<div>a<div>b</div>c</div>d", "a\nb\nc\nd"},
      {"<div>a<br></div><div><br></div>b", "a\n\nb"},
      {"<h1>Title</h1>text<ul><li>one<li>two</ul>", "Title\ntext\none\ntwo"},
      {"<table><tr><td>a</td><td>b</td></tr><tr><td><p>c</p></td><td><p>d</p></td></tr></table>e",
       "a\tb\nc\td\ne"},
      {"<table><tr><td>a</td><td></td></tr><tr><td>b</td></tr></table>", "a\t\nb"},
      {"<b>a</b><i>b</i> <u>c</u> d", "ab c d"},
      {"<pre>a\r\n  b\tc</pre>d", "a\n  b\tc\nd"},
      {"<pre>\n a\n\nb </pre>", " a\n\nb "},
      {"a&nbsp;&nbsp;b &amp; &lt;c&gt; &eacute; &#128512; &unknown;",
       "a  b & <c> \xC3\xA9 \xF0\x9F\x98\x80 &unknown;"},
      {"<html><head><title>t</title><style>p{}</style></head><body>hi</body></html>", "hi"},
      {"<script>'<p>no</p>'</script>x<!-- no -->y", "xy"},
      {"x<!--[if mso]>no<![endif]-->y<![if !mso]>z<![endif]>", "xyz"},
      {"<a href=\"https://x/j/1?a>b\">link</a>", "link"},
      {"a < b", "a < b"},
      {"if a<b then c, </ and <! too", "if a<b then c, </ and <! too"},
      {"&#8217; &#146; &#128; &amp;lt; &hellip; &#0;&#xD800;",
       "\xE2\x80\x99 \xE2\x80\x99 \xE2\x82\xAC &lt; \xE2\x80\xA6"},
      {"<a title=\"5\" tall\" name=x'>a</a> <a href=\"x\">b</a><img src=a/b/>c<br/>d", "a bc\nd"},
      {"<STYLE>a<b>c{}</STYLE>x<Script>if(a<b)'</style>'</sCRIPT >y<style/>z<title>t", "xyz"},
      {"a<!-->b<!--->c<!-- > -- -->d<!>e</>f<?x y?>g", "abcdefg"},
      {"<head><title>t</title>text in the head</head><body>b", "text in the head\nb"},
      {"<body>mine<html><head><style>p{}</style></head><body>old</body></html> after</body>", "mineold after"},
      {"<p>unclosed <b>all", "unclosed all"},
      {"text<!-- unterminated", "text"},
      {"<meta charset=iso-8859-1>caf\xC3\xA9 \xFF", "caf\xC3\xA9 \xEF\xBF\xBD"},
  };
  for (const auto& each : cases) EXPECT_EQ(htmlToPlainText(each.html), each.text) << each.html;
}

// As word processors and mail programs write them.
TEST(HtmlText, KeepsTheTextOfWordProcessorsAndNothingElse) {
  const struct {
    const char *what, *html, *text;
  } cases[] = {
      {"a document with its conditions and styles",
       "<html xmlns:o=\"urn:x:office\"><head>\n<meta name=Generator content=\"Word 15\">\n"
       "<!--[if !mso]><style>v\\:* {behavior:url(#default#VML);}</style><![endif]-->"
       "<style><!--\n@font-face\n\t{font-family:\"Cambria Math\";}\n--></style>"
       "<!--[if gte mso 9]><xml><o:shapedefaults v:ext=\"edit\"/></xml><![endif]--></head>\n"
       "<body lang=EN-US link=\"#0563C1\"><div class=WordSection1>\n"
       "<p class=MsoNormal><span style='mso-ascii-font-family:\"A > B\"'>Dear\nall,<o:p></o:p></span></p>\n"
       "<p class=MsoNormal><o:p>&nbsp;</o:p></p>\n<p class=MsoNormal>see below<o:p></o:p></p></div></body></html>",
       "Dear all,\n \nsee below"},
      {"a list whose signs are shown to some programs only",
       "<p class=MsoListParagraph style='text-indent:-18pt'><![if "
       "!supportLists]><span>1.<span>&nbsp;&nbsp;</span></span>"
       "<![endif]>first<o:p></o:p></p>",
       "1.  first"},
      {"text for all programs but one", "<!--[if !mso]><!-->shown<!--<![endif]--> <!--[if mso]>hidden<![endif]-->",
       "shown"},
      {"a condition whose begin was lost", "a<![endif]-->b", "ab"},
      {"a namespace among the text", "<?xml:namespace prefix = o ns = \"urn:x\" />text<o:p/>", "text"},
      {"data for other programs", "<xml><w:View>Normal</w:View></xml><body>text", "text"},
      {"nested font tags",
       "<FONT size=2><FONT face=\"Arial\"><FONT color=#000080>a</FONT> <B>b</FONT></B></FONT>c", "a bc"},
      {"a table within a table",
       "<table><tbody><tr><td><table><tr><td>a</td><td>b</td></tr></table></td><td>c</td></tr></tbody></table>",
       "a\tb\tc"},
  };
  for (const auto& each : cases) EXPECT_EQ(htmlToPlainText(each.html), each.text) << each.what;
  EXPECT_EQ(htmlToPlainText("a&nbsp;b&#160;c", NoBreakSpaceEntity::leftOut), "ab c");
}

TEST(HtmlText, GoesOnBehindAZeroByte) {
  EXPECT_EQ(htmlToPlainText(std::string("a\0b", 3)),
            "a\xEF\xBF\xBD"
            "b");
}

// Each of these costs the square of its size in a reader that takes no care; the program's time limit tells.
TEST(HtmlText, StaysLinearForMarkupThatIsMeantToHurt) {
  const std::string attributes = [] {
    std::string text = "<a";
    for (int i = 0; i < 100'000; ++i) text += " a" + std::to_string(i) + "=1";
    return text;
  }();
  EXPECT_EQ(htmlToPlainText(repeated("<b>", 200'000) + repeated("</i>", 200'000) + "x"), "x");
  EXPECT_EQ(htmlToPlainText(repeated("<div>", 200'000) + "x"), "x");
  EXPECT_EQ(htmlToPlainText(attributes + ">x</a>y"), "xy");
  EXPECT_EQ(htmlToPlainText(attributes + " b='<p> c>x</a>y"), "c>xy")
      << "a value that is not closed ends with its tag";
  EXPECT_EQ(htmlToPlainText(repeated("<font size=2>", 100'000) + "x" + repeated("</font>", 100'000)), "x");
  EXPECT_EQ(htmlToPlainText(repeated("<a b=\"'>", 300'001)), "");
  EXPECT_EQ(htmlToPlainText(repeated("<script>", 200'000) + "</script>x"), "x");
  EXPECT_EQ(htmlToPlainText("<img src=\"" + repeated("QUJD", 3'000'000) + "\">x"), "x");
  EXPECT_EQ(htmlToPlainText("<!--" + repeated("<!--", 1'000'000) + "-->x"), "x");
  EXPECT_EQ(htmlToPlainText(repeated("a", 11'000'000)).size(), 11'000'000U);
  EXPECT_EQ(htmlToPlainText(repeated("<![", 500'000)).size() > 0, true);
}

TEST(DateText, RefusesUnknownZonesAndOtherForms) {
  for (const char* zone : {"", "Nowhere/Else", "UTC\xFF"}) {
    EXPECT_EQ(dateText(0, zone), std::nullopt) << zone;
    EXPECT_EQ(dateFromText("2026-01-01 00:00:00", zone), std::nullopt) << zone;
  }
  for (const char* text : {"", "2026-01-01", "2026-1-01 00:00:00", "2026-02-29 00:00:00", "2026-01-01 24:00:00",
                           "2026-01-01 00:60:00", "2026-13-01 00:00:00", "2026-01-01T00:00:00",
                           "2026-01-01 00:00:00 ", "-026-01-01 00:00:00"}) {
    EXPECT_EQ(dateFromText(text, "UTC"), std::nullopt) << text;
  }
  EXPECT_EQ(dateFromText("1999-09-29 19:09:59", "UTC"), 938632199);
  for (const double seconds : {1e300, -1e300, 253402300800.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(dateText(seconds, "UTC"), std::nullopt);
  }
}

}  // namespace
}  // namespace vorn
