#include "lab/client/Faults.h"
#include "secrets/SecretMask.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <iostream>
#include <sstream>

namespace vornlab {
namespace {

using Words = std::vector<std::string>;

Words wordsOf(std::string_view text) {
  std::istringstream stream{std::string(text)};
  Words words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::string trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t\r");
  if (begin == std::string_view::npos) return {};
  return std::string(text.substr(begin, text.find_last_not_of(" \t\r") + 1 - begin));
}

template <typename Number>
bool readNumber(const std::string& word, Number& number) {
  const char* end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, number);
  return error == std::errc{} && stop == end;
}

constexpr std::array<std::string_view, 10> kOrdinals = {"first", "second",  "third",  "fourth", "fifth",
                                                        "sixth", "seventh", "eighth", "ninth",  "tenth"};

}  // namespace

// Reads one faults file; knows the line that it stands on.
class FaultParser {
 public:
  explicit FaultParser(std::string name) : m_name(std::move(name)) {}

  FaultBook read(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    FaultBook book;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
      ++m_line;
      const std::string rule = trimmed(line);
      if (!rule.empty() && rule.front() != '#') book.m_rules.push_back(readRule(rule));
    }
    return book;
  }

 private:
  [[noreturn]] void fail(const std::string& what) const {
    throw FaultError(m_name + ":" + std::to_string(m_line) + ": " + what);
  }

  FaultBook::Rule readRule(const std::string& text) const {
    const auto colon = text.find(':');
    if (colon == std::string::npos) fail("expected ':' between the reply and what happens to it");
    FaultBook::Rule rule;
    readSelector(wordsOf(std::string_view(text).substr(0, colon)), rule);
    rule.faults = readFaults(trimmed(std::string_view(text).substr(colon + 1)));
    return rule;
  }

  // "reply 3", "third reply" or "every reply", then "to action 3" and "operation 1".
  void readSelector(const Words& words, FaultBook::Rule& rule) const {
    std::size_t at = 0;
    const auto word = [&](std::size_t i) { return i < words.size() ? words[i] : std::string(); };
    const auto ordinal = std::find(kOrdinals.begin(), kOrdinals.end(), word(0));
    std::uint64_t nth = 0;
    if (word(0) == "every" && word(1) == "reply") {
      at = 2;
    } else if (ordinal != kOrdinals.end() && word(1) == "reply") {
      rule.nth = static_cast<std::uint64_t>(ordinal - kOrdinals.begin()) + 1;
      at = 2;
    } else if (word(0) == "reply" && readNumber(word(1), nth) && nth > 0) {
      rule.nth = nth;
      at = 2;
    } else {
      fail("expected 'reply N', 'third reply' or 'every reply', found '" + word(0) + " " + word(1) + "'");
    }
    if (word(at) == "to") {
      rule.action = readCode(word(at + 1), word(at + 2), "action");
      at += 3;
    }
    if (word(at) == "operation") {
      rule.operation = readCode(word(at), word(at + 1), "operation");
      at += 2;
    }
    if (at < words.size()) fail("expected 'to action N', 'operation N' or ':', found '" + words[at] + "'");
  }

  std::uint32_t readCode(const std::string& kind, const std::string& number, const std::string& expected) const {
    std::uint32_t code = 0;
    if (kind != expected || !readNumber(number, code)) {
      fail("expected '" + expected + " N', found '" + kind + " " + number + "'");
    }
    return code;
  }

  std::vector<Fault> readFaults(const std::string& text) const {
    // The text of a content may hold commas.
    if (text.rfind("content", 0) == 0) {
      Fault fault;
      fault.kind = FaultKind::content;
      fault.text = trimmed(std::string_view(text).substr(7));
      fault.words = "content";
      return {fault};
    }
    std::vector<Fault> faults;
    std::istringstream parts{text};
    for (std::string part; std::getline(parts, part, ',');) faults.push_back(readFault(wordsOf(part)));
    if (faults.empty()) fail("expected what happens to the reply behind ':'");
    return faults;
  }

  Fault readFault(const Words& words) const {
    Fault fault;
    for (const auto& word : words) fault.words += (fault.words.empty() ? "" : " ") + word;
    const std::string name = words.empty() ? std::string() : words.front();

    struct Plain {
      std::string_view name;
      FaultKind kind;
    };
    for (const auto& [plain, kind] :
         {Plain{"glue", FaultKind::glue}, Plain{"not-utf8", FaultKind::notUtf8}, Plain{"twice", FaultKind::twice},
          Plain{"close", FaultKind::close}, Plain{"die", FaultKind::die}, Plain{"silent", FaultKind::silent},
          Plain{"restart", FaultKind::restart}}) {
      if (name != plain) continue;
      if (words.size() > 1) fail("'" + name + "' takes nothing behind it, found '" + words[1] + "'");
      fault.kind = kind;
      return fault;
    }
    for (const auto& [counted, kind] : {Plain{"truncate", FaultKind::truncate}, Plain{"fields", FaultKind::fields},
                                        Plain{"grow", FaultKind::grow}}) {
      if (name != counted) continue;
      fault.kind = kind;
      fault.count = readCount(words, 1, name + " N");
      return fault;
    }
    if (name == "error") {
      if (words.size() != 2) fail("expected 'error CODE', found '" + fault.words + "'");
      fault.kind = FaultKind::error;
      fault.text = words[1];
      return fault;
    }
    if (name == "delay") return readDelay(words, fault);
    if (name == "split") return readSplit(words, fault);
    fail(
        "expected delay, split, glue, truncate, not-utf8, error, content, fields, grow, twice, close, die, silent "
        "or restart, found '" +
        name + "'");
  }

  std::size_t readCount(const Words& words, std::size_t at, const std::string& form) const {
    std::size_t count = 0;
    if (words.size() != at + 1 || !readNumber(words[at], count)) fail("expected '" + form + "'");
    return count;
  }

  Fault readDelay(const Words& words, Fault fault) const {
    double seconds = 0;
    const bool unit = words.size() == 3 && words[2] == "s";
    if ((words.size() != 2 && !unit) || !readNumber(words[1], seconds) || seconds < 0 || seconds > 3600) {
      fail("expected 'delay SECONDS', at most 3600, found '" + fault.words + "'");
    }
    fault.kind = FaultKind::delay;
    fault.count = static_cast<std::size_t>(seconds * 1000);
    return fault;
  }

  Fault readSplit(const Words& words, Fault fault) const {
    if (words.size() > 1 && words[1] == "every") {
      fault.kind = FaultKind::splitEvery;
      fault.count = readCount(words, 2, "split every N");
      if (fault.count == 0) fail("'split every' needs at least 1");
      return fault;
    }
    fault.kind = FaultKind::split;
    if (words.size() < 3 || words[1] != "at")
      fail("expected 'split at N ...' or 'split every N', found '" + fault.words + "'");
    for (std::size_t i = 2; i < words.size(); ++i) {
      std::size_t position = 0;
      if (!readNumber(words[i], position)) fail("expected a position, found '" + words[i] + "'");
      fault.positions.push_back(position);
    }
    std::sort(fault.positions.begin(), fault.positions.end());
    return fault;
  }

  std::string m_name;
  std::size_t m_line = 0;
};

