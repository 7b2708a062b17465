#import "lab/desktop/Questions.h"

#include <string_view>
#include <vector>

#import "lab/objc/HostClasses.h"

namespace vornlab {

namespace {

namespace fs = std::filesystem;

NSString* const kLost = @"What is not saved is lost.";

// Gives the number of the button that was pressed; the first is the usual one.
std::size_t ask(NSString* what, NSString* reason, const std::vector<NSString*>& buttons) {
  NSAlert* alert = [[[NSAlert alloc] init] autorelease];
  [alert setMessageText:what];
  [alert setInformativeText:reason];
  for (NSString* button : buttons) [alert addButtonWithTitle:button];
  const NSInteger answer = [alert runModal] - NSAlertFirstButtonReturn;
  // A toolkit that ends the question in another way has no answer, which is the one that does nothing.
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    if (answer == static_cast<NSInteger>(i) || (answer < 0 && [buttons[i] isEqual:@"Cancel"])) return i;
  }
  return 0;
}

NSString* textOfPath(const fs::path& path) { return foundationText(std::string_view(path.native())); }

}  // namespace

WhatToSave askWhatToSave(NSString* message) {
  constexpr WhatToSave answers[] = {WhatToSave::save, WhatToSave::cancel, WhatToSave::dontSave};
  return answers[ask(message, kLost, {@"Save", @"Cancel", @"Don’t Save"})];
}

void tellTrouble(NSString* message, const std::string& reason) {
  ask(message, foundationText(std::string_view(reason)), {@"OK"});
}

FilePerson::Answer FileQuestions::askAboutChanges(bool hasFile) {
  std::vector<NSString*> buttons = {@"Save As…", @"Cancel", @"Don’t Save"};
  std::vector<Answer> answers = {Answer::saveAs, Answer::cancel, Answer::dontSave};
  if (hasFile) {
    buttons.insert(buttons.begin(), @"Save");
    answers.insert(answers.begin(), Answer::save);
  }
  return answers[ask(hasFile ? @"The calendar has changes that are not in its file" : @"The calendar has no file",
                     kLost, buttons)];
}

FilePerson::Answer FileQuestions::tellThatNothingWasSaved(const std::string& reason, bool canOverwrite) {
  constexpr Answer answers[] = {Answer::saveAs, Answer::cancel, Answer::overwrite};
  std::vector<NSString*> buttons = {@"Save As…", @"Cancel"};
  if (canOverwrite) buttons.push_back(@"Overwrite");
  return answers[ask(@"The calendar was not saved", foundationText(std::string_view(reason)), buttons)];
}

std::optional<fs::path> FileQuestions::choosePlace(const fs::path& usual) {
  NSSavePanel* panel = [NSSavePanel savePanel];
  [panel setTitle:@"Save the calendar as"];
  const fs::path place = fs::absolute(usual.empty() ? fs::path("Calendar.ics") : usual);
  const NSInteger answer = [panel runModalForDirectory:textOfPath(place.parent_path())
                                                  file:textOfPath(place.filename())];
  if (answer != NSFileHandlingPanelOKButton) return std::nullopt;
  return fs::path([[panel filename] fileSystemRepresentation]);
}

}  // namespace vornlab
