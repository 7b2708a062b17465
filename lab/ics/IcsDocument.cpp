#include "lab/ics/IcsDocument.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <atomic>

#include "util/Text.h"
#include "util/Utf16.h"

namespace vornlab {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kFoldAt = 75;
constexpr std::size_t kExcerpt = 40;

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// Where the value begins: behind the first colon that stands in no quotation. A quotation mark that is never
// closed is taken as a plain character, as some producers mean it.
std::size_t colonIn(std::string_view content) {
  bool quoted = false;
  for (std::size_t at = 0; at < content.size(); ++at) {
    if (content[at] == '"') quoted = !quoted;
    if (content[at] == ':' && !quoted) return at;
  }
  return content.find(':');
}

std::string excerpt(std::string_view content) {
  std::string shown;
  for (char c : content.substr(0, kExcerpt)) shown += static_cast<unsigned char>(c) < 0x20 ? '?' : c;
  return content.size() > kExcerpt ? shown + "..." : shown;
}

IcsProperty parsedProperty(std::string_view content) {
  IcsProperty result;
  const std::size_t colon = std::min(colonIn(content), content.size());
  result.value = content.substr(std::min(colon + 1, content.size()));
  const std::string_view head = content.substr(0, colon);
  std::size_t from = head.find(';');
  result.name = vorn::asciiUpper(std::string(head.substr(0, from)));
  while (from < head.size()) {
    std::size_t to = from + 1;
    for (bool quoted = false; to < head.size() && (quoted || head[to] != ';'); ++to) {
      if (head[to] == '"') quoted = !quoted;
    }
    const std::string_view piece = head.substr(from + 1, to - from - 1);
    const std::size_t equals = std::min(piece.find('='), piece.size());
    result.parameters.emplace_back(vorn::asciiUpper(std::string(piece.substr(0, equals))),
                                   piece.substr(std::min(equals + 1, piece.size())));
    from = to;
  }
  return result;
}

std::string contentOf(const IcsProperty& property) {
  std::string result = property.name;
  for (const auto& [name, value] : property.parameters) result += ";" + name + "=" + value;
  return result + ":" + property.value;
}

// Whether a text can be a property's name; some producers leave blanks around it.
bool isName(std::string_view text) {
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < 0x7F; });
}

// What producers write without a calendar around it.
bool mayStandAlone(std::string_view component) {
  constexpr std::array<std::string_view, 5> names{"VEVENT", "VTODO", "VJOURNAL", "VFREEBUSY", "VTIMEZONE"};
  return std::find(names.begin(), names.end(), component) != names.end();
}

constexpr const char* kUnreadable = "this line is no NAME:VALUE; it stays as it is, and means nothing";

}  // namespace

std::string IcsProperty::parameter(std::string_view parameterName) const {
  for (const auto& [key, written] : parameters) {
    if (key != parameterName) continue;
    if (written.size() >= 2 && written.front() == '"' && written.back() == '"') {
      return written.substr(1, written.size() - 2);
    }
    return written;
  }
  return {};
}

// Goes over the text once and leaves the document's tables filled, or the problem.
struct IcsDocument::Reader {
  IcsDocument& document;
  IcsProblem& problem;
  std::vector<std::size_t> open = {};
  // The calendar of those that stand in none.
  std::size_t unwritten = kNone;
  bool hasSingleBytes = false;
  bool hasWindows1252 = false;
  bool hasUtf8 = false;

