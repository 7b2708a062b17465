#include "host/proxies/vnCCGridViewController.h"

namespace vorn {

HostObject vnCCGridViewController::gridWindow() const { return askHost(view(), "window").object(); }

}  // namespace vorn
