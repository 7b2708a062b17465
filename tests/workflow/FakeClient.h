#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "channel/transport/vSocketClientImpl.h"
#include "platform/Registry.h"
#include "tests/support/TestPlatform.h"
#include "util/vnOLUtils.h"

namespace vorn {

// A client that is installed and runs, takes every request and answers none.
class FakeClient final : public vSocketClientImpl {
 public:
  static FakeClient& install(TestPlatform& test) {
    const std::string path = test.surroundings.applicationsDirectory() + "/vornclient.app";
    std::filesystem::create_directories(path);
    test.workspace.filePackages.insert(path);
    test.workspace.executables[path] = path + "/Contents/MacOS/vornclient";
    test.workspace.propertyLists[path + "/Contents/Info.plist"] =
        Value::dictionaryFromPairs({{"CFBundleVersion", "5.12.3.9654"}});
    test.workspace.running.insert("us.vorn.xos");
    auto made = std::make_unique<FakeClient>();
    FakeClient& client = *made;
    Registry::install<vSocketClientImpl>(std::move(made));
    return client;
  }

  void connect() override {}
  void disconnect() override {}
  // Notes "6" for an action, and "3/4" for the operation within a carrier.
  bool send(const OptionalText& message) override {
    const Value envelope = vnOLUtils::toArrayOrNSDictionary(message);
    std::string name = envelope["actionId"].stringValue();
    const std::string content = envelope["content"].stringValue();
    if (name == "3") name += "/" + content.substr(0, content.find(';'));
    requests.push_back(name);
    contents.push_back(content);
    return true;
  }

  std::vector<std::string> requests;
  std::vector<std::string> contents;
};

}  // namespace vorn
