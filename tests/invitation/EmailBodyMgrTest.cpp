#include <gtest/gtest.h>

#include "invitation/vnBodyHelper.h"
#include "invitation/vnEmailBodyMgr.h"
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
  TestPlatform world_;
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

TEST_F(EmailBodyMgr, AnEmptyInvitationTakesTheOldOneOut) {
  const std::string body = "a" + std::string(kvn_BeginBookmark) + "OLD" + std::string(kvn_EndBookmark) + "b";
  EXPECT_EQ(manager_.getMailBodyContentWithVorn(body, "", true), "ab");
  EXPECT_EQ(manager_.getMailBodyContentWithVorn(body, std::nullopt, true), "ab");
  EXPECT_EQ(manager_.getMailBodyContentWithVorn("a", "N", true),
            "a" + std::string(kvn_BeginBookmark) + "N" + std::string(kvn_EndBookmark));
}

}  // namespace
}  // namespace vorn
