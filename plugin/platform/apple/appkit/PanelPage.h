#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/apple/Ownership.h"
#include "platform/apple/appkit/ControlView.h"
#include "platform/controls/PanelLayout.h"

namespace vorn {

// The views of all controls of a panel, by their keys.
using ControlViews = std::map<std::string, std::unique_ptr<ControlView>>;

// One window of a panel: the sheet itself, a window of its own above it, or a list that drops down from a field.
// It makes places of sections and rows, grows with its texts up to the screen's edge, and scrolls from there on.
// What stands in its last rows and is nothing but buttons stays in sight below. Main thread only.
class PanelPage {
 public:
  enum class Kind { sheet, window, dropDown };

  // The function, which may be null, hears of each press with the mouse anywhere in the page, before a control
  // does, and of each turn of its wheel.
  PanelPage(Kind kind, std::string_view title, std::function<void()> pressed);
  // The window leaves the screen, and its views stay alive until the host's present call has unwound.
  ~PanelPage();
  PanelPage(const PanelPage&) = delete;
  PanelPage& operator=(const PanelPage&) = delete;

  Kind kind() const { return m_kind; }
  NSWindow* window() const { return m_window.get(); }

  // The sections of the page alone; their views are put into it, and those of before are for the caller to take
  // out.
  void setContents(const std::vector<PanelLayout::Section>& sections, const ControlViews& views);
  // Gives everything its place and the window its size, for the controls as they are. A page that is not shown yet
  // is going to be on that screen; nil for the main one.
  void arrange(const ControlSet& controls, NSScreen* screen);

  // A page with the parent stands on it, and moves with it.
  void showOn(NSWindow* parent, NSView* below);
  void hide();
  bool isShown() const { return m_isShown; }

  // The views that the tab key goes through, in their order, as they were arranged last.
  const std::vector<NSView*>& keyOrder() const { return m_keyOrder; }

 private:
  struct Cell {
    std::string key;
    ControlView* view = nullptr;
  };
  struct Line {
    std::vector<Cell> cells;
    int depth = 0;
    // What names the row; empty for none. The row's own, or that of a radio group.
    Retained<NSTextField*> name;
    // Says why something in the row cannot be used.
    Retained<NSTextField*> note;
  };
  struct Block {
    Retained<NSTextField*> title;
    std::vector<Line> lines;
  };

  void clear();
  void takeFooter();
  static void putInto(NSView* part, const Line& line);
  bool isLineShown(const Line& line, const ControlSet& controls) const;
  double nameWidth(const Block& block, const ControlSet& controls) const;
  double naturalWidth(const ControlSet& controls) const;
  double placeLine(const Line& line, const ControlSet& controls, double top, double nameWidth, double width);
  // What the row's note says now, at its end where there is room and else below. Gives the row's lower edge.
  double placeNote(const Line& line, const ControlSet& controls, double x, double right, double top,
                   double bottom);
  double placeFooter(const ControlSet& controls, double width);
  void chainKeys(const ControlSet& controls);
  void resize(NSScreen* screen, double width, double bodyHeight, double footerHeight);

  Kind m_kind;
  Retained<NSWindow*> m_window;
  Retained<NSScrollView*> m_scroll;
  Retained<NSView*> m_body;
  Retained<NSView*> m_foot;
  Retained<NSTextField*> m_heading;
  std::vector<Block> m_blocks;
  Line m_footer;
  std::vector<NSView*> m_keyOrder;
  // Not owned.
  NSWindow* m_parent = nil;
  bool m_isShown = false;
};

}  // namespace vorn