FaultBook FaultBook::fromText(std::string_view text, const std::string& name) {
  return FaultParser(name).read(text);
}

FaultBook FaultBook::fromFile(const std::string& path) {
  // Its state is taken before it is read: a change between the two is seen again at the next reply.
  const auto state = stateOf(path);
  std::ifstream file(path, std::ios::binary);
  if (!state || !file) throw FaultError(path + ": cannot be read");
  std::ostringstream text;
  text << file.rdbuf();
  FaultBook book = fromText(text.str(), path);
  book.m_path = path;
  book.m_state = *state;
  return book;
}

std::optional<FaultBook::FileState> FaultBook::stateOf(const std::string& path) {
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0) return std::nullopt;
  return FileState{found.st_ino, found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}

void FaultBook::readAgainWhenChanged() {
  const auto state = m_path.empty() ? std::nullopt : stateOf(m_path);
  if (!state || *state == m_state) return;
  m_state = *state;
  try {
    *this = fromFile(m_path);
  } catch (const FaultError& error) {
    std::cerr << "vornclient: the faults stay as they were: " << vorn::SecretMask::covered(error.what())
              << std::endl;
  }
}

std::vector<Fault> FaultBook::next(std::uint32_t requestAction, std::uint32_t operation) {
  readAgainWhenChanged();
  std::vector<Fault> faults;
  for (auto& rule : m_rules) {
    if (rule.action && *rule.action != requestAction) continue;
    if (rule.operation && *rule.operation != operation) continue;
    ++rule.seen;
    if (rule.nth && *rule.nth != rule.seen) continue;
    faults.insert(faults.end(), rule.faults.begin(), rule.faults.end());
  }
  return faults;
}