  bool read() {
    const std::string& text = document.m_text;
    if (const std::string_view wide = wideEncodingOf(text); !wide.empty()) {
      return fail(1, "the file is in " + std::string(wide) + ", which no calendar is; save it as UTF-8");
    }
    hasUtf8 = text.starts_with(kByteOrderMark);
    std::size_t at = hasUtf8 ? kByteOrderMark.size() : 0;
    std::size_t physicalLine = 1;
    bool anyCalendar = false;
    while (at < text.size()) {
      const std::size_t firstPhysicalLine = physicalLine;
      Line line = nextLine(at, physicalLine);
      line.number = firstPhysicalLine;
      at = line.end;
      if (!take(line, firstPhysicalLine, anyCalendar)) return false;
    }
    if (!open.empty()) {
      return fail(physicalLine,
                  "expected END:" + document.m_components[open.back()].name + ", found the end of the file");
    }
    if (!anyCalendar) return fail(1, "expected BEGIN:VCALENDAR, found the end of the file");
    if (unwritten != kNone) document.m_components[unwritten].endLine = document.m_lines.size();
    if (hasSingleBytes && !hasUtf8) {
      document.m_encoding = hasWindows1252 ? FileEncoding::windows1252 : FileEncoding::latin1;
    }
    return true;
  }

  // A content line with its continuations.
  Line nextLine(std::size_t begin, std::size_t& physicalLine) const {
    const std::string& text = document.m_text;
    Line line;
    line.begin = begin;
    std::size_t at = begin;
    while (true) {
      const std::size_t newline = text.find(document.newline(), at);
      at = newline == std::string::npos ? text.size() : newline + 1;
      if (newline != std::string::npos) ++physicalLine;
      if (at >= text.size() || !isBlank(text[at])) break;
      line.folded = true;
    }
    line.end = at;
    return line;
  }

  bool take(Line line, std::size_t physicalLine, bool& anyCalendar) {
    const std::string content = document.unfolded(line);
    // What continues an empty line belongs to nothing; some producers break a property's value there.
    const char first = document.m_text[line.begin];
    const bool isEmpty = first == '\n' || first == '\r' || std::all_of(content.begin(), content.end(), isBlank);
    const std::size_t colon = std::min(colonIn(content), content.size());
    const bool isReadable = colon < content.size() && !isBlank(content.front()) &&
                            isName(std::string_view(content).substr(0, content.find_first_of(";:")));
    if (!isEmpty && !isReadable) {
      if (!anyCalendar) {
        return fail(physicalLine, "expected BEGIN:VCALENDAR, found \"" + excerpt(content) + "\"");
      }
      document.m_warnings.push_back({physicalLine, kUnreadable});
    }
    noteEncoding(line, content);
    const std::size_t index = document.m_lines.size();
    if (!isEmpty && isReadable) line.name = vorn::asciiUpper(content.substr(0, content.find_first_of(";:")));
    const std::string name = line.name;
    document.m_lines.push_back(std::move(line));
    if (isEmpty || !isReadable) return true;
    if (name == "BEGIN") return begin(index, componentNameIn(content, colon), physicalLine, anyCalendar);
    if (open.empty()) {
      return fail(physicalLine, "expected BEGIN:VCALENDAR, found \"" + excerpt(content) + "\"");
    }
    if (name == "END") return end(index, componentNameIn(content, colon), physicalLine);
    document.m_components[open.back()].lines.push_back(index);
    return true;
  }

  void noteEncoding(Line& line, std::string_view content) {
    if (isAscii(content)) return;
    line.isOfSingleBytes = isOfSingleBytes(content);
    hasSingleBytes = hasSingleBytes || line.isOfSingleBytes;
    hasUtf8 = hasUtf8 || !line.isOfSingleBytes;
    hasWindows1252 = hasWindows1252 || (line.isOfSingleBytes && needsWindows1252(content));
  }

  static std::string componentNameIn(const std::string& content, std::size_t colon) {
    std::string name = vorn::asciiUpper(content.substr(colon + 1));
    while (!name.empty() && isBlank(name.back())) name.pop_back();
    return name;
  }

