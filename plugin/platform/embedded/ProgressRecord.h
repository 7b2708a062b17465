#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Presenter.h"

namespace vorn {

// The progress sheets of a presenter without a screen. Main thread only.
class ProgressRecord {
 public:
  std::unique_ptr<Presenter::Progress> begin(std::string_view message);

  // The messages of the sheets that have not ended, the oldest first.
  std::vector<std::string> open() const;
  // How many have begun so far.
  std::size_t begun() const { return m_begun; }

 private:
  class Sheet;

  // A sheet may outlive its presenter.
  std::shared_ptr<std::vector<const Sheet*>> m_open = std::make_shared<std::vector<const Sheet*>>();
  std::size_t m_begun = 0;
};

}  // namespace vorn
