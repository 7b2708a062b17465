#include "platform/embedded/EmbeddedPresenter.h"

namespace vorn {

void EmbeddedPresenter::showAlert(const HostObject& window, const Alert& alert,
                                  std::function<void(Answer)> answered) {
  Shown shown{window, alert, answer_};
  if (!nextAnswers_.empty()) {
    shown.answer = nextAnswers_.front();
    nextAnswers_.pop_front();
  }
  // An alert without a second button can only be answered by its first.
  if (alert.alternateButton.empty()) shown.answer = Answer::defaultButton;
  alerts_.push_back(shown);
  if (observer_) observer_(shown);
  if (answered) answered(shown.answer);
}

HostObject EmbeddedPresenter::createView(std::string_view className, const Rect& frame) {
  if (!runtime_.defineClass(className, "NSView")) return {};
  const HostObject made = runtime_.create(className);
  const Value rectangle = Value::dictionaryFromPairs(
      {{"x", frame.x}, {"y", frame.y}, {"width", frame.width}, {"height", frame.height}});
  const HostObject view = runtime_.send(made, "initWithFrame:", {rectangle}).object();
  if (!view) runtime_.destroy(made);
  return view;
}

void EmbeddedPresenter::releaseView(const HostObject& view) {
  runtime_.send(view, "removeFromSuperview");
  runtime_.destroy(view);
}

}  // namespace vorn