  bool begin(std::size_t line, const std::string& name, std::size_t physicalLine, bool& anyCalendar) {
    const bool standsAlone = open.empty() && mayStandAlone(name);
    if (open.empty() && name != "VCALENDAR" && !standsAlone) {
      return fail(physicalLine, "expected BEGIN:VCALENDAR, found \"BEGIN:" + excerpt(name) + "\"");
    }
    anyCalendar = true;
    if (standsAlone && unwritten == kNone) {
      unwritten = document.m_components.size();
      document.m_components.emplace_back().name = "VCALENDAR";
    }
    Component made;
    made.name = name;
    made.parent = standsAlone ? unwritten : open.empty() ? kNone : open.back();
    made.beginLine = line;
    const std::size_t index = document.m_components.size();
    if (made.parent != kNone) document.m_components[made.parent].children.push_back(index);
    document.m_components.push_back(std::move(made));
    open.push_back(index);
    return true;
  }

  bool end(std::size_t line, const std::string& name, std::size_t physicalLine) {
    Component& closed = document.m_components[open.back()];
    if (name != closed.name) {
      return fail(physicalLine, "expected END:" + closed.name + ", found \"END:" + excerpt(name) + "\"");
    }
    closed.endLine = line;
    open.pop_back();
    return true;
  }

  bool fail(std::size_t line, std::string message) {
    problem = {line, std::move(message)};
    return false;
  }
};

std::optional<IcsDocument> IcsDocument::parse(std::string text, IcsProblem& problem) {
  IcsDocument document;
  document.m_text = std::move(text);
  const std::size_t newline = document.m_text.find('\n');
  if (newline == std::string::npos && document.m_text.find('\r') != std::string::npos) {
    document.m_lineEnding = "\r";
  } else if (newline != std::string::npos && (newline == 0 || document.m_text[newline - 1] != '\r')) {
    document.m_lineEnding = "\n";
  }
  Reader reader{document, problem};
  if (!reader.read()) return {};
  return document;
}

std::string IcsDocument::unfolded(const Line& line) const {
  std::string result;
  std::size_t at = line.begin;
  while (at < line.end) {
    std::size_t end = m_text.find(newline(), at);
    if (end == std::string::npos || end >= line.end) end = line.end;
    std::size_t stop = end;
    if (newline() == '\n' && stop > at && m_text[stop - 1] == '\r') --stop;
    result.append(m_text, at, stop - at);
    // The blank that marks a continuation is none of the content.
    at = end + 2;
  }
  return result;
}

std::string IcsDocument::content(const Line& line) const {
  return line.isOfSingleBytes ? fromSingleBytes(unfolded(line)) : unfolded(line);
}

std::size_t IcsDocument::physicalLineOf(std::size_t component, std::string_view name) const {
  const std::size_t line = findLine(component, name, nullptr);
  return m_lines[line == kNone ? m_components[component].beginLine : line].number;
}

bool IcsDocument::fits(const std::string& content, std::size_t line) {
  if (encoded(content, m_encoding)) return true;
  if (!m_misfit) {
    const std::string name = content.substr(0, content.find_first_of(";:"));
    m_misfit = {m_lines[line].number, "the file is in " + std::string(nameOf(m_encoding)) + ", which has no \"" +
                                          std::string(firstMisfit(content, m_encoding)) + "\" for the new " +
                                          name + "; save the file as UTF-8"};
  }
  return false;
}

std::string IcsDocument::written(const std::string& content) const {
  return foldedLine(encoded(content, m_encoding).value_or(content), m_lineEnding);
}

std::optional<IcsProblem> IcsDocument::takeMisfit() { return std::exchange(m_misfit, std::nullopt); }

IcsProperty IcsDocument::propertyAt(std::size_t line) const {
  const auto changed = m_replaced.find(line);
  return parsedProperty(changed == m_replaced.end() ? content(m_lines[line]) : *changed->second);
}

