#include "platform/embedded/EmbeddedPresenter.h"

namespace vorn {

namespace {

Presenter::Answer possibleAnswer(const Presenter::Alert& alert, const Presenter::Answer& answer) {
  return {answer.button < alert.buttons.size() ? answer.button : 0,
          answer.notAgain && !alert.notAgainSwitch.empty()};
}

}  // namespace

void EmbeddedPresenter::showAlert(const HostObject& window, const Alert& alert,
                                  std::function<void(Answer)> answered) {
  std::optional<Answer> answer = m_answer;
  if (!m_nextAnswers.empty()) {
    answer = m_nextAnswers.front();
    m_nextAnswers.pop_front();
  }
  const std::size_t index = m_alerts.size();
  m_alerts.push_back({window, alert, {}, std::move(answered)});
  if (m_observer) m_observer(Shown(m_alerts.back()));
  if (answer) answerAlert(index, *answer);
}

void EmbeddedPresenter::answerAlert(std::size_t index, Answer answer) {
  if (index >= m_alerts.size() || m_alerts[index].answer) return;
  Shown& shown = m_alerts[index];
  const Answer given = possibleAnswer(shown.alert, answer);
  shown.answer = given;
  // What is called may show the next alert.
  if (const auto answered = std::exchange(shown.answered, nullptr)) answered(given);
}

void EmbeddedPresenter::followLink(std::size_t index) const {
  if (index >= m_alerts.size() || m_alerts[index].answer || !m_alerts[index].alert.link) return;
  m_alerts[index].alert.link->follow();
}

}  // namespace vorn
