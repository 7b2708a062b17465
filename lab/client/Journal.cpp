#include "lab/client/Journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "lab/client/Service.h"

namespace vornlab {
namespace {

using nlohmann::json;

constexpr std::size_t kMostShown = 4096;

bool isAddressCharacter(char c) {
  const auto u = static_cast<unsigned char>(c);
  return std::isalnum(u) != 0 || u >= 0x80 || std::strchr(".!#$%&'*+/=?^_`{|}~-", c) != nullptr;
}

bool isTokenCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.' || c == '-' || c == '_';
}

// One pass: an address is what stands around an "@", a token what follows "pwd=".
std::string masked(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  std::size_t addressBegin = 0;  // in `out`: where the run of address characters before the present place begins
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '@') {
      out.resize(addressBegin);
      while (i + 1 < text.size() && isAddressCharacter(text[i + 1])) ++i;
      out += "***";
      addressBegin = out.size();
    } else if (text.substr(i, 4) == "pwd=") {
      out += "pwd=***";
      i += 3;
      while (i + 1 < text.size() && isTokenCharacter(text[i + 1])) ++i;
      addressBegin = out.size();
    } else {
      out += text[i];
      if (text[i] == '\0' || !isAddressCharacter(text[i])) addressBegin = out.size();
    }
  }
  return out;
}

// Members whose values are secrets, however they are written.
bool isSecret(const std::string& name) {
  return name == "meetingPassword" || name == "thirdPartyAudio" || name == "hostPasscode" ||
         name == "participantPasscode";
}

json maskedDocument(const json& value) {
  if (value.is_string()) return masked(value.get_ref<const std::string&>());
  if (value.is_array()) {
    json list = json::array();
    for (const auto& item : value) list.push_back(maskedDocument(item));
    return list;
  }
  if (!value.is_object()) return value;
  json object = json::object();
  for (const auto& [name, member] : value.items()) {
    const bool hidden = isSecret(name) && !(member.is_string() && member.get_ref<const std::string&>().empty());
    object[name] = hidden ? json("***") : maskedDocument(member);
  }
  return object;
}

std::string shortened(std::string text) {
  if (text.size() <= kMostShown) return text;
  const std::string size = std::to_string(text.size());
  text.resize(kMostShown);
  return text + "... (" + size + " bytes)";
}

std::string sizeOf(std::string_view text) { return "<" + std::to_string(text.size()) + " bytes>"; }

}  // namespace

std::string maskedRequest(const Envelope& request) {
  const auto brace = request.content.find('{');
  if (brace == std::string::npos) return shortened(masked(request.content));
  const auto document = json::parse(request.content.begin() + static_cast<std::ptrdiff_t>(brace),
                                    request.content.end(), nullptr, false);
  const std::string head = masked(std::string_view(request.content).substr(0, brace));
  // What cannot be read cannot be masked by its names.
  if (document.is_discarded()) return shortened(head + sizeOf(std::string_view(request.content).substr(brace)));
  return shortened(head + maskedDocument(document).dump());
}

std::string maskedReply(const Envelope& reply) {
  const std::string_view content(reply.content);
  if (content.rfind("0;Error ", 0) == 0) return shortened(masked(content));
  if (reply.action == action::kVersion) return shortened(masked(content));
  const bool isMeeting = reply.action <= action::kGet || reply.action == action::kGetByAppointment;
  if (!isMeeting) return sizeOf(content);
  const auto end = content.find(';');
  if (end == std::string_view::npos) return shortened(masked(content));
  return shortened(masked(content.substr(0, end)) + ";" + sizeOf(content.substr(end + 1)));
}

Journal::Journal(const std::string& path) {
  if (path.empty()) return;
  m_file = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  if (m_file < 0) throw std::runtime_error("the journal " + path + " cannot be opened: " + std::strerror(errno));
}

Journal::~Journal() {
  if (m_file >= 0) ::close(m_file);
}

void Journal::note(std::string_view event, nlohmann::json members) {
  if (m_file < 0) return;
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - m_start;
  members["event"] = event;
  members["seconds"] = std::round(elapsed.count() * 1e6) / 1e6;
  const std::string line = members.dump(-1, ' ', false, json::error_handler_t::replace) + "\n";
  std::size_t written = 0;
  while (written < line.size()) {
    const ssize_t count = ::write(m_file, line.data() + written, line.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    written += static_cast<std::size_t>(count);
  }
}

}  // namespace vornlab
