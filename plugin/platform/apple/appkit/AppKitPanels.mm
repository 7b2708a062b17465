#import "platform/apple/appkit/AppKitPanels.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "platform/apple/Conversions.h"
#include "platform/controls/ControlUse.h"
#include "platform/controls/FieldKeys.h"

namespace vorn {

namespace {

std::vector<DrawnPanel*>& openPanels() {
  static std::vector<DrawnPanel*> panels;
  return panels;
}

// What the toolkit has called is left without an exception of ours: it would go through the toolkit's own calls.
template <typename Work>
void guarded(const Work& work) {
  try {
    work();
  } catch (...) {
  }
}

constexpr double kAroundFault = 40;

// What a window consists of that belongs to the field in which the user is typing.
bool standsInDropDown(Control::Kind kind) {
  switch (kind) {
    case Control::Kind::window:
    case Control::Kind::box:
    case Control::Kind::label:
    case Control::Kind::link:
    case Control::Kind::list: return true;
    default: return false;
  }
}

// Holds the views of one panel, and goes on as long as one of them tells of something: the end of the panel may be
// what it is told.
class Drawing final : public ControlInput, public std::enable_shared_from_this<Drawing> {
 public:
  Drawing(NSWindow* parent, std::string_view title, PanelLayout layout, ControlSet& controls,
          Presenter::PanelInput used)
      : m_parent(parent),
        m_title(title),
        m_layout(std::move(layout)),
        m_controls(&controls),
        m_used(std::move(used)) {}

  void begin() {
    const std::weak_ptr<Drawing> weak = weak_from_this();
    m_subscription = m_controls->observe([weak](const std::vector<std::string>& keys) {
      if (const auto self = weak.lock()) guarded([&] { self->follow(keys); });
    });
    build();
    refreshAll();
    showPages();
    m_faults = faultsShown();
  }

  // Nothing is heard or shown from here on.
  void end() {
    m_controls = nullptr;
    m_subscription.reset();
    // From the uppermost down.
    while (!m_pages.empty()) m_pages.pop_back();
  }

  bool use(const std::string& key, const std::function<void(Control&)>& change) override {
    if (!m_controls) return true;
    const auto self = shared_from_this();
    m_lastUsed = fieldOf(key);
    ControlUse result = ControlUse::done;
    // The key may be that of a view which goes with its use.
    const std::string field(fieldOf(key));
    guarded([&] { result = useControl(*m_controls, key, change, m_used); });
    // Also what led back to where it began, of which nobody hears: the toolkit shows what was pressed already.
    if (m_controls) refresh(field);
    return result == ControlUse::done || !m_controls;
  }

  const ControlView* view(const std::string& key) const {
    const auto found = m_views.find(key);
    return found == m_views.end() ? nullptr : found->second.get();
  }
  NSWindow* parent() const { return m_parent.get(); }
  bool holds(const std::string& key) const { return m_controls && m_controls->find(key); }
  std::vector<std::string> inBox(const std::string& key) const {
    std::vector<std::string> inside;
    for (const std::string& each : m_controls ? m_controls->keys() : std::vector<std::string>()) {
      std::string box = m_controls->find(each)->box;
      while (!box.empty() && box != key) {
        const Control* outer = m_controls->find(box);
        box = outer ? outer->box : "";
      }
      if (!box.empty()) inside.push_back(each);
    }
    return inside;
  }
  const PanelPage* page(const std::string& windowKey) const {
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(), [&](const Page& page) { return page.key == windowKey; });
    return found == m_pages.end() ? nullptr : found->page.get();
  }

 private:
  struct Page {
    std::string key;
    std::unique_ptr<PanelPage> page;
    // Of a drop-down: the field that was used when it came up, under which it stays.
    std::string field;
  };

  // A press beside a list that has dropped down closes it, as the panel's rules say.
  void pressedAnywhere() {
    if (!m_controls) return;
    const bool isAnyDown = std::any_of(m_pages.begin(), m_pages.end(), [](const Page& each) {
      return each.page->kind() == PanelPage::Kind::dropDown && each.page->isShown();
    });
    if (!isAnyDown) return;
    const auto self = shared_from_this();
    const auto used = m_used;
    const ControlSet::Change step(*m_controls);
    used("");
  }

  void follow(const std::vector<std::string>& keys) {
    if (!m_controls) return;
    const bool isOther = std::any_of(keys.begin(), keys.end(), [this](const std::string& key) {
      return (m_controls->find(key) != nullptr) != m_views.contains(key);
    });
    if (isOther) {
      build();
      refreshAll();
    } else {
      for (const std::string& key : keys) refresh(key);
    }
    showPages();
    showNewFault();
  }

