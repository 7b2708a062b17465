#include "lab/host/EditorState.h"

#include "lab/host/BodyHtml.h"

namespace vornlab {

void EditorState::load(std::string html) {
  m_html = std::move(html);
  m_loadedHtml = m_html;
  typed.body.reset();
}

void EditorState::insert(std::string_view text, bool isHtml) {
  m_html = withPieceInFront(m_html, isHtml ? std::string(text) : htmlForPlainText(text));
}

bool EditorState::contentDidChange() {
  if (m_html == m_loadedHtml && !typed.body) return false;
  typed.body = m_html;
  return true;
}

AppointmentChanges EditorState::changes() const {
  AppointmentChanges result = typed;
  if (m_isPlainText) result.isBodyHtml = false;
  return result;
}

void EditorState::saved(bool isMeeting) {
  vorn::OptionalText caller = isMeeting ? std::nullopt : std::move(typed.organizer);
  typed = {};
  typed.organizer = std::move(caller);
  m_loadedHtml = m_html;
}

std::vector<std::pair<std::string, EditorState::Uncommitted>> EditorState::uncommitted() const {
  std::vector<std::pair<std::string, Uncommitted>> result;
  const auto add = [&result](const char* item, const auto& value) {
    if (value) result.emplace_back(std::string("content.") + item, *value);
  };
  if (typed.summary && typed.summary->empty()) {
    result.emplace_back("content.summary", nullptr);
  } else {
    add("summary", typed.summary);
  }
  add("location", typed.location);
  add("body", typed.body);
  add("startTime", typed.start);
  add("endTime", typed.end);
  add("attendeeList", typed.attendees);
  return result;
}

std::string EditorState::namesOfUncommitted() const {
  std::string names;
  for (const auto& [name, value] : uncommitted()) names += name + "\n";
  return names;
}

bool EditorState::namesChanges(std::string_view text) { return text.find("content.") != std::string_view::npos; }

}  // namespace vornlab
