#include "lab/shell/watch/WatchView.h"

#include <chrono>
#include <optional>

#include "lab/shell/Output.h"
#include "lab/shell/TextColumns.h"
#include "lab/shell/watch/WatchLines.h"
#include "lab/shell/watch/WatchModel.h"
#include "lab/shell/watch/WatchScreen.h"

namespace vornlab {
namespace {

class JsonView final : public WatchView {
 public:
  void take(const WatchEvent&, const std::string& line) override {
    sayAsIs(jsonOnTerminal(line));
    flushOutput();
  }
  void close(const std::string& words) override { complain(words); }
};

class LineView final : public WatchView {
 public:
  void take(const WatchEvent& event, const std::string&) override {
    // Covered where it happened, each fact for itself: a subject in quotes before a colon is no key here.
    for (const std::string& line : m_lines.take(event)) sayAsIs(line);
    flushOutput();
  }
  void close(const std::string& words) override {
    say(words);
    flushOutput();
  }

 private:
  WatchLines m_lines;
};

// Draws at most ten frames a second, on a screen that is taken with the first event.
class ScreenView final : public WatchView {
 public:
  void take(const WatchEvent& event, const std::string&) override {
    m_model.take(event);
    m_tookAt = Clock::now();
    if (!m_screen) m_screen.emplace();
  }

  void refresh() override {
    if (!m_screen) return;
    m_screen->stopWhenAsked();
    const auto now = Clock::now();
    if (now < m_nextFrame) return;
    m_nextFrame = now + kFrameTime;
    const std::chrono::duration<double> since = now - m_tookAt;
    m_screen->show(WatchScreen::emptyFrame().draw(m_model, m_model.at() + since.count()));
  }

  int keys() const override { return m_screen ? m_screen->keys() : -1; }
  bool takeQuit() override { return m_screen->takeQuit(); }

  void close(const std::string& words) override {
    m_screen.reset();
    say(words);
    flushOutput();
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kFrameTime{100};

  WatchModel m_model;
  Clock::time_point m_tookAt;
  Clock::time_point m_nextFrame;
  std::optional<WatchScreen> m_screen;
};

}  // namespace

std::unique_ptr<WatchView> WatchView::make(ReportForm form) {
  if (form == ReportForm::json) return std::make_unique<JsonView>();
  if (WatchScreen::isThere()) return std::make_unique<ScreenView>();
  return std::make_unique<LineView>();
}

}  // namespace vornlab