std::vector<IcsProperty> IcsDocument::properties(std::size_t component, std::string_view name) const {
  std::vector<IcsProperty> result;
  for (const std::size_t line : m_components[component].lines) {
    if (m_lines[line].name != name) continue;
    const auto changed = m_replaced.find(line);
    if (changed != m_replaced.end() && !changed->second) continue;
    result.push_back(propertyAt(line));
  }
  const auto added = m_added.find(lineForAdded(component));
  if (added == m_added.end()) return result;
  for (const std::string& content : added->second) {
    IcsProperty property = parsedProperty(content);
    if (property.name == name) result.push_back(std::move(property));
  }
  return result;
}

std::set<std::string> IcsDocument::parameters(std::size_t component, std::string_view name) const {
  std::set<std::string> values;
  const auto take = [&](const IcsProperty& property) {
    if (std::string value = property.parameter(name); !value.empty()) values.insert(std::move(value));
  };
  for (const std::size_t index : m_components[component].lines) {
    const Line& line = m_lines[index];
    const auto changed = m_replaced.find(index);
    if (changed != m_replaced.end()) {
      if (changed->second) take(parsedProperty(*changed->second));
      continue;
    }
    // Most lines have none, and that is seen without reading on.
    const bool mayHaveAny = line.folded || bytesOf(line)[line.name.size()] == ';';
    if (mayHaveAny) take(propertyAt(index));
  }
  if (const auto added = m_added.find(lineForAdded(component)); added != m_added.end()) {
    for (const std::string& content : added->second) take(parsedProperty(content));
  }
  return values;
}

std::optional<IcsProperty> IcsDocument::property(std::size_t component, std::string_view name) const {
  const std::size_t line = findLine(component, name, nullptr);
  if (line != kNone) return propertyAt(line);
  const auto added = m_added.find(lineForAdded(component));
  if (added == m_added.end()) return {};
  for (const std::string& content : added->second) {
    IcsProperty property = parsedProperty(content);
    if (property.name == name) return property;
  }
  return {};
}

std::uint64_t IcsDocument::newState() {
  static std::atomic<std::uint64_t> last = 0;
  return ++last;
}

std::size_t IcsDocument::lineForAdded(std::size_t component) const {
  const Component& grown = m_components[component];
  return grown.children.empty() ? grown.endLine : m_components[grown.children.front()].beginLine;
}

std::size_t IcsDocument::findLine(std::size_t component, std::string_view name, const Choice& choice) const {
  for (const std::size_t line : m_components[component].lines) {
    if (m_lines[line].name != name) continue;
    const auto changed = m_replaced.find(line);
    if (changed != m_replaced.end() && !changed->second) continue;
    if (!choice || choice(propertyAt(line))) return line;
  }
  return kNone;
}

void IcsDocument::setProperty(std::size_t component, const IcsProperty& property, const Choice& choice) {
  m_state = newState();
  std::string content = contentOf(property);
  const std::size_t line = findLine(component, property.name, choice);
  if (line != kNone) {
    if (contentOf(propertyAt(line)) == content || !fits(content, line)) return;
    m_replaced[line] = std::move(content);
    return;
  }
  if (!fits(content, m_components[component].beginLine)) return;
  std::vector<std::string>& added = m_added[lineForAdded(component)];
  for (std::string& present : added) {
    const IcsProperty old = parsedProperty(present);
    if (old.name != property.name || (choice && !choice(old))) continue;
    present = std::move(content);
    return;
  }
  added.push_back(std::move(content));
}

void IcsDocument::removeProperty(std::size_t component, std::string_view name, const Choice& choice) {
  m_state = newState();
  const std::size_t line = findLine(component, name, choice);
  if (line != kNone) {
    m_replaced[line] = std::nullopt;
    return;
  }
  const auto added = m_added.find(lineForAdded(component));
  if (added == m_added.end()) return;
  std::erase_if(added->second, [&](const std::string& content) {
    const IcsProperty old = parsedProperty(content);
    return old.name == name && (!choice || choice(old));
  });
  if (added->second.empty()) m_added.erase(added);
}

