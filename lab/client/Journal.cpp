#include "lab/client/Journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "lab/client/CoveredJson.h"
#include "lab/client/Service.h"
#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

using nlohmann::json;
using vorn::SecretMask;

constexpr std::size_t kMostShown = 4096;

std::string shortened(std::string text) {
  if (text.size() <= kMostShown) return text;
  const std::string size = std::to_string(text.size());
  text.resize(kMostShown);
  return text + "... (" + size + " bytes)";
}

std::string sizeOf(std::string_view text) { return "<" + std::to_string(text.size()) + " bytes>"; }

}  // namespace

std::string coveredRequest(const Envelope& request) {
  const auto brace = request.content.find('{');
  if (brace == std::string::npos) return shortened(SecretMask::covered(request.content));
  const auto document = json::parse(request.content.begin() + static_cast<std::ptrdiff_t>(brace),
                                    request.content.end(), nullptr, false);
  const std::string head = SecretMask::covered(std::string_view(request.content).substr(0, brace));
  // What cannot be read cannot be covered by its names.
  if (document.is_discarded()) return shortened(head + sizeOf(std::string_view(request.content).substr(brace)));
  return shortened(head + coveredJson(document).dump(-1, ' ', false, json::error_handler_t::replace));
}

std::string coveredReply(const Envelope& reply) {
  const std::string_view content(reply.content);
  if (content.rfind("0;Error ", 0) == 0) return shortened(SecretMask::covered(content));
  if (reply.action == action::kVersion) return shortened(SecretMask::covered(content));
  const bool isMeeting = reply.action <= action::kGet || reply.action == action::kGetByAppointment;
  if (!isMeeting) return sizeOf(content);
  const auto end = content.find(';');
  if (end == std::string_view::npos) return shortened(SecretMask::covered(content));
  return shortened(SecretMask::covered(content.substr(0, end)) + ";" + sizeOf(content.substr(end + 1)));
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
  members = coveredJson(members);
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
