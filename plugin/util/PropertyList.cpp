#include "util/PropertyList.h"

#include <plist/plist.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "util/AtomicFile.h"
#include "util/BinaryPropertyList.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr int kDeepestList = 512;

struct FreeNode {
  void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};

Value valueOf(plist_t node, int depth);

Value arrayOf(plist_t node, int depth) {
  Value result = Value::array();
  plist_array_iter begun = nullptr;
  plist_array_new_iter(node, &begun);
  const std::unique_ptr<void, FreeMemory> iterator(begun);
  for (;;) {
    plist_t item = nullptr;
    plist_array_next_item(node, iterator.get(), &item);
    if (!item) return result;
    result.append(valueOf(item, depth + 1));
  }
}

Value dictionaryOf(plist_t node, int depth) {
  std::vector<Value::Dictionary::Entry> entries;
  plist_dict_iter begun = nullptr;
  plist_dict_new_iter(node, &begun);
  const std::unique_ptr<void, FreeMemory> iterator(begun);
  for (;;) {
    char* key = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(node, iterator.get(), &key, &item);
    const std::unique_ptr<char, FreeMemory> keptKey(key);
    if (!item) return Value::Dictionary(std::move(entries));
    Value value = key ? valueOf(item, depth + 1) : Value();
    if (!value.isAbsent()) entries.emplace_back(key, std::move(value));
  }
}

Value textOf(plist_t node) {
  std::uint64_t length = 0;
  const char* bytes = plist_get_string_ptr(node, &length);
  return bytes ? Value(std::string(bytes, length)) : Value();
}

Value valueOf(plist_t node, int depth) {
  if (depth > kDeepestList) return {};
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      std::uint8_t flag = 0;
      plist_get_bool_val(node, &flag);
      return flag != 0;
    }
    case PLIST_UINT: {
      std::uint64_t number = 0;
      plist_get_uint_val(node, &number);
      return number;
    }
    case PLIST_REAL: {
      double number = 0;
      plist_get_real_val(node, &number);
      return number;
    }
    case PLIST_STRING: return textOf(node);
    case PLIST_ARRAY: return arrayOf(node, depth);
    case PLIST_DICT: return dictionaryOf(node, depth);
    default: return {};
  }
}

// Whether the library's parser, which has no limits of its own, can be left alone with a text: freeing a very deep
// tree would exhaust the stack, and each entity costs it as much as the text that it stands in is long.
class XmlLimits {
 public:
  explicit XmlLimits(std::string_view xml) : m_xml(xml) {}

  bool areKept() {
    for (std::size_t at = countEntities(0); at < m_xml.size() && !m_isBeyond; at = countEntities(at)) {
      at = behindMarkup(at);
    }
    return !m_isBeyond;
  }

 private:
  static constexpr std::uint64_t kMostBytesMoved = std::uint64_t{1} << 32;

  // From the text that begins there to the next markup.
  std::size_t countEntities(std::size_t at) {
    const std::size_t end = std::min(m_xml.find('<', at), m_xml.size());
    const auto entities = std::count(m_xml.begin() + static_cast<std::ptrdiff_t>(at),
                                     m_xml.begin() + static_cast<std::ptrdiff_t>(end), '&');
    m_bytesMoved += static_cast<std::uint64_t>(entities) * (end - at);
    m_isBeyond |= m_bytesMoved > kMostBytesMoved;
    return end;
  }

  std::size_t behind(std::string_view wanted, std::size_t from) const {
    const std::size_t found = m_xml.find(wanted, from);
    return found == std::string_view::npos ? m_xml.size() : found + wanted.size();
  }

  std::size_t behindMarkup(std::size_t at) {
    constexpr std::string_view comment = "<!--";
    constexpr std::string_view verbatim = "<![CDATA[";
    const std::string_view markup = m_xml.substr(at);
    if (markup.starts_with(comment)) return behind("-->", at + comment.size());
    if (markup.starts_with(verbatim)) return behind("]]>", at + verbatim.size());
    const std::size_t end = behind(markup.starts_with("<?") ? "?>" : ">", at);
    const std::string_view tag = m_xml.substr(at, end - at);
    // The parser looks for the end behind quotes and declarations. What would hide a tag from one of the two
    // stands in no property list.
    const auto quotes = std::count(tag.begin(), tag.end(), '"');
    m_isBeyond |=
        quotes % 2 != 0 || tag.find('<', 1) != std::string_view::npos || tag.find('[') != std::string_view::npos;
    if (isEndOf(tag, "array") || isEndOf(tag, "dict")) m_depth = std::max(m_depth - 1, 0);
    if (opens(tag, "<array") || opens(tag, "<dict")) m_isBeyond |= ++m_depth > kDeepestList;
    return end;
  }

