#include "platform/controls/PanelLayout.h"

#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace vorn {

namespace {

using Place = PanelLayout::Place;
using Row = PanelLayout::Row;
using Section = PanelLayout::Section;

class Fitting {
 public:
  Fitting(const PanelLayout& layout, const ControlSet& controls) : m_layout(layout), m_controls(controls) {
    forEachPlace(layout, [this](const Place& place) { m_named.insert(place.key); });
    for (const std::string& key : controls.keys()) {
      if (!m_named.contains(key)) m_members[controls.find(key)->box].push_back(key);
    }
  }

  PanelLayout fitted() {
    PanelLayout result;
    for (const Section& section : m_layout.sections) add(result, fitted(section));
    for (const std::string& key : m_controls.keys()) {
      const Control& control = *m_controls.find(key);
      if (control.kind == Control::Kind::window && !isPlaced(key)) add(result, sectionOf(control));
    }
    add(result, rest());
    return result;
  }

 private:
  bool isPlaced(const std::string& key) const { return m_named.contains(key) || m_placed.contains(key); }

  static void add(PanelLayout& result, Section section) {
    if (!section.rows.empty()) result.sections.push_back(std::move(section));
  }

  Section fitted(const Section& section) {
    Section result{section.key, section.title, {}};
    for (const Row& row : section.rows) {
      Row kept{{}, row.label, row.depth};
      for (const Place& place : row.places) {
        if (m_controls.find(place.key)) kept.places.push_back(place);
      }
      if (kept.places.empty()) continue;
      result.rows.push_back(kept);
      for (const Place& place : kept.places) addMembers(result, place.key, row.depth + 1);
    }
    return result;
  }

  void addMembers(Section& section, const std::string& box, int depth) {
    const auto members = m_members.find(box);
    if (members == m_members.end()) return;
    for (const std::string& key : members->second) addWithMembers(section, key, depth);
  }

  void addWithMembers(Section& section, const std::string& key, int depth) {
    if (!m_placed.insert(key).second) return;
    section.rows.push_back({{{key}}, "", depth});
    addMembers(section, key, depth + 1);
  }

  Section sectionOf(const Control& window) {
    Section section{window.key, window.text, {}};
    addWithMembers(section, window.key, 0);
    return section;
  }

  // First what stands on the sheet itself, so that members stand behind it; then what is in a box that nobody
  // knows.
  Section rest() {
    Section section{"others", "", {}};
    for (const bool isOnSheet : {true, false}) {
      for (const std::string& key : m_controls.keys()) {
        if (!isPlaced(key) && m_controls.find(key)->box.empty() == isOnSheet) addWithMembers(section, key, 0);
      }
    }
    return section;
  }

  const PanelLayout& m_layout;
  const ControlSet& m_controls;
  // By the layout.
  std::set<std::string> m_named;
  // Behind their boxes.
  std::set<std::string> m_placed;
  std::map<std::string, std::vector<std::string>> m_members;
};

}  // namespace

PanelLayout layoutOf(const PanelLayout& layout, const ControlSet& controls) {
  return Fitting(layout, controls).fitted();
}

}  // namespace vorn
