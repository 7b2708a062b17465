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
  explicit EmbeddedPresenter(EmbeddedClassRuntime& runtime) : runtime_(runtime) {}

  // What alerts are answered with, from now on; the default button at first.
  void setAnswer(Answer answer) { answer_ = answer; }
  // Answers for the next alerts, one each, before the one for all.
  void answerNext(Answer answer) { nextAnswers_.push_back(answer); }
  // Told of each alert before its answer is handed on; an empty function ends that.
  void setAlertObserver(Observer observer) { observer_ = std::move(observer); }

  const std::vector<Shown>& alerts() const { return alerts_; }
  std::size_t progressBegun() const { return progressBegun_; }
  std::size_t progressEnded() const { return progressEnded_; }

  // Answers during the call.
  void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) override;
  void beginProgress(std::string_view) override { ++progressBegun_; }
  void endProgress() override { ++progressEnded_; }

  // A class that the host does not know yet is defined below its "NSView"; the view is sent initWithFrame: with
  // the rectangle as a dictionary of "x", "y", "width" and "height".
  HostObject createView(std::string_view className, const Rect& frame) override;
  void releaseView(const HostObject& view) override;

 private:
  EmbeddedClassRuntime& runtime_;
  Answer answer_ = Answer::defaultButton;
  std::deque<Answer> nextAnswers_;
  Observer observer_;
  std::vector<Shown> alerts_;
  std::size_t progressBegun_ = 0;
  std::size_t progressEnded_ = 0;
};

}  // namespace vorn
