#include "lab/client/Envelope.h"

#include <charconv>
#include <nlohmann/json.hpp>

namespace vornlab {

std::string toText(const Envelope& envelope) {
  const auto content =
      nlohmann::json(envelope.content).dump(-1, ' ', true, nlohmann::json::error_handler_t::replace);
  return "{\"content\": " + content + ", \"actionId\": \"" + std::to_string(envelope.action) + "\"}";
}

std::optional<Envelope> fromText(std::string_view text) {
  const auto document = nlohmann::json::parse(text, nullptr, false);
  if (!document.is_object()) return std::nullopt;
  const auto action = document.find("actionId");
  const auto content = document.find("content");
  if (action == document.end() || content == document.end()) return std::nullopt;
  if (!action->is_string() || !content->is_string()) return std::nullopt;

  const auto& digits = action->get_ref<const std::string&>();
  Envelope envelope;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), envelope.action);
  if (error != std::errc{}) return std::nullopt;
  envelope.content = content->get<std::string>();
  return envelope;
}

}  // namespace vornlab
