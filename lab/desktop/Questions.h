#pragma once

#import <AppKit/AppKit.h>

#include <string>

#include "lab/desktop/CalendarFile.h"

namespace vornlab {

enum class WhatToSave { save, dontSave, cancel };

// Asks, and waits for the answer, before something unsaved closes.
WhatToSave askWhatToSave(NSString* message);
// Tells of something that has not been done, and waits until it was read.
void tellTrouble(NSString* message, const std::string& reason);

// Asks in alerts, and with the toolkit's own panel for the place.
class FileQuestions final : public FilePerson {
 public:
  Answer askAboutChanges(bool hasFile) override;
  Answer tellThatNothingWasSaved(const std::string& reason, bool canOverwrite) override;
  std::optional<std::filesystem::path> choosePlace(const std::filesystem::path& usual) override;
};

}  // namespace vornlab
