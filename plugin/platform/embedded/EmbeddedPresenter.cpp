#include "platform/embedded/EmbeddedPresenter.h"

namespace vorn {

void EmbeddedPresenter::showAlert(const HostObject& window, const Alert& alert,
                                  std::function<void(Answer)> answered) {
  Answer answer = m_answer;
  if (!m_nextAnswers.empty()) {
    answer = m_nextAnswers.front();
    m_nextAnswers.pop_front();
  }
  const Shown shown{window, alert, possibleAnswer(alert, answer)};
  m_alerts.push_back(shown);
  if (m_observer) m_observer(shown);
  if (answered) answered(shown.answer);
}

Presenter::Answer EmbeddedPresenter::possibleAnswer(const Alert& alert, const Answer& answer) {
  return {answer.button < alert.buttons.size() ? answer.button : 0,
          answer.notAgain && !alert.notAgainSwitch.empty()};
}

}  // namespace vorn
