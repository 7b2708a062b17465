#include <gtest/gtest.h>

#include "invitation/vnBodyHelper.h"
#include "invitation/vnEmailBodyMgr.h"
#include "tests/proxies/FakeOwners.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestPlatform.h"
#include "util/vnMd5Utils.h"

namespace vorn {
namespace {

struct DigestOwner final : InvitationOwner {
  bool isUpdateVornMeetingEvent() override { return false; }
  bool putInvitationAtTheTop() override { return false; }
  OptionalText encodeMailBody() override { return digest; }

  OptionalText digest;
};

class EmailBodyMgr : public testing::Test {
 protected:
  // An editor whose body is this; what is written goes to its event.
  HostObject editorWithBody(const std::string& body) {
    const HostObject content = m_host.object("OLWordMailEditorContent", {{"bodyContent", body}});
    m_owners.wordMailEditor = m_host.object("OLWordMailEditor", {{"editorContent", content}});
    m_event = m_host.object("ECCalendarEvent", {{"setBody:", Value()}});
    return m_host.object("ERCalendarEventEditorViewController", {{"content", m_event}, {"setIsDirty:", Value()}});
  }

  TestPlatform m_world;
  FakeHost m_host{m_world.classRuntime};
  FakeOwners m_owners;
  HostObject m_event;
  DigestOwner m_owner;
  vnEmailBodyMgr m_manager;
};

TEST_F(EmailBodyMgr, AnInvitationHasChangedUnlessItsDigestIsTheStoredOne) {
  EXPECT_TRUE(m_manager.isVnBodyChanged("text")) << "no manager";
  m_manager.setMeetingMgrInstance(&m_owner);
  EXPECT_TRUE(m_manager.isVnBodyChanged("text")) << "no digest";
  m_owner.digest = "";
  EXPECT_TRUE(m_manager.isVnBodyChanged("text")) << "an empty digest";
  m_owner.digest = vnMd5Utils::vnMD5Hex("text");
  EXPECT_FALSE(m_manager.isVnBodyChanged("text"));
  EXPECT_TRUE(m_manager.isVnBodyChanged("text "));
  EXPECT_TRUE(m_manager.isVnBodyChanged(std::nullopt));
}

TEST_F(EmailBodyMgr, NothingIsDueWithoutAnEditor) {
  EXPECT_FALSE(m_manager.needUpdateVnEmail(nullptr, "text", true, false));
  m_manager.updateMailBody(HostObject(), "text", false, false);
  m_manager.updateMailBodyForPAC(HostObject(), "text", false);
}

TEST_F(EmailBodyMgr, WritesABodyOnlyWhenThatIsDue) {
  m_manager.setMeetingMgrInstance(&m_owner);
  m_owner.digest = vnMd5Utils::vnMD5Hex("Join here");
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
      {"a picture in place of the whole body", "<p><img src=a></p>", "Join here", false, false, false},
      {"nothing to write", "mine", "", false, false, false},
      {"nothing to write into an empty body", "", "", false, true, false},
      {"nothing left of a deleted meeting", "mine", "", true, false, true},
      {"a deleted meeting whose notice is the text that stands there", "mine", "Join here", true, false, false},
  };
  for (const auto& each : cases) {
    m_manager.updateMailBody(editorWithBody(each.body), each.invitation, each.isDelete, each.isHTML);
    EXPECT_EQ(m_host.calls(m_event, "setBody:").size(), each.written ? 1U : 0U) << each.why;
  }
  m_manager.updateMailBodyForPAC(editorWithBody("mine"), "Join here", false);
  EXPECT_EQ(m_host.get(m_event, "body"), Value("mine|Join here")) << "an audio conference is added without a test";
}

TEST_F(EmailBodyMgr, AnEmptyInvitationTakesTheOldOneOut) {
  const std::string body = "a" + std::string(kvn_BeginBookmark) + "OLD" + std::string(kvn_EndBookmark) + "b";
  EXPECT_EQ(m_manager.getMailBodyContentWithVorn(body, "", true), "ab");
  EXPECT_EQ(m_manager.getMailBodyContentWithVorn(body, std::nullopt, true), "ab");
  EXPECT_EQ(m_manager.getMailBodyContentWithVorn("a", "N", true),
            "a" + std::string(kvn_BeginBookmark) + "N" + std::string(kvn_EndBookmark));
}

}  // namespace
}  // namespace vorn
