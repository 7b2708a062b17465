#include "lab/shell/watch/WatchModel.h"

#include <algorithm>

namespace vornlab {
namespace {

constexpr std::size_t kMostSteps = 500;
constexpr std::size_t kMostNotices = 50;

}  // namespace

void WatchModel::take(const WatchEvent& event) {
  std::visit(
      [this](const auto& what) {
        m_at = std::max(m_at, what.at);
        keep(what);
      },
      event);
}

// The first word of a laboratory, also to one who comes back: what it tells of the past is told anew.
void WatchModel::keep(const WatchLaboratory& laboratory) {
  *this = WatchModel();
  m_laboratory = laboratory;
}

void WatchModel::keep(const WatchWorld& world) {
  m_world = world;
  m_state = {};
}

void WatchModel::keep(const WatchStep& step) {
  m_steps.push_back(step);
  if (m_steps.size() > kMostSteps) m_steps.pop_front();
}

void WatchModel::keep(const WatchNotice& notice) {
  m_notices.push_back(notice);
  if (m_notices.size() > kMostNotices) m_notices.pop_front();
}

}  // namespace vornlab