  // The red labels that can be seen.
  std::set<std::string> faultsShown() const {
    std::set<std::string> found;
    for (const std::string& key : m_controls->keys()) {
      const Control& control = *m_controls->find(key);
      if (control.kind == Control::Kind::label && control.isRed && m_controls->isOnScreen(key)) found.insert(key);
    }
    return found;
  }

  // What has gone wrong comes into sight, wherever the person was looking.
  void showNewFault() {
    if (!m_controls) return;
    const std::set<std::string> before = std::exchange(m_faults, faultsShown());
    for (const std::string& key : m_faults) {
      const ControlView* fault = view(key);
      if (!fault || before.contains(key)) continue;
      // With a little of what it is about, which stands above it.
      [fault->view() scrollRectToVisible:NSInsetRect([fault->view() bounds], 0, -kAroundFault)];
      return;
    }
  }

  // A page for each window, and on it what stands in that window, in the layout's order.
  void build() {
    const PanelLayout complete = layoutOf(m_layout, *m_controls);
    ControlViews views;
    m_names.clear();
    forEachRow(complete, [&](const PanelLayout::Section&, const PanelLayout::Row& row) {
      const Control* first = m_controls->find(row.places.front().key);
      std::string name = row.label;
      if (name.empty() && first->kind == Control::Kind::label) name = first->text;
      for (const PanelLayout::Place& place : row.places) {
        const auto known = m_views.find(place.key);
        const Control& control = *m_controls->find(place.key);
        views[place.key] = known == m_views.end() ? makeControlView(control, *this) : std::move(known->second);
        m_names[place.key] = name;
      }
    });
    nameByNeighbours(complete);
    std::swap(m_views, views);
    std::map<std::string, std::vector<PanelLayout::Section>> sections;
    std::map<std::string, std::string> titles;
    std::vector<std::string> windows{""};
    forEachRow(complete, [&](const PanelLayout::Section& section, PanelLayout::Row row) {
      const Control& first = *m_controls->find(row.places.front().key);
      if (first.kind == Control::Kind::window) {
        windows.push_back(first.key);
        titles[first.key] = section.title;
        std::erase_if(row.places, [&](const PanelLayout::Place& place) { return place.key == first.key; });
        if (row.places.empty()) return;
      }
      std::vector<PanelLayout::Section>& page = sections[m_controls->windowOf(row.places.front().key)];
      if (page.empty() || page.back().key != section.key) page.push_back({section.key, section.title, {}});
      // The name of a radio group stands before it as that of a row does.
      if (row.label.empty() && first.kind == Control::Kind::radioGroup) row.label = first.text;
      page.back().rows.push_back(std::move(row));
    });
    for (const std::string& window : windows) {
      PanelPage& page = pageOf(window, window.empty() ? m_title : titles[window]);
      for (auto& section : sections[window]) {
        for (const auto& row : section.rows) {
          for (const auto& place : row.places) refresh(place.key);
        }
      }
      page.setContents(sections[window], m_views);
    }
    // What has gone leaves the screen when the present call of the toolkit has ended.
    for (const auto& [key, gone] : views) {
      if (!gone) continue;
      letGo(gone->view());
      [gone->view() removeFromSuperview];
    }
  }

  template <typename Visit>
  static void forEachRow(const PanelLayout& layout, const Visit& visit) {
    for (const PanelLayout::Section& section : layout.sections) {
      for (const PanelLayout::Row& row : section.rows) {
        if (!row.places.empty()) visit(section, row);
      }
    }
  }

  // A field without a word of its own is named by the label in the row above it, or by the section.
  void nameByNeighbours(const PanelLayout& layout) {
    for (const PanelLayout::Section& section : layout.sections) {
      std::string above;
      for (const PanelLayout::Row& row : section.rows) {
        for (const PanelLayout::Place& place : row.places) {
          const Control& control = *m_controls->find(place.key);
          std::string& name = m_names[place.key];
          if (name.empty()) name = above.empty() ? section.title : above;
          const bool names = control.kind == Control::Kind::label || control.kind == Control::Kind::checkBox;
          if (names && !control.text.empty()) above = control.text;
        }
      }
    }
  }

  PanelPage& pageOf(const std::string& window, const std::string& title) {
    for (const Page& each : m_pages) {
      if (each.key == window) return *each.page;
    }
    PanelPage::Kind kind = PanelPage::Kind::sheet;
    if (!window.empty()) kind = isDropDown(window) ? PanelPage::Kind::dropDown : PanelPage::Kind::window;
    std::function<void()> pressed;
    if (window.empty()) {
      const std::weak_ptr<Drawing> weak = weak_from_this();
      pressed = [weak] {
        if (const auto self = weak.lock()) guarded([&] { self->pressedAnywhere(); });
      };
    }
    m_pages.push_back({window, std::make_unique<PanelPage>(kind, title, std::move(pressed)), ""});
    return *m_pages.back().page;
  }

