#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Presenter.h"
#include "platform/embedded/ProgressRecord.h"

namespace vorn {

// A presenter without a screen: it answers alerts by itself and remembers what was shown. Main thread only.
class EmbeddedPresenter final : public Presenter {
 public:
  struct Shown {
    HostObject window;
    Alert alert;
    Answer answer = Answer::defaultButton;
  };
  using Observer = std::function<void(const Shown& shown)>;

  // What alerts are answered with, from now on; the default button at first.
  void setAnswer(Answer answer) { m_answer = answer; }
  // Answers for the next alerts, one each, before the one for all.
  void answerNext(Answer answer) { m_nextAnswers.push_back(answer); }
  // The answer with a button that the alert has, and with the switch only where it has one.
  static Answer possibleAnswer(const Alert& alert, const Answer& answer);
  // Told of each alert before its answer is handed on; an empty function ends that.
  void setAlertObserver(Observer observer) { m_observer = std::move(observer); }

  const std::vector<Shown>& alerts() const { return m_alerts; }
  const ProgressRecord& progress() const { return m_progress; }

  // Answers during the call, as far as the alert can be answered so.
  void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) override;
  std::unique_ptr<Progress> beginProgress(std::string_view message) override { return m_progress.begin(message); }

 private:
  Answer m_answer = Answer::defaultButton;
  std::deque<Answer> m_nextAnswers;
  Observer m_observer;
  std::vector<Shown> m_alerts;
  ProgressRecord m_progress;
};

}  // namespace vorn
