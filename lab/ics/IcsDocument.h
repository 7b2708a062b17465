#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lab/ics/FileEncoding.h"

namespace vornlab {

// What is wrong with a calendar's text: the physical line, counted from 1, and the fault in words.
struct IcsProblem {
  std::size_t line = 0;
  std::string message;
};

// One property of a component, unfolded and in UTF-8. Names of properties and parameters are in upper case, values
// as written.
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
// lines with the file's own line ending and in its own encoding; everything else, known or not, is written back
// byte for byte. Reading takes time linear in the text. A component is named by its index, which it keeps until
// one is added in front of it; one that is removed keeps its own, too.
class IcsDocument {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Reads a text with one or more VCALENDARs, or with events and zones that stand in none; those are shown as the
  // children of a VCALENDAR without lines. Forgives empty lines, a byte order mark, a missing line ending at the
  // end, names in lower case, and lines that nobody can read, which are kept and told by warnings(). A line that
  // is no UTF-8 is read as Latin-1, unless it looks like damaged UTF-8. Absent, with the problem filled in, for
  // anything else, such as a text that ends in the middle.
  static std::optional<IcsDocument> parse(std::string text, IcsProblem& problem);

  // The text as it stands now; the very bytes that were read when nothing was changed.
  std::string text() const;
  bool isChanged() const { return !m_replaced.empty() || !m_added.empty() || !m_removed.empty(); }
  // Another number whenever this text may have changed, and one that no other text has: what was made of the text
  // holds as long as the number is the same. Any thread.
  std::uint64_t state() const { return m_state; }
  // "\r\n" or "\n", whichever ends the first line; "\r" in a text without any "\n".
  const std::string& lineEnding() const { return m_lineEnding; }
  // What is written into the text is in this encoding.
  FileEncoding encoding() const { return m_encoding; }
  // The lines that nobody can read, and that stay as they are.
  const std::vector<IcsProblem>& warnings() const { return m_warnings; }

  std::size_t componentCount() const { return m_components.size(); }
  // In upper case.
  const std::string& componentName(std::size_t component) const { return m_components[component].name; }
  // kNone for a VCALENDAR.
  std::size_t parentOf(std::size_t component) const { return m_components[component].parent; }
  const std::vector<std::size_t>& childrenOf(std::size_t component) const {
    return m_components[component].children;
  }
  // The physical line of the first property of that name as it was read; that of BEGIN when there was none.
  std::size_t physicalLineOf(std::size_t component, std::string_view name) const;
  bool isRemoved(std::size_t component) const { return m_removed.contains(m_components[component].beginLine); }
  // The lines from BEGIN to END, with changes, for another reader: in UTF-8, and ended by CRLF.
  std::string componentText(std::size_t component) const;

  // The first property of that name (upper case), or all in their order; what lies in components below is not
  // meant.
  std::optional<IcsProperty> property(std::size_t component, std::string_view name) const;
  std::vector<IcsProperty> properties(std::size_t component, std::string_view name) const;
  // What the parameter of that name (upper case) is in the component's own properties; without empty ones.
  std::set<std::string> parameters(std::size_t component, std::string_view name) const;

  // Which of several properties of one name is meant; absent means the first.
  using Choice = std::function<bool(const IcsProperty&)>;
  // Gives the property a content, which adds it when there is none. The same content changes nothing, nor does one
  // that the text's encoding has no bytes for; takeMisfit() tells that.
  void setProperty(std::size_t component, const IcsProperty& property, const Choice& choice = {});
  void removeProperty(std::size_t component, std::string_view name, const Choice& choice = {});
  // Goes once over all properties of that name, in their order: each stays as `keep` leaves it, or is taken out
  // when that answers false.
  using Keep = std::function<bool(IcsProperty&)>;
  void changeProperties(std::size_t component, std::string_view name, const Keep& keep);
  // Adds one more, whether or not there are others of that name, in constant time.
  void addProperty(std::size_t component, const IcsProperty& property);
  void removeComponent(std::size_t component);
  // Adds a component below the parent, which is given as its lines without line endings, unfolded, from BEGIN to
  // END, and gives its index; those of components that stand behind it in the text are one higher from now on. It
  // becomes part of the text at once. A line that does not fit into the encoding is left out. kNone, and no
  // change, for lines that are no component.
  std::size_t addComponent(std::size_t parent, const std::vector<std::string>& lines);

