#include <gtest/gtest.h>

#include "invitation/vnBodyHelper.h"
#include "invitation/vnEmailBodyMgr.h"
#include "tests/proxies/FakeHost.h"
#include "tests/proxies/FakeOwners.h"
#include "tests/support/TestPlatform.h"
#include "util/vnMd5Utils.h"

namespace vorn {
namespace {

struct Owner final : InvitationOwner {
  bool isUpdateVornMeetingEvent() override { return false; }
  bool putInvitationAtTheTop() override { return false; }
  OptionalText encodeMailBody() override { return digest; }

  OptionalText digest;
};

class EmailBodyMgr : public testing::Test {
 protected:
  // An editor whose body is this; what is written goes to its event.
  HostObject editorWithBody(const std::string& body) {
    const HostObject content = host_.object("OLWordMailEditorContent", {{"bodyContent", body}});
    owners_.wordMailEditor = host_.object("OLWordMailEditor", {{"editorContent", content}});
    event_ = host_.object("ECCalendarEvent", {{"setBody:", Value()}});
    return host_.object("ERCalendarEventEditorViewController", {{"content", event_}, {"setIsDirty:", Value()}});
  }

  TestPlatform world_;
  FakeHost host_{world_.classRuntime};
  FakeOwners owners_;
  HostObject event_;
  Owner owner_;
  vnEmailBodyMgr manager_;
};

TEST_F(EmailBodyMgr, AnInvitationHasChangedUnlessItsDigestIsTheStoredOne) {
  EXPECT_TRUE(manager_.isVnBodyChanged("text")) << "no manager";
  manager_.setMeetingMgrInstance(&owner_);
  EXPECT_TRUE(manager_.isVnBodyChanged("text")) << "no digest";
  owner_.digest = "";
  EXPECT_TRUE(manager_.isVnBodyChanged("text")) << "an empty digest";
  owner_.digest = vnMd5Utils::vnMD5Hex("text");
  EXPECT_FALSE(manager_.isVnBodyChanged("text"));
  EXPECT_TRUE(manager_.isVnBodyChanged("text "));
  EXPECT_TRUE(manager_.isVnBodyChanged(std::nullopt));
}

TEST_F(EmailBodyMgr, NothingIsDueWithoutAnEditor) {
  EXPECT_FALSE(manager_.needUpdateVnEmail(nullptr, "text", true, false));
  manager_.updateMailBody(HostObject(), "text", false, false);
  manager_.updateMailBodyForPAC(HostObject(), "text", false);
}

TEST_F(EmailBodyMgr, WritesABodyOnlyWhenThatIsDue) {
  manager_.setMeetingMgrInstance(&owner_);
  owner_.digest = vnMd5Utils::vnMD5Hex("Join here");
  const struct {
    const char *why, *body, *invitation;
    bool isDelete, isHTML, written;
  } cases[] = {
      {"the invitation that stands there", "mine", "Join here", false, false, false},
      {"the same as HTML: its digest is that of its text", "mine", "<p>Join&nbsp; <b>here</b></p>", false, true,
       false},
      {"another invitation", "mine", "Join there", false, false, true},
      {"another as HTML", "mine", "<p>Join there</p>", false, true, true},
      {"a body that the user has emptied", "<p>&nbsp;</p>", "Join here", false, false, true},
      {"nothing to write", "mine", "", false, false, false},
      {"nothing to write into an empty body", "", "", false, true, false},
      {"nothing left of a deleted meeting", "mine", "", true, false, true},
      {"a deleted meeting whose notice is the text that stands there", "mine", "Join here", true, false, false},
  };
  for (const auto& each : cases) {
    manager_.updateMailBody(editorWithBody(each.body), each.invitation, each.isDelete, each.isHTML);
    EXPECT_EQ(host_.calls(event_, "setBody:").size(), each.written ? 1U : 0U) << each.why;
  }
  manager_.updateMailBodyForPAC(editorWithBody("mine"), "Join here", false);
  EXPECT_EQ(host_.get(event_, "body"), Value("mine|Join here")) << "an audio conference is added without a test";
}

TEST_F(EmailBodyMgr, AnEmptyInvitationTakesTheOldOneOut) {
  const std::string body = "a" + std::string(kvn_BeginBookmark) + "OLD" + std::string(kvn_EndBookmark) + "b";
  EXPECT_EQ(manager_.getMailBodyContentWithVorn(body, "", true), "ab");
  EXPECT_EQ(manager_.getMailBodyContentWithVorn(body, std::nullopt, true), "ab");
  EXPECT_EQ(manager_.getMailBodyContentWithVorn("a", "N", true),
            "a" + std::string(kvn_BeginBookmark) + "N" + std::string(kvn_EndBookmark));
}

}  // namespace
}  // namespace vorn
