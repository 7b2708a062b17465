#pragma once

#include <string>
#include <vector>

#include "platform/controls/ControlSet.h"

namespace vorn {

// Where the controls of a window stand for the person who reads it: in sections, and there in rows from above to
// below. A plain value without places on a screen; a front end makes these of it.
struct PanelLayout {
  struct Place {
    std::string key;
    // The name for it in plain words, for people who ask for it by name; "" for what is only looked at. Not
    // translated.
    std::string words{};
    // What is typed here is covered where others may read it.
    bool isSecret = false;
  };
  struct Row {
    // From left to right. A box or a window draws nothing itself.
    std::vector<Place> places;
    // What stands before a control that does not say itself what it is; "" for none.
    std::string label{};
    // How far the row belongs to the one above it.
    int depth = 0;
  };
  struct Section {
    std::string key;
    // "" for one without a heading.
    std::string title;
    std::vector<Row> rows;
  };

  std::vector<Section> sections;
};

template <typename Visit>
void forEachPlace(const PanelLayout& layout, const Visit& visit) {
  for (const PanelLayout::Section& section : layout.sections) {
    for (const PanelLayout::Row& row : section.rows) {
      for (const PanelLayout::Place& place : row.places) visit(place);
    }
  }
}

// The layout of exactly these controls. What is not in the set is left out, with the rows and sections that are
// empty then. What has no place of its own stands behind its box, or behind the window whose member it is, each in
// a row, in the order in which it was added; a window without a place is a section of its own, and controls with
// nobody to stand behind are the last one. Time n log n in the controls.
PanelLayout layoutOf(const PanelLayout& layout, const ControlSet& controls);

}  // namespace vorn