namespace {

std::string firstFields(const std::string& content, std::size_t count) {
  std::size_t end = 0;
  for (std::size_t i = 0; i < count; ++i) {
    end = content.find(';', i == 0 ? 0 : end + 1);
    if (end == std::string::npos) return content;
  }
  return content.substr(0, end);
}

void spoilContent(Envelope& reply, const Fault& fault) {
  switch (fault.kind) {
    case FaultKind::error: reply.content = "0;Error " + fault.text; break;
    case FaultKind::content: reply.content = fault.text; break;
    case FaultKind::fields: reply.content = firstFields(reply.content, fault.count); break;
    case FaultKind::grow:
      if (reply.content.size() < fault.count) reply.content.resize(fault.count, 'x');
      break;
    default: break;
  }
}

std::vector<std::string> cut(const std::string& text, std::vector<std::size_t> positions) {
  std::vector<std::string> pieces;
  std::size_t begin = 0;
  positions.push_back(text.size());
  for (const std::size_t position : positions) {
    const std::size_t end = std::min(position, text.size());
    if (end > begin) pieces.push_back(text.substr(begin, end - begin));
    begin = std::max(begin, end);
  }
  return pieces;
}

}  // namespace

Delivery deliveryOf(Envelope reply, const std::vector<Fault>& faults) {
  for (const auto& fault : faults) spoilContent(reply, fault);
  std::string text = toText(reply);

  Delivery delivery;
  std::vector<std::size_t> positions;
  bool silent = false;
  bool twice = false;
  for (const auto& fault : faults) {
    switch (fault.kind) {
      case FaultKind::delay: delivery.delayMilliseconds += fault.count; break;
      case FaultKind::split: positions = fault.positions; break;
      case FaultKind::splitEvery:
        positions.clear();
        for (std::size_t at = fault.count; at < text.size(); at += fault.count) positions.push_back(at);
        break;
      case FaultKind::glue: delivery.glue = true; break;
      case FaultKind::truncate: text.resize(std::min(text.size(), fault.count)); break;
      case FaultKind::notUtf8: text.insert(text.size() / 2, "\xff\xfe"); break;
      case FaultKind::twice: twice = true; break;
      case FaultKind::close: delivery.end = Delivery::End::close; break;
      case FaultKind::die: delivery.end = Delivery::End::die; break;
      case FaultKind::restart: delivery.end = Delivery::End::restart; break;
      case FaultKind::silent: silent = true; break;
      default: break;
    }
  }
  if (silent || delivery.end != Delivery::End::none) return delivery;
  delivery.pieces = cut(text, std::move(positions));
  if (twice) delivery.pieces.push_back(text);
  return delivery;
}

}  // namespace vornlab
