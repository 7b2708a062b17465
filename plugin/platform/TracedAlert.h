#pragma once

#include <functional>
#include <optional>

#include "platform/Presenter.h"
#include "util/HostObject.h"

namespace vorn {

// Tells the trace what an alert says, with its secrets covered, and has the presenter show it: as a sheet on the
// window, or by itself when the window is absent. Without a presenter the trace alone is told. The code is the one
// of the error that it tells of. Returns at once, and the answer may come during the call. Main thread only.
void showTracedAlert(const HostObject& window, const Presenter::Alert& alert,
                     std::function<void(Presenter::Answer)> answered, std::optional<int> code = {});

}  // namespace vorn
