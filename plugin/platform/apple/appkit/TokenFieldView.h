#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <vector>

#include "platform/controls/Control.h"

namespace vorn {

// A piece of a token field that stands on one line: a chip, or some of the text. Positions are UTF-16 units.
struct TokenFragment {
  TextRange range;
  NSRect place;
  bool isChip = false;
};

// Hands on what the user does to the text.
using TokenAct = std::function<void(const std::function<void(TokenText&)>&)>;

}  // namespace vorn

// Text and chips of a TokenText in lines, with its caret and selection. It holds no text of its own: what the user
// types, pastes and presses goes to the model, and what stands in the model is shown. It measures and draws in
// time linear in the text. Main thread only.
@interface vnTokenFieldView : NSView {
 @public
  // A TokenAct by which acts reach the model; null when nobody listens any more. The toolkit's classes can have no
  // such members.
  void* m_act;
 @private
  // Owned: the Control that is shown, and its pieces.
  void* m_state;
  NSUInteger m_dragStart;
}
- (void)showControl:(const vorn::Control&)control;
- (double)heightForWidth:(double)width;
// For the pieces on the screen, in the view's own coordinates.
- (const std::vector<vorn::TokenFragment>&)fragments;
// What these pieces say, in their order; a chip with its title alone.
- (std::vector<vorn::TokenPiece>)piecesOnScreen;
@end