  bool isDropDown(const std::string& window) const {
    return std::all_of(m_controls->keys().begin(), m_controls->keys().end(), [&](const std::string& key) {
      return standsInDropDown(m_controls->find(key)->kind) || m_controls->windowOf(key) != window;
    });
  }

  void refreshAll() {
    for (const auto& [key, each] : m_views) refresh(key);
  }

  void refresh(const std::string& key) {
    const auto found = m_views.find(key);
    const Control* control = m_controls->find(key);
    if (found == m_views.end() || !found->second || !control) return;
    found->second->update(*control, m_names[key]);
  }

  void showPages() {
    for (Page& each : m_pages) {
      if (!m_controls) return;
      const bool isShown = each.key.empty() || m_controls->isOnScreen(each.key);
      if (!isShown) {
        each.page->hide();
        continue;
      }
      const std::string in = each.key.empty() ? "" : m_controls->find(each.key)->box;
      const PanelPage* on = each.key.empty() ? nullptr : page(in.empty() ? "" : m_controls->windowOf(each.key));
      NSWindow* parent = on ? on->window() : m_parent.get();
      const bool dropsDown = each.page->kind() == PanelPage::Kind::dropDown;
      if (!each.page->isShown()) each.field = m_lastUsed;
      const ControlView* field = dropsDown ? view(each.field) : nullptr;
      each.page->arrange(*m_controls, [parent screen]);
      if (!each.page->isShown() || dropsDown) each.page->showOn(parent, field ? field->view() : nil);
    }
    followFocus();
  }

  // The keyboard goes where the rules want it, once for each time that they do. What is marked in a list while the
  // user types in the field above it comes into sight.
  void followFocus() {
    std::string wanted;
    for (const std::string& key : m_controls->keys()) {
      if (m_controls->find(key)->isFocused) wanted = key;
    }
    if (wanted == std::exchange(m_focused, wanted) || wanted.empty()) return;
    const ControlView* focused = view(wanted);
    const PanelPage* on = page(m_controls->windowOf(wanted));
    if (!focused || !on || !m_controls->isOnScreen(wanted)) return;
    if (m_controls->find(wanted)->kind == Control::Kind::checkBox) {
      [focused->view() scrollRectToVisible:[focused->view() bounds]];
    } else if (focused->keyView()) {
      [on->window() makeFirstResponder:focused->keyView()];
    }
  }

  // Nil for a panel by itself.
  Retained<NSWindow*> m_parent;
  std::string m_title;
  PanelLayout m_layout;
  // Null when the panel has ended.
  ControlSet* m_controls;
  Presenter::PanelInput m_used;
  std::shared_ptr<void> m_subscription;
  ControlViews m_views;
  // What stands before each control, for those who hear it alone.
  std::map<std::string, std::string> m_names;
  // The sheet first.
  std::vector<Page> m_pages;
  std::set<std::string> m_faults;
  std::string m_lastUsed;
  std::string m_focused;
};

class OpenPanel final : public DrawnPanel {
 public:
  explicit OpenPanel(std::shared_ptr<Drawing> drawing) : m_drawing(std::move(drawing)) {
    openPanels().push_back(this);
  }
  ~OpenPanel() override {
    std::erase(openPanels(), this);
    m_drawing->end();
  }
  OpenPanel(const OpenPanel&) = delete;
  OpenPanel& operator=(const OpenPanel&) = delete;

  NSWindow* parent() const override { return m_drawing->parent(); }
  const ControlView* view(const std::string& key) const override { return m_drawing->view(key); }
  bool holds(const std::string& key) const override { return m_drawing->holds(key); }
  std::vector<std::string> inBox(const std::string& key) const override { return m_drawing->inBox(key); }
  const PanelPage* page(const std::string& windowKey) const override { return m_drawing->page(windowKey); }

 private:
  std::shared_ptr<Drawing> m_drawing;
};

}  // namespace

const std::vector<DrawnPanel*>& DrawnPanel::open() { return openPanels(); }

std::unique_ptr<Presenter::Panel> AppKitPanels::show(id window, std::string_view title, const PanelLayout& layout,
                                                     ControlSet& controls, Presenter::PanelInput used) {
  const auto drawing = std::make_shared<Drawing>(window, title, layout, controls, std::move(used));
  drawing->begin();
  return std::make_unique<OpenPanel>(drawing);
}

}  // namespace vorn