  static bool isEndOf(std::string_view tag, std::string_view name) {
    constexpr std::string_view opening = "</";
    if (!tag.starts_with(opening) || !tag.substr(opening.size()).starts_with(name)) return false;
    return tag.find_first_not_of(" \t\r\n", opening.size() + name.size()) == tag.size() - 1;
  }

  // One that is closed at once holds nothing.
  static bool opens(std::string_view tag, std::string_view opening) {
    if (!tag.starts_with(opening)) return false;
    const std::size_t behindName = tag.find_first_not_of(" \t\r\n", opening.size());
    return behindName == std::string_view::npos || tag.substr(behindName) != "/>";
  }

  std::string_view m_xml;
  int m_depth = 0;
  std::uint64_t m_bytesMoved = 0;
  bool m_isBeyond = false;
};

bool fitsInXml(std::string_view text) {
  const auto hasNoForm = [](unsigned char c) { return c < 0x20 && c != '\t' && c != '\n' && c != '\r'; };
  return isValidUtf8(text) && std::none_of(text.begin(), text.end(), hasNoForm);
}

class Writer {
 public:
  bool failed() const { return m_failed; }

  // Null for a value that the format cannot hold.
  Node node(const Value& value, int depth) {
    if (depth > kDeepestList) m_failed = true;
    if (m_failed) return nullptr;
    switch (value.kind()) {
      case Value::Kind::boolean: return Node(plist_new_bool(value.boolValue() ? 1 : 0));
      case Value::Kind::integer: return Node(plist_new_uint(static_cast<std::uint64_t>(value.integerValue())));
      case Value::Kind::real: return Node(plist_new_real(value.realValue()));
      case Value::Kind::text: return text(value.text());
      case Value::Kind::array: return array(value, depth);
      case Value::Kind::dictionary: return dictionary(value, depth);
      default: return nullptr;
    }
  }

 private:
  Node text(const std::string& content) {
    if (!fitsInXml(content)) m_failed = true;
    return m_failed ? nullptr : Node(plist_new_string(content.c_str()));
  }

  Node array(const Value& value, int depth) {
    Node result(plist_new_array());
    for (const Value& item : value.items()) {
      if (Node made = node(item, depth + 1)) plist_array_append_item(result.get(), made.release());
    }
    return result;
  }

  Node dictionary(const Value& value, int depth) {
    Node result(plist_new_dict());
    for (const auto& [key, item] : value.entries()) {
      if (!fitsInXml(key)) m_failed = true;
      Node made = node(item, depth + 1);
      if (made) plist_dict_set_item(result.get(), key.c_str(), made.release());
    }
    return result;
  }

  bool m_failed = false;
};

}  // namespace

Value readPropertyList(const std::string& path) {
  const std::optional<std::string> content = readFile(path);
  return content ? propertyListIn(*content) : Value();
}

Value propertyListIn(const std::string& content) {
  if (content.size() > std::numeric_limits<std::uint32_t>::max()) return {};
  // The library's reader of the binary form follows references without a limit, down and again and again.
  if (isBinaryPropertyList(content)) return readBinaryPropertyList(content, kDeepestList);
  if (!XmlLimits(content).areKept()) return {};
  plist_t parsed = nullptr;
  plist_from_xml(content.data(), static_cast<std::uint32_t>(content.size()), &parsed);
  const Node root(parsed);
  return root ? valueOf(root.get(), 0) : Value();
}

bool writePropertyList(const Value& value, const std::string& path) {
  Writer writer;
  const Node root = writer.node(value, 0);
  if (!root || writer.failed()) return false;
  char* made = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(root.get(), &made, &length);
  const std::unique_ptr<char, FreeMemory> xml(made);
  return xml && replaceFile(path, std::string_view(xml.get(), length));
}

}  // namespace vorn
