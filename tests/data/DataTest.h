#pragma once

#include <gtest/gtest.h>

#include <string>

#include "channel/discovery/vnGetClientVersionHelper.h"
#include "data/vnProfileKeys.h"
#include "data/vnUserProfileHelper.h"
#include "meeting.pb.h"
#include "tests/support/TestPlatform.h"
#include "util/AtomicFile.h"
#include "util/EncodeUtils.h"
#include "util/vStringUtils.h"

namespace vorn {

namespace proto = com::tidemar::webapp::proto;

// The bytes that protoc made of messages/<name>.txt.
inline std::string encodedMessage(const std::string& name) {
  return readFile(std::string(VORN_TEST_MESSAGES) + "/" + name + ".bin").value_or("");
}

inline std::string base64(const std::string& bytes) { return EncodeUtils::base64Encode(bytes).value_or(""); }

inline Value json(const char* text) { return vStringUtils::toArrayOrNSDictionary(std::string(text)); }

// A fresh process for each test, with a client that can do everything.
class DataTest : public testing::Test {
 protected:
  DataTest() { setClientVersion("9.9.99999"); }

  static void setClientVersion(const std::string& version) {
    vnGetClientVersionHelper::saveClientVersionToLocal(version);
  }

  static Value profileWith(const std::string& message) {
    Value profile = Value::dictionary();
    profile.set(vn_Profile_Proto, base64(message));
    return profile;
  }
  // A profile as the client sends it: a message, and keys beside it.
  static void receive(const proto::UserProfile& message, const char* keys = "{}") {
    Value profile = profileWith(message.SerializeAsString());
    profile.addEntries(json(keys));
    account().setData(profile);
  }
  static vnUserProfileHelper& account() { return vnUserProfileHelper::sharedInstance(); }

  TestPlatform world;
};

}  // namespace vorn
