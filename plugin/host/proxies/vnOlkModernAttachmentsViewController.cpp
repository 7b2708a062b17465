#include "host/proxies/vnOlkModernAttachmentsViewController.h"

#include <algorithm>

#include "host/proxies/HostViews.h"

namespace vorn {

bool vnOlkModernAttachmentsViewController::hasAttachments() const {
  const Value listed = askHost(dataSource(), "attachmentList");
  return std::any_of(listed.items().begin(), listed.items().end(), [](const Value& entry) {
    return isKindOfHostClass(entry.object(), "OlkAttachmentViewModel");
  });
}

double vnOlkModernAttachmentsViewController::getSelfViewHeight() const {
  if (!delegate()) return kDefaultAttachmentsViewHeight;
  return frameOf(object("view")).height;
}

}  // namespace vorn
