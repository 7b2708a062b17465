#pragma once

#include <functional>
#include <optional>
#include <string>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/LabSession.h"
#include "platform/controls/PanelLayout.h"
#include "platform/embedded/PanelRecord.h"

namespace vornlab {

// The settings panel of one appointment in a laboratory, opened as a person opens it. Nothing of it is ever
// committed. The session outlives it.
class PanelWindow {
 public:
  using Use = vorn::PanelRecord::Use;

  // Among those panels, which are the session's. Of a new appointment when the event is absent. Throws LabError
  // when no panel opens, with the plug-in's words.
  PanelWindow(LabSession& session, const vorn::PanelRecord& panels, const std::optional<CalendarEvent>& event,
              double timeoutSeconds);

  std::string title() const;
  vorn::PanelLayout layout() const;
  // Throws LabError when the panel has closed.
  const vorn::ControlSet& controls() const;

  // What a person does to a control, and what the plug-in and the client make of it. Throws LabError when the
  // client does not answer.
  Use use(const std::string& key, const std::function<void(vorn::Control&)>& change = nullptr);

  // What a commit would hand out: the plug-in's rows of words, and the dictionary itself for comparing.
  struct Settings {
    vorn::Value rows;
    vorn::Value raw;
  };
  Settings settings() const;

 private:
  std::string clickButton() const;
  void settle();

  LabSession& m_session;
  const vorn::PanelRecord& m_panels;
  double m_timeoutSeconds;
  HostFace::EditorId m_editor = 0;
  std::size_t m_sentBefore = 0;
  std::size_t m_receivedBefore = 0;
};

}  // namespace vornlab