  // The first content since the last call that the encoding had no bytes for, with the line where it was to stand.
  std::optional<IcsProblem> takeMisfit();

  // What one component and those below it have been changed by so far. Restoring it takes back what came later;
  // adding a component to the text in between makes it worthless.
  struct Changes {
    std::map<std::size_t, std::optional<std::string>> replaced;
    std::map<std::size_t, std::vector<std::string>> added;
  };
  Changes changesOf(std::size_t component) const;
  void restore(std::size_t component, Changes changes);

 private:
  struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string name;
    bool folded = false;
    // The physical line of its beginning, counted from 1.
    std::size_t number = 0;
    bool isOfSingleBytes = false;
  };
  struct Component {
    std::string name;
    std::size_t parent = kNone;
    // kNone for the calendar of those that stand in none, whose other end is that of the text.
    std::size_t beginLine = kNone;
    std::size_t endLine = 0;
    std::vector<std::size_t> lines;
    std::vector<std::size_t> children;
  };
  struct Reader;
  static std::uint64_t newState();

  // The line without its folds, as bytes of the text, and in UTF-8.
  std::string unfolded(const Line& line) const;
  std::string content(const Line& line) const;
  std::string_view bytesOf(const Line& line) const {
    return std::string_view(m_text).substr(line.begin, line.end - line.begin);
  }
  // Where physical lines end.
  char newline() const { return m_lineEnding.back(); }
  // False, and noted, when the encoding has no bytes for a content that is to stand at the line.
  bool fits(const std::string& content, std::size_t line);
  // A content as lines of the text.
  std::string written(const std::string& content) const;
  IcsProperty propertyAt(std::size_t line) const;
  // The line that added properties of the component go in front of: behind its own, before the components below
  // it.
  std::size_t lineForAdded(std::size_t component) const;
  std::size_t findLine(std::size_t component, std::string_view name, const Choice& choice) const;
  // kNone when none begins there in the text.
  std::size_t componentBeginningAt(std::size_t position) const;
  // Gives each line before `endLine` as it stands, or else the content that was put there.
  template <typename Take>
  void forEachLine(std::size_t firstLine, std::size_t endLine, const Take& take) const;
  void write(std::size_t firstLine, std::size_t endLine, std::string& out) const;

  std::uint64_t m_state = newState();
  std::string m_text;
  std::string m_lineEnding = "\r\n";
  FileEncoding m_encoding = FileEncoding::utf8;
  std::vector<IcsProblem> m_warnings;
  std::optional<IcsProblem> m_misfit;
  std::vector<Line> m_lines;
  std::vector<Component> m_components;
  // Unfolded content by line; an absent one has been taken out.
  std::map<std::size_t, std::optional<std::string>> m_replaced;
  // Unfolded contents by the line that they go in front of, which tells their component.
  std::map<std::size_t, std::vector<std::string>> m_added;
  // The last line of a component that has been taken out, by its first.
  std::map<std::size_t, std::size_t> m_removed;
};

// The text with the replacement character for every byte that is no UTF-8.
std::string wellFormed(std::string text);

// A content line as it stands in a file: cut into pieces of at most 75 octets, never inside a character, each but
// the first with a blank in front, and closed with the line ending.
std::string foldedLine(std::string_view content, std::string_view lineEnding);

// A value of type TEXT, read and written: backslash, comma, semicolon and line breaks.
std::string unescapedText(std::string_view value);
std::string escapedText(std::string_view text);

}  // namespace vornlab
