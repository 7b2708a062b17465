#include "lab/host/EditorState.h"

#include <gtest/gtest.h>

#include "lab/host/BodyHtml.h"

namespace vornlab {
namespace {

TEST(EditorState, OnlyATrueDifferenceOfTheBodyIsAChange) {
  EditorState editor;
  editor.load("<p>loaded</p>");
  editor.typed.summary = "typed";
  struct Row {
    const char* shown;
    bool isChange;
  };
  for (const auto& [shown, isChange] :
       {Row{"<p>loaded</p>", false}, {"<p>typed</p>", true}, {"<p>loaded</p>", true}}) {
    editor.show(shown);
    EXPECT_EQ(editor.contentDidChange(), isChange) << "a body that was changed back is still to be saved";
  }
  EXPECT_EQ(editor.changes().body, "<p>loaded</p>");
  EXPECT_FALSE(editor.changes().isBodyHtml);
  editor.switchToPlainText(true);
  EXPECT_EQ(editor.changes().isBodyHtml, false);
  editor.typed.organizer = "kim@vorn.example";
  editor.saved(false);
  EXPECT_EQ(editor.changes().organizer, "kim@vorn.example") << "nobody is invited yet, and it has no place";
  editor.saved(true);
  EXPECT_FALSE(editor.changes().organizer);
  EXPECT_TRUE(editor.uncommitted().empty());
  EXPECT_FALSE(editor.contentDidChange());

  editor.typed.summary = "typed";
  editor.show("<p>typed</p>");
  EXPECT_TRUE(editor.contentDidChange());
  editor.load("<p>another</p>");
  EXPECT_FALSE(editor.changes().body) << "what was loaded takes the place of a typed body alone";
  EXPECT_EQ(editor.changes().summary, "typed");
}

TEST(EditorState, APieceComesInFrontOfWhatTheBodyShows) {
  struct Row {
    const char* body;
    const char* text;
    bool isHtml;
    std::string shown;
  };
  const Row rows[] = {{"<html><body class=\"x\"><p>old</p></body>", "<b>new</b>", true,
                       "<html><body class=\"x\"><b>new</b><p>old</p></body>"},
                      {"<p>old</p>", "<b>new</b>", true, "<b>new</b><p>old</p>"},
                      {"<body", "new", true, "new<body"},
                      {"old", "a  < b\n c", false, htmlForPlainText("a  < b\n c") + "old"}};
  for (const Row& row : rows) {
    EditorState editor;
    editor.load(row.body);
    editor.insert(row.text, row.isHtml);
    EXPECT_EQ(editor.html(), row.shown);
    EXPECT_TRUE(editor.contentDidChange());
  }
  for (const char* text : {"a  < b\n c", "a  < b\r\n c", "a  < b\r c"})
    EXPECT_NE(htmlForPlainText(text).find("<body>a &nbsp;&lt; b<br>\n&nbsp;c</body>"), std::string::npos) << text;
}

TEST(EditorState, WhatWasTypedIsToldAsTheHostsDictionaryHasIt) {
  EditorState editor;
  EXPECT_FALSE(EditorState::namesChanges(editor.namesOfUncommitted()));
  editor.typed.summary = "";
  editor.typed.location = "";
  editor.typed.start = CalendarTime();
  const auto told = editor.uncommitted();
  ASSERT_EQ(told.size(), 3U);
  EXPECT_TRUE(std::holds_alternative<std::nullptr_t>(told[0].second)) << "the host's null object";
  EXPECT_TRUE(std::holds_alternative<std::string>(told[1].second)) << "an emptied location is a text";
  EXPECT_EQ(editor.namesOfUncommitted(), "content.summary\ncontent.location\ncontent.startTime\n");
  EXPECT_TRUE(EditorState::namesChanges(editor.namesOfUncommitted()));
}

}  // namespace
}  // namespace vornlab
