#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "channel/transport/vSocketClientImpl.h"
#include "platform/Registry.h"
#include "tests/support/TestPlatform.h"
#include "util/vnOLUtils.h"

namespace vorn {

// A client that is installed and runs, takes every request and answers none.
class RecordingClient final : public vSocketClientImpl {
 public:
  // Action and content.
  using Request = std::pair<std::string, std::string>;

  // The registry owns it.
  static RecordingClient& install(TestPlatform& test, const std::string& version = "5.12.3.9654") {
    setVersion(test, version);
    test.workspace.running.insert("us.vorn.xos");
    auto made = std::make_unique<RecordingClient>();
    RecordingClient& client = *made;
    Registry::install<vSocketClientImpl>(std::move(made));
    return client;
  }
  // The version of the application that is installed.
  static void setVersion(TestPlatform& test, const std::string& version) {
    const std::string path = test.surroundings.applicationsDirectory() + "/vornclient.app";
    std::filesystem::create_directories(path);
    test.workspace.filePackages.insert(path);
    test.workspace.executables[path] = path + "/Contents/MacOS/vornclient";
    test.workspace.propertyLists[path + "/Contents/Info.plist"] =
        Value::dictionaryFromPairs({{"CFBundleVersion", version}});
  }

  void connect() override {}
  void disconnect() override {}
  bool send(const OptionalText& message) override {
    if (!isConnected) return false;
    const Value envelope = vnOLUtils::toArrayOrNSDictionary(message);
    requests.emplace_back(envelope["actionId"].text(), envelope["content"].text());
    return true;
  }

  // "6" for an action, and "3/4" for the operation within a carrier.
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& [action, content] : requests) {
      all.push_back(action == "3" ? action + "/" + content.substr(0, content.find(';')) : action);
    }
    return all;
  }

  std::vector<Request> requests;
  bool isConnected = true;
};

}  // namespace vorn
