#include "lab/shell/watch/WatchEvents.h"

#include <nlohmann/json.hpp>

#include "lab/shell/ReportForm.h"
#include "lab/shell/TextColumns.h"

namespace vornlab {
namespace {

using Json = nlohmann::ordered_json;

// -- Out ---------------------------------------------------------------------------------------------------------

Json head(const char* event, double at) { return {{"event", event}, {"at", roundedSeconds(at)}}; }

Json asJson(const WatchTimer& timer) {
  return {{"seconds", timer.seconds}, {"repeats", timer.repeats}, {"due", roundedSeconds(timer.due)}};
}

Json asJson(const WatchRequest& request) {
  Json timers = Json::array();
  for (const WatchTimer& timer : request.timers) timers.push_back(asJson(timer));
  return {{"request", request.name}, {"since", roundedSeconds(request.since)}, {"timers", timers}};
}

Json asJson(const WatchWindow& window) {
  return {{"window", window.number},   {"subject", window.subject},      {"dirty", window.isDirty},
          {"bar", window.bar},         {"command", window.command},      {"state", window.state},
          {"meeting", window.meeting}, {"hostAction", window.hostAction}};
}

Json asJson(const WatchLaboratory& laboratory) {
  Json object = head("laboratory", laboratory.at);
  object["process"] = laboratory.process;
  object["command"] = laboratory.command;
  return object;
}

Json asJson(const WatchWorld& world) {
  Json object = head("world", world.at);
  object["title"] = world.title;
  object["folder"] = world.folder;
  return object;
}

Json asJson(const WatchState& state) {
  Json object = head("state", state.at);
  object["client"] = state.client;
  object["sent"] = state.sent;
  object["received"] = state.received;
  object["windows"] = Json::array();
  for (const WatchWindow& window : state.windows) object["windows"].push_back(asJson(window));
  object["pending"] = Json::array();
  for (const WatchRequest& request : state.pending) object["pending"].push_back(asJson(request));
  object["sheets"] = state.sheets;
  return object;
}

Json asJson(const WatchStep& step) {
  Json object = head("step", step.at);
  object["step"] = step.step;
  object["words"] = step.words;
  if (!step.content.empty()) object["content"] = step.content;
  if (step.isPast) object["past"] = true;
  return object;
}

Json asJson(const WatchNotice& notice) {
  Json object = head("notice", notice.at);
  object["message"] = notice.message;
  object["answer"] = notice.answer;
  if (notice.isPast) object["past"] = true;
  return object;
}

Json asJson(const WatchWorldEnd& end) { return head("world end", end.at); }

Json asJson(const WatchEnd& end) { return head("end", end.at); }

// -- In ----------------------------------------------------------------------------------------------------------

const Json& entry(const Json& object, const char* key) {
  static const Json nothing;
  const auto found = object.find(key);
  return found == object.end() ? nothing : *found;
}

std::string textOf(const Json& value) {
  const auto* text = value.get_ptr<const Json::string_t*>();
  return text == nullptr ? "" : onTerminal(*text);
}

std::string text(const Json& object, const char* key) { return textOf(entry(object, key)); }

double seconds(const Json& object, const char* key) {
  const Json& value = entry(object, key);
  return value.is_number() ? value.get<double>() : 0;
}

std::int64_t number(const Json& object, const char* key) {
  const Json& value = entry(object, key);
  return value.is_number_integer() ? value.get<std::int64_t>() : 0;
}

bool flag(const Json& object, const char* key) {
  const Json& value = entry(object, key);
  return value.is_boolean() && value.get<bool>();
}

// The objects of an array, each read; none when it is no array.
template <typename Item>
std::vector<Item> items(const Json& object, const char* key, Item (*read)(const Json&)) {
  std::vector<Item> result;
  const Json& array = entry(object, key);
  if (!array.is_array()) return result;
  for (const Json& item : array) result.push_back(read(item));
  return result;
}

WatchTimer timerOf(const Json& json) {
  return {.seconds = seconds(json, "seconds"), .repeats = flag(json, "repeats"), .due = seconds(json, "due")};
}

WatchRequest requestOf(const Json& json) {
  return {.name = text(json, "request"),
          .since = seconds(json, "since"),
          .timers = items<WatchTimer>(json, "timers", timerOf)};
}

WatchWindow windowOf(const Json& json) {
  return {.number = number(json, "window"),
          .subject = text(json, "subject"),
          .isDirty = flag(json, "dirty"),
          .bar = text(json, "bar"),
          .command = text(json, "command"),
          .state = text(json, "state"),
          .meeting = text(json, "meeting"),
          .hostAction = text(json, "hostAction")};
}

WatchState stateOf(const Json& json) {
  return {.at = seconds(json, "at"),
          .client = text(json, "client"),
          .sent = number(json, "sent"),
          .received = number(json, "received"),
          .windows = items<WatchWindow>(json, "windows", windowOf),
          .pending = items<WatchRequest>(json, "pending", requestOf),
          .sheets = items<std::string>(json, "sheets", textOf)};
}

}  // namespace

bool WatchState::saysTheSameAs(const WatchState& other) const {
  return client == other.client && sent == other.sent && received == other.received && windows == other.windows &&
         pending == other.pending && sheets == other.sheets;
}

std::string watchLine(const WatchEvent& event) {
  const Json object = std::visit([](const auto& what) { return asJson(what); }, event);
  return object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<WatchEvent> watchEvent(std::string_view line) {
  const Json json = Json::parse(line, nullptr, false);
  if (!json.is_object()) return std::nullopt;
  const double at = seconds(json, "at");
  const std::string event = text(json, "event");
  if (event == "laboratory") return WatchLaboratory{at, number(json, "process"), text(json, "command")};
  if (event == "world") return WatchWorld{at, text(json, "title"), text(json, "folder")};
  if (event == "state") return stateOf(json);
  if (event == "step") {
    return WatchStep{at, text(json, "step"), text(json, "words"), text(json, "content"), flag(json, "past")};
  }
  if (event == "notice") return WatchNotice{at, text(json, "message"), text(json, "answer"), flag(json, "past")};
  if (event == "world end") return WatchWorldEnd{at};
  if (event == "end") return WatchEnd{at};
  return std::nullopt;
}

}  // namespace vornlab
