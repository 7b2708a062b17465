#import "lab/desktop/BodyText.h"

#include <algorithm>

#import "lab/desktop/Controls.h"

namespace {

using vornlab::RichBody;

constexpr NSSize kAround = {16, 14};

std::u16string unitsOf(NSString* text) {
  std::u16string units([text length], 0);
  [text getCharacters:reinterpret_cast<unichar*>(units.data()) range:NSMakeRange(0, [text length])];
  return units;
}

NSString* stringOf(const std::u16string& units) {
  return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(units.data()) length:units.size()];
}

NSFont* fontOf(unsigned style) {
  const double size = [NSFont systemFontSize];
  NSFont* font =
      (style & vornlab::kBold) != 0 ? [NSFont boldSystemFontOfSize:size] : [NSFont systemFontOfSize:size];
  if ((style & vornlab::kItalic) == 0) return font;
  return [[NSFontManager sharedFontManager] convertFont:font toHaveTrait:NSItalicFontMask];
}

// A link is not followed where it is edited, so it only looks like one.
NSDictionary* looksOf(unsigned style, bool isLink) {
  NSMutableDictionary* looks = [NSMutableDictionary dictionary];
  [looks setObject:fontOf(style) forKey:NSFontAttributeName];
  [looks setObject:isLink ? [NSColor alternateSelectedControlColor] : [NSColor textColor]
            forKey:NSForegroundColorAttributeName];
  if (isLink || (style & vornlab::kUnderlined) != 0)
    [looks setObject:[NSNumber numberWithInt:NSSingleUnderlineStyle] forKey:NSUnderlineStyleAttributeName];
  return looks;
}

}  // namespace

@interface vnBodyText ()
- (void)showAll;
- (void)showLooksFrom:(std::size_t)begin to:(std::size_t)end;
- (void)tellEditor;
@end

@implementation vnBodyText
- (id)initIn:(NSView*)content frame:(NSRect)frame editor:(ERCalendarEventEditorViewController*)editor {
  if (!(self = [super init])) return nil;
  m_editor = editor;
  m_view = vornlab::longText(content, frame, kAround, fontOf(vornlab::kPlain));
  [m_view setEditable:YES];
  [m_view setRichText:YES];
  [m_view setImportsGraphics:NO];
  [m_view setUsesFontPanel:NO];
  [m_view setDelegate:static_cast<id>(self)];
  return self;
}
- (NSTextView*)view {
  return m_view;
}
- (void)end {
  [m_view setDelegate:nil];
  m_view = nil;
}
- (void)show {
  const std::string html = vornlab::plainText([m_editor->m_wordEditor->m_content bodyContent]);
  if (m_body && m_body->html() == html) return;
  m_body = std::make_unique<RichBody>(html);
  [self showAll];
}
- (void)showAll {
  const std::u16string& text = m_body->text();
  const NSRange selected = [m_view selectedRange];
  [[m_view textStorage] setAttributedString:[[[NSAttributedString alloc]
                                                initWithString:stringOf(text)
                                                    attributes:looksOf(vornlab::kPlain, false)] autorelease]];
  [self showLooksFrom:0 to:text.size()];
  [m_view setSelectedRange:NSMakeRange(std::min(selected.location, text.size()), 0)];
}
- (void)showLooksFrom:(std::size_t)begin to:(std::size_t)end {
  if (begin == end) return;
  NSTextStorage* shown = [m_view textStorage];
  [shown beginEditing];
  [shown setAttributes:looksOf(vornlab::kPlain, false) range:NSMakeRange(begin, end - begin)];
  for (const RichBody::Run& run : m_body->runs()) {
    const std::size_t from = std::max(run.begin, begin);
    const std::size_t to = std::min(run.begin + run.length, end);
    if (from < to) [shown setAttributes:looksOf(run.style, !run.link.empty()) range:NSMakeRange(from, to - from)];
  }
  [shown endEditing];
}
- (void)tellEditor {
  vornlab::typeBodyInto(m_editor, m_body->html());
}

// -- What a person does
- (void)textDidChange:(NSNotification*)notification {
  (void)notification;
  const std::u16string now = unitsOf([m_view string]);
  const RichBody::Edit edit = RichBody::editBetween(m_body->text(), now, NSMaxRange([m_view selectedRange]));
  if (edit.length == 0 && edit.typed.empty()) return;
  m_body->replace(edit.begin, edit.length, edit.typed);
  if (m_body->text() == now) {
    [self showLooksFrom:edit.begin to:edit.begin + edit.typed.size()];
  } else {
    [self showAll];
    [m_view setSelectedRange:NSMakeRange(m_body->caret(), 0)];
  }
  [self tellEditor];
}
// The tab key goes on to the next control, as it does everywhere in an editor.
- (BOOL)textView:(NSTextView*)view doCommandBySelector:(SEL)selector {
  if (sel_isEqual(selector, @selector(insertTab:))) {
    [[view window] selectKeyViewFollowingView:view];
  } else if (sel_isEqual(selector, @selector(insertBacktab:))) {
    [[view window] selectKeyViewPrecedingView:view];
  } else {
    return NO;
  }
  return YES;
}
- (void)turn:(vornlab::TextStyle)style {
  const NSRange selected = [m_view selectedRange];
  if (!m_body->turn(selected.location, selected.length, style)) return NSBeep();
  [self showLooksFrom:selected.location to:NSMaxRange(selected)];
  [self tellEditor];
}
@end