void IcsDocument::changeProperties(std::size_t component, std::string_view name, const Keep& keep) {
  m_state = newState();
  for (const std::size_t line : m_components[component].lines) {
    if (m_lines[line].name != name) continue;
    const auto changed = m_replaced.find(line);
    if (changed != m_replaced.end() && !changed->second) continue;
    IcsProperty property = propertyAt(line);
    const std::string before = contentOf(property);
    if (!keep(property)) {
      m_replaced[line] = std::nullopt;
    } else if (std::string content = contentOf(property); content != before && fits(content, line)) {
      m_replaced[line] = std::move(content);
    }
  }
  const auto added = m_added.find(lineForAdded(component));
  if (added == m_added.end()) return;
  std::vector<std::string> kept;
  for (std::string& present : added->second) {
    IcsProperty property = parsedProperty(present);
    if (property.name == name) {
      if (!keep(property)) continue;
      std::string content = contentOf(property);
      if (fits(content, m_components[component].beginLine)) present = std::move(content);
    }
    kept.push_back(std::move(present));
  }
  added->second = std::move(kept);
  if (added->second.empty()) m_added.erase(added);
}

void IcsDocument::addProperty(std::size_t component, const IcsProperty& property) {
  m_state = newState();
  std::string content = contentOf(property);
  if (fits(content, m_components[component].beginLine))
    m_added[lineForAdded(component)].push_back(std::move(content));
}

void IcsDocument::removeComponent(std::size_t component) {
  m_state = newState();
  m_removed[m_components[component].beginLine] = m_components[component].endLine;
}

std::size_t IcsDocument::addComponent(std::size_t parent, const std::vector<std::string>& lines) {
  // What is removed stays in the text that is read anew, so that all others keep their indexes.
  std::map<std::size_t, std::size_t> removed = std::exchange(m_removed, {});
  const std::size_t endLine = m_components[parent].endLine;
  std::string whole = m_text.substr(0, m_lines.front().begin);
  write(0, endLine, whole);
  if (!whole.empty() && whole.back() != newline()) whole += m_lineEnding;
  const std::size_t begin = whole.size();
  for (const std::string& line : lines) {
    if (fits(line, std::min(endLine, m_lines.size() - 1))) whole += written(line);
  }
  write(endLine, m_lines.size(), whole);
  IcsProblem problem;
  std::optional<IcsDocument> grown = parse(std::move(whole), problem);
  const std::size_t added = grown ? grown->componentBeginningAt(begin) : kNone;
  if (added == kNone) {
    m_removed = std::move(removed);
    return kNone;
  }
  for (std::size_t component = 0; component < m_components.size(); ++component) {
    if (removed.contains(m_components[component].beginLine))
      grown->removeComponent(component < added ? component : component + 1);
  }
  grown->m_misfit = std::move(m_misfit);
  *this = std::move(*grown);
  return added;
}

std::size_t IcsDocument::componentBeginningAt(std::size_t position) const {
  for (std::size_t component = 0; component < m_components.size(); ++component) {
    const std::size_t line = m_components[component].beginLine;
    if (line != kNone && m_lines[line].begin == position) return component;
  }
  return kNone;
}

IcsDocument::Changes IcsDocument::changesOf(std::size_t component) const {
  const auto [beginLine, endLine] = std::pair(m_components[component].beginLine, m_components[component].endLine);
  return {{m_replaced.lower_bound(beginLine), m_replaced.upper_bound(endLine)},
          {m_added.lower_bound(beginLine), m_added.upper_bound(endLine)}};
}

void IcsDocument::restore(std::size_t component, Changes changes) {
  m_state = newState();
  const auto [beginLine, endLine] = std::pair(m_components[component].beginLine, m_components[component].endLine);
  m_replaced.erase(m_replaced.lower_bound(beginLine), m_replaced.upper_bound(endLine));
  m_added.erase(m_added.lower_bound(beginLine), m_added.upper_bound(endLine));
  m_replaced.merge(changes.replaced);
  m_added.merge(changes.added);
}

