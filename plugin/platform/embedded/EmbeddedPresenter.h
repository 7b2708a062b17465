#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Presenter.h"
#include "platform/embedded/PanelRecord.h"
#include "platform/embedded/ProgressRecord.h"

namespace vorn {

// A presenter without a screen: it answers alerts by itself, or leaves them open until it is told the answer, and
// remembers what was shown. Main thread only.
class EmbeddedPresenter final : public Presenter {
 public:
  struct Shown {
    HostObject window;
    Alert alert;
    // Absent while the alert waits for one.
    std::optional<Answer> answer;
    // Empty once it was called.
    std::function<void(Answer)> answered;
  };
  using Observer = std::function<void(const Shown& shown)>;

  // What alerts are answered with, from now on; the default button at first. Absent leaves them open.
  void setAnswer(std::optional<Answer> answer) { m_answer = answer; }
  // Answers for the next alerts, one each, before the one for all.
  void answerNext(Answer answer) { m_nextAnswers.push_back(answer); }
  // Gives an alert that was left open its answer, with a button that the alert has, and with the switch only where
  // it has one. Nothing for an alert that has its answer, or that is not there.
  void answerAlert(std::size_t index, Answer answer);
  // Clicks the link of an alert that was left open; nothing for one without a link.
  void followLink(std::size_t index) const;
  // Told of each alert when it shows, before any answer is handed on; an empty function ends that.
  void setAlertObserver(Observer observer) { m_observer = std::move(observer); }

  const std::vector<Shown>& alerts() const { return m_alerts; }
  // An alert that is open then is never answered.
  void forgetAlerts() { m_alerts.clear(); }
  const ProgressRecord& progress() const { return m_progress; }
  bool showsProgress() const { return !m_progress.open().empty(); }

  // The panels that are open, for whoever acts as their user.
  const PanelRecord& panels() const { return m_panels; }

  // Answers during the call, or leaves the alert open.
  void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) override;
  std::unique_ptr<Progress> beginProgress(std::string_view message) override { return m_progress.begin(message); }
  bool canShowPanels() const override { return true; }
  std::unique_ptr<Panel> showPanel(const HostObject& window, std::string_view title, const PanelLayout& layout,
                                   ControlSet& controls, PanelInput used) override {
    return m_panels.show(window, title, layout, controls, std::move(used));
  }

 private:
  std::optional<Answer> m_answer = Answer::defaultButton;
  std::deque<Answer> m_nextAnswers;
  Observer m_observer;
  std::vector<Shown> m_alerts;
  ProgressRecord m_progress;
  PanelRecord m_panels;
};

}  // namespace vorn
