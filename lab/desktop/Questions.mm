#import "lab/desktop/Questions.h"

#include <string_view>

#import "lab/objc/HostClasses.h"

namespace vornlab {

WhatToSave askWhatToSave(NSString* message, bool canBeSaved) {
  NSAlert* alert = [[[NSAlert alloc] init] autorelease];
  [alert setMessageText:message];
  [alert setInformativeText:@"What is not saved is lost."];
  if (canBeSaved) [alert addButtonWithTitle:@"Save"];
  [alert addButtonWithTitle:@"Cancel"];
  [alert addButtonWithTitle:@"Don’t Save"];
  const NSInteger answer = [alert runModal] + (canBeSaved ? 0 : 1);
  if (answer == NSAlertFirstButtonReturn) return WhatToSave::save;
  return answer == NSAlertThirdButtonReturn ? WhatToSave::dontSave : WhatToSave::cancel;
}

void tellTrouble(NSString* message, const std::string& reason) {
  NSAlert* alert = [[[NSAlert alloc] init] autorelease];
  [alert setMessageText:message];
  [alert setInformativeText:foundationText(std::string_view(reason))];
  [alert addButtonWithTitle:@"OK"];
  [alert runModal];
}

}  // namespace vornlab
