#pragma once

#include <memory>
#include <string_view>

#include "platform/Presenter.h"
#include "platform/RunLoop.h"

namespace vorn {

// The progress sheets on the screen of an Objective-C host, each in a modal session of its own that nobody runs.
//
// Sessions stand on each other, and only the uppermost may be ended. A sheet that has ended leaves the screen at
// once; its session ends as soon as nothing stands on it any more, be that another sheet or a dialog of the host.
// What the host raises at the end of a sheet goes no further.
class ProgressSheets {
 public:
  // The run loop outlives this.
  explicit ProgressSheets(RunLoop& runLoop);
  // Ends all of them.
  ~ProgressSheets();
  ProgressSheets(const ProgressSheets&) = delete;
  ProgressSheets& operator=(const ProgressSheets&) = delete;

  std::unique_ptr<Presenter::Progress> begin(std::string_view message);

 private:
  class Stack;
  class Sheet;

  std::shared_ptr<Stack> m_stack;
};

}  // namespace vorn
