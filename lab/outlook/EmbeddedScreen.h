#pragma once

#include <string>
#include <vector>

#include "lab/host/RecordedScreen.h"
#include "platform/embedded/EmbeddedPresenter.h"

namespace vornlab {

// The screen of a host whose presenter has none: what was shown is remembered there. The presenter outlives this.
class EmbeddedScreen final : public RecordedScreen {
 public:
  explicit EmbeddedScreen(vorn::EmbeddedPresenter& presenter) : m_presenter(presenter) {}

  std::vector<std::string> alertMessages() const override;
  void answerNext(vorn::Presenter::Answer answer) override { m_presenter.answerNext(answer); }
  bool showsProgress() const override { return m_presenter.showsProgress(); }
  const vorn::PanelRecord& panels() const override { return m_presenter.panels(); }

 private:
  vorn::EmbeddedPresenter& m_presenter;
};

}  // namespace vornlab
