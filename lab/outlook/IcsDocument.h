#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vornlab {

// Why a text is no calendar: the physical line, counted from 1, and what was expected there.
struct IcsProblem {
  std::size_t line = 0;
  std::string message;
};

// One property of a component, unfolded. Names of properties and parameters are in upper case, values as written.
struct IcsProperty {
  std::string name;
  std::vector<std::pair<std::string, std::string>> parameters;
  std::string value;

  // The value of the first parameter of that name, without quotation marks; "" when there is none.
  std::string parameter(std::string_view parameterName) const;
};

// The text of an iCalendar file as its content lines, without any loss.
//
// Every line keeps its original bytes until somebody changes it. What is changed or added is written as new folded
// lines with the file's own line ending; everything else, known or not, is written back byte for byte. Reading
// takes time linear in the text. A component is named by its index; indexes stay the same while the document
// lives.
class IcsDocument {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Reads a text with one or more VCALENDARs. Forgives empty lines, a byte order mark, a missing line ending at
  // the end, names in lower case and bytes that are no UTF-8. Absent, with the problem filled in, for anything
  // else.
  static std::optional<IcsDocument> parse(std::string text, IcsProblem& problem);

  // The text as it stands now; the very bytes that were read when nothing was changed.
  std::string text() const;
  bool isChanged() const { return !m_replaced.empty() || !m_added.empty() || !m_removed.empty(); }
  // "\r\n" or "\n", whichever ends the first line.
  const std::string& lineEnding() const { return m_lineEnding; }

  std::size_t componentCount() const { return m_components.size(); }
  // In upper case.
  const std::string& componentName(std::size_t component) const { return m_components[component].name; }
  // kNone for a VCALENDAR.
  std::size_t parentOf(std::size_t component) const { return m_components[component].parent; }
  const std::vector<std::size_t>& childrenOf(std::size_t component) const {
    return m_components[component].children;
  }
  bool isRemoved(std::size_t component) const { return m_removed.contains(m_components[component].beginLine); }
  // The lines from BEGIN to END, with changes.
  std::string componentText(std::size_t component) const;

  // The first property of that name (upper case), or all in their order; what lies in components below is not
  // meant.
  std::optional<IcsProperty> property(std::size_t component, std::string_view name) const;
  std::vector<IcsProperty> properties(std::size_t component, std::string_view name) const;
  // Every property of the component, in order.
  std::vector<IcsProperty> properties(std::size_t component) const { return properties(component, {}); }

  // Which of several properties of one name is meant; absent means the first.
  using Choice = bool (*)(const IcsProperty&);
  // Gives the property a content, which adds it when there is none. The same content changes nothing.
  void setProperty(std::size_t component, const IcsProperty& property, Choice choice = nullptr);
  void removeProperty(std::size_t component, std::string_view name, Choice choice = nullptr);
  void removeComponent(std::size_t component);
  // Adds a component below the parent, which is given as its lines without line endings, unfolded, from BEGIN to
  // END. It becomes part of the text at once and gets the highest index when the parent is the last VCALENDAR.
  void addComponent(std::size_t parent, const std::vector<std::string>& lines);

 private:
  struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string name;
    bool folded = false;
  };
  struct Component {
    std::string name;
    std::size_t parent = kNone;
    std::size_t beginLine = 0;
    std::size_t endLine = 0;
    std::vector<std::size_t> lines;
    std::vector<std::size_t> children;
  };
  struct Reader;

  std::string unfolded(const Line& line) const;
  IcsProperty propertyAt(std::size_t line) const;
  // The line that added properties of the component go in front of: behind its own, before the components below
  // it.
  std::size_t lineForAdded(std::size_t component) const;
  std::size_t findLine(std::size_t component, std::string_view name, Choice choice) const;
  void write(std::size_t firstLine, std::size_t lastLine, std::string& out) const;

  std::string m_text;
  std::string m_lineEnding = "\r\n";
  std::vector<Line> m_lines;
  std::vector<Component> m_components;
  // Unfolded content by line; an absent one has been taken out.
  std::map<std::size_t, std::optional<std::string>> m_replaced;
  // Unfolded contents by the line that they go in front of, which tells their component.
  std::map<std::size_t, std::vector<std::string>> m_added;
  // The last line of a component that has been taken out, by its first.
  std::map<std::size_t, std::size_t> m_removed;
};

// A content line as it stands in a file: cut into pieces of at most 75 octets, never inside a character, each but
// the first with a blank in front, and closed with the line ending.
std::string foldedLine(std::string_view content, std::string_view lineEnding);

// A value of type TEXT, read and written: backslash, comma, semicolon and line breaks.
std::string unescapedText(std::string_view value);
std::string escapedText(std::string_view text);

}  // namespace vornlab
