#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace vornlab::test {

// A packed message by field number, read without any schema: what other programs see on the wire.
struct Packed {
  std::map<int, std::vector<std::uint64_t>> numbers;
  std::map<int, std::vector<std::string>> texts;

  std::uint64_t number(int field) const { return numbers.count(field) != 0 ? numbers.at(field).front() : 0; }
  std::string text(int field) const { return texts.count(field) != 0 ? texts.at(field).front() : std::string(); }
};

std::string decodeBase64(const std::string& text);
Packed unpack(const std::string& bytes);

// Both layers of a get-meeting reply.
struct MeetingLayers {
  nlohmann::json json;
  Packed packed;
};
MeetingLayers readMeeting(const std::string& content);

}  // namespace vornlab::test
