#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/Presenter.h"
#include "platform/embedded/EmbeddedClassRuntime.h"

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

  // The runtime outlives this.
  explicit EmbeddedPresenter(EmbeddedClassRuntime& runtime) : m_runtime(runtime) {}

  // What alerts are answered with, from now on; the default button at first.
  void setAnswer(Answer answer) { m_answer = answer; }
  // Answers for the next alerts, one each, before the one for all.
  void answerNext(Answer answer) { m_nextAnswers.push_back(answer); }
  // Told of each alert before its answer is handed on; an empty function ends that.
  void setAlertObserver(Observer observer) { m_observer = std::move(observer); }

  const std::vector<Shown>& alerts() const { return m_alerts; }
  std::size_t progressBegun() const { return m_progressBegun; }
  std::size_t progressEnded() const { return m_progressEnded; }

  // Answers during the call.
  void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) override;
  void beginProgress(std::string_view) override { ++m_progressBegun; }
  void endProgress() override { ++m_progressEnded; }

  // A class that the host does not know yet is defined below its "NSView"; the view is sent initWithFrame: with
  // the rectangle as a dictionary of "x", "y", "width" and "height".
  HostObject createView(std::string_view className, const Rect& frame) override;
  void releaseView(const HostObject& view) override;

 private:
  EmbeddedClassRuntime& m_runtime;
  Answer m_answer = Answer::defaultButton;
  std::deque<Answer> m_nextAnswers;
  Observer m_observer;
  std::vector<Shown> m_alerts;
  std::size_t m_progressBegun = 0;
  std::size_t m_progressEnded = 0;
};

}  // namespace vorn
