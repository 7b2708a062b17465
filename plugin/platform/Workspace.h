#pragma once

#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// What the session knows of applications: where they lie, whether they run, what their bundles say.
//
// Main thread only. Paths are absolute UTF-8 texts. The disk is asked at each question.
class Workspace {
 public:
  virtual ~Workspace() = default;

  // True when a process of this session runs the application with the bundle identifier.
  virtual bool isRunning(std::string_view bundleIdentifier) = 0;
  // The path of the application with the bundle identifier; "" when it is not installed.
  virtual std::string absolutePathForAppBundle(std::string_view bundleIdentifier) = 0;
  // True when the path is a folder that the platform shows as one file, such as an application.
  virtual bool isFilePackage(std::string_view path) = 0;
  // The path of the bundle's program; "" when there is none.
  virtual std::string executablePath(std::string_view bundlePath) = 0;
  // The dictionary in the property list at the path; absent when it cannot be read.
  virtual Value propertyListAtPath(std::string_view path) = 0;
  // Starts the program without waiting for it; false when it could not be started.
  virtual bool launch(std::string_view executablePath) = 0;
  // Shows the folder to the user in the platform's own way, without waiting; false when it could not be shown.
  virtual bool openFolder(std::string_view path) = 0;
  // Shows a page in the user's browser, or begins a letter to a "mailto:" address, without waiting; false for any
  // other address, since it comes from outside, and when it could not be shown.
  virtual bool openWebPage(std::string_view address) = 0;

 protected:
  static bool isWebAddress(std::string_view address) {
    // What may follow a letter's address would write the letter, too.
    const bool isLetter =
        address.starts_with("mailto:") && address.find_first_of("?& \n\t") == std::string_view::npos;
    return address.starts_with("https://") || address.starts_with("http://") || isLetter;
  }
};

}  // namespace vorn