template <typename Take>
void IcsDocument::forEachLine(std::size_t firstLine, std::size_t endLine, const Take& take) const {
  for (std::size_t line = firstLine; line < endLine; ++line) {
    if (const auto insertion = m_added.find(line); insertion != m_added.end()) {
      for (const std::string& content : insertion->second) take(nullptr, &content);
    }
    if (const auto skip = m_removed.find(line); skip != m_removed.end()) {
      line = skip->second;
      continue;
    }
    const auto changed = m_replaced.find(line);
    if (changed == m_replaced.end()) {
      take(&m_lines[line], nullptr);
    } else if (changed->second) {
      take(nullptr, &*changed->second);
    }
  }
}

void IcsDocument::write(std::size_t firstLine, std::size_t endLine, std::string& out) const {
  forEachLine(firstLine, endLine, [&](const Line* line, const std::string* changed) {
    out += changed ? written(*changed) : std::string(bytesOf(*line));
  });
}

std::string IcsDocument::text() const {
  if (!isChanged()) return m_text;
  std::string result = m_text.substr(0, m_lines.front().begin);
  write(0, m_lines.size(), result);
  return result;
}

std::string IcsDocument::componentText(std::size_t component) const {
  std::string result;
  forEachLine(m_components[component].beginLine, m_components[component].endLine + 1,
              [&](const Line* line, const std::string* changed) {
                const bool isAsRead = line && bytesOf(*line).ends_with("\r\n") && m_lineEnding == "\r\n" &&
                                      vorn::isValidUtf8(bytesOf(*line));
                result += isAsRead ? std::string(bytesOf(*line))
                                   : foldedLine(changed ? *changed : wellFormed(content(*line)), "\r\n");
              });
  return result;
}

std::string wellFormed(std::string text) {
  if (vorn::isValidUtf8(text)) return text;
  std::string result;
  icu::UnicodeString::fromUTF8(text).toUTF8String(result);
  return result;
}

std::string foldedLine(std::string_view content, std::string_view lineEnding) {
  std::string result;
  result.reserve(content.size() + content.size() / 35 + lineEnding.size());
  std::size_t room = kFoldAt;
  while (content.size() > room) {
    std::size_t cut = room;
    // Back to the first byte of the character, unless the bytes are no UTF-8 at all.
    while (cut > room - 4 && (static_cast<unsigned char>(content[cut]) & 0xC0) == 0x80) --cut;
    if ((static_cast<unsigned char>(content[cut]) & 0xC0) == 0x80) cut = room;
    result.append(content.substr(0, cut)).append(lineEnding).append(" ");
    content.remove_prefix(cut);
    room = kFoldAt - 1;
  }
  return result.append(content).append(lineEnding);
}

std::string unescapedText(std::string_view value) {
  std::string result;
  result.reserve(value.size());
  for (;;) {
    const std::size_t plain = value.find('\\');
    if (plain == std::string_view::npos || plain + 1 == value.size()) return result.append(value);
    result.append(value.substr(0, plain));
    const char escaped = value[plain + 1];
    value.remove_prefix(plain + 2);
    if (escaped == 'n' || escaped == 'N') {
      result += '\n';
    } else if (escaped == '\\' || escaped == ',' || escaped == ';' || escaped == '"' || escaped == ':') {
      result += escaped;
    } else {
      // No escape of the format: some producers leave lone backslashes, as in paths.
      result.append(1, '\\').append(1, escaped);
    }
  }
}

std::string escapedText(std::string_view text) {
  std::string result;
  result.reserve(text.size() + text.size() / 16);
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
    if (c == '\n' || c == '\r') {
      result += "\\n";
    } else {
      if (c == '\\' || c == ',' || c == ';') result += '\\';
      result += c;
    }
  }
  return result;
}

}  // namespace vornlab
