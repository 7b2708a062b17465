#include "lab/shell/panel/PanelWindow.h"

#include "lab/shell/LabError.h"
#include "lab/shell/Words.h"
#include "lab/shell/scenario/ScenarioWords.h"

namespace vornlab {
namespace {

// The panel puts some of its steps off by a tenth of a second.
constexpr double kDeferredSeconds = 0.11;

// The bar's button for settings, and the one that opens the panel for an appointment without a meeting.
constexpr const char* kSettings = "onClickChangeSettings:";
constexpr const char* kAddMeeting = "onClickAddVornMeeting:";

}  // namespace

PanelWindow::PanelWindow(LabSession& session, const vorn::PanelRecord& panels,
                         const std::optional<CalendarEvent>& event, double timeoutSeconds)
    : m_session(session),
      m_panels(panels),
      m_timeoutSeconds(timeoutSeconds),
      m_sentBefore(session.trace().sent()),
      m_receivedBefore(session.trace().received()) {
  session.trace().forgetTrouble();
  HostFace& host = session.host();
  m_editor = event ? host.openEditorAt(event->index()) : host.openNew(kUsualStart);
  if (m_editor == 0) throw LabError("the host cannot open the appointment");
  settle();
  std::string trouble = clickButton();
  if (trouble.empty()) settle();
  if (m_panels.on(host.window(m_editor))) return;
  if (!session.trace().alert().empty()) {
    trouble = session.trace().alert();
  } else if (!session.trace().refusal().empty()) {
    trouble = "the client refused, with error " + session.trace().refusal();
  }
  throw LabError("the panel does not open: " + (trouble.empty() ? "the plug-in shows none" : trouble));
}

// Why there is none; "" when one was clicked.
std::string PanelWindow::clickButton() const {
  HostFace& host = m_session.host();
  if (!host.barView(m_editor)) return "the plug-in put no bar into the editor";
  if (host.clickBar(m_editor, kSettings) || host.clickBar(m_editor, kAddMeeting)) return "";
  return "the bar offers neither settings nor a meeting";
}

void PanelWindow::settle() {
  m_session.passTime(kDeferredSeconds);
  switch (m_session.waitForQuiet(m_sentBefore, m_receivedBefore, m_timeoutSeconds)) {
    case LabSession::Quiet::reached: return;
    case LabSession::Quiet::clientGone: throw LabError("the client ended before it answered");
    case LabSession::Quiet::timeout: break;
  }
  throw LabError("the client did not answer within " + secondsInWords(m_timeoutSeconds));
}

std::string PanelWindow::title() const { return m_panels.title(m_session.host().window(m_editor)); }

vorn::PanelLayout PanelWindow::layout() const { return m_panels.layout(m_session.host().window(m_editor)); }

const vorn::ControlSet& PanelWindow::controls() const {
  const vorn::ControlSet* controls = m_panels.on(m_session.host().window(m_editor));
  if (!controls) throw LabError("the panel has closed");
  return *controls;
}

PanelWindow::Use PanelWindow::use(const std::string& key, const std::function<void(vorn::Control&)>& change) {
  m_sentBefore = m_session.trace().sent();
  m_receivedBefore = m_session.trace().received();
  const Use result = m_panels.use(m_session.host().window(m_editor), key, change);
  settle();
  return result;
}

PanelWindow::Settings PanelWindow::settings() const {
  const vorn::Value answer = m_session.ask(
      "panel", vorn::Value::dictionaryFromPairs({{"editor", m_session.host().viewController(m_editor)}}));
  return {answer["groups"].items().empty() ? vorn::Value() : answer["groups"].items().front()["rows"],
          answer["settings"]};
}

}  // namespace vornlab
