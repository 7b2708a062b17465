#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lab/shell/EmbeddedSession.h"
#include "lab/shell/watch/WatchPost.h"
#include "lab/shell/watch/WatchTimers.h"
#include "platform/Platform.h"
#include "platform/Trace.h"
#include "platform/embedded/HostRunLoop.h"

namespace vornlab {

// Tells a session to those who watch its process: each step of the plug-in as it happens, and how windows,
// requests and sheets stand whenever that has changed. It looks from tasks of the host's loop, never inside a call
// of the plug-in. Main thread only.
class WatchSession final : private vorn::Trace {
 public:
  // Tells that the world begins. Whatever is handed over outlives this.
  WatchSession(WatchPost& post, EmbeddedSession& session, vorn::HostRunLoop& loop, const std::string& title);
  ~WatchSession() override;
  WatchSession(const WatchSession&) = delete;
  WatchSession& operator=(const WatchSession&) = delete;

  // Stands between the plug-in and the ports by which its steps and timers are seen, from its loading on.
  void standBetween(vorn::Platform& platform);
  // To be called while the plug-in is still loaded: takes a last look and tells that the world is over.
  void end();

 private:
  struct PastStep {
    double at = 0;
    std::string step;
    vorn::Value facts;
    // An envelope's; covered when it is told.
    std::optional<vorn::CoveredLater> content;
  };
  struct Pending {
    std::string name;
    double since = 0;
    std::vector<StartedTimer> timers;
  };

  void note(std::string_view step, const vorn::Value& facts) override;
  void noteEnvelope(std::string_view step, vorn::Value facts, const vorn::CoveredLater& content) override;
  void remember(PastStep past);
  void followRequests(std::string_view step, const vorn::Value& facts);
  void dropAbandoned();
  void lookSoon();
  void look();
  void refresh();
  void tellNotices();
  std::vector<WatchEvent> greeting();

  WatchState stateNow();
  WatchWindow windowNow(OutlookHost::EditorId editor);
  std::string barNow(OutlookHost::EditorId editor);
  WatchRequest requestNow(const Pending& pending) const;
  static WatchStep stepOf(const PastStep& past);
  WatchNotice noticeAt(std::size_t index) const;

  WatchPost& m_post;
  EmbeddedSession& m_session;
  vorn::HostRunLoop& m_loop;
  WatchTimers m_timers;
  // Where the loop's clock stands on that of the process.
  double m_loopBegan = 0;
  WatchWorld m_world;
  bool m_hasClient = false;
  bool m_isOver = false;
  bool m_looksSoon = false;
  // Calls that the loop still holds know by it whether this is there.
  std::shared_ptr<WatchSession*> m_self = std::make_shared<WatchSession*>(this);
  std::shared_ptr<vorn::RunLoop::Timer> m_lookingAgain;

  std::deque<PastStep> m_past;
  std::vector<Pending> m_pending;
  // When each alert was noticed, and how many of them have been told.
  std::vector<double> m_noticedAt;
  std::size_t m_noticesSeen = 0;
  WatchState m_state;
};

}  // namespace vornlab
