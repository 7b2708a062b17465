#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The height that a header gives to attachments when the host does not say.
inline constexpr double kDefaultAttachmentsViewHeight = 52.0;

// The controller of the attachments in an editor's header.
class vnOlkModernAttachmentsViewController : public vnDelegateBase {
 public:
  explicit vnOlkModernAttachmentsViewController(const HostObject& delegate)
      : vnDelegateBase("OlkModernAttachmentsViewController", delegate) {}

  Value attachments() const { return getOLItemID("attachments"); }
  HostObject attachmentsView() const { return object("attachmentsView"); }
  HostObject dataSource() const { return object("dataSource"); }
  bool hasAttachments() const;
  // The height of its view: the default without a controller, 0 without a view.
  double getSelfViewHeight() const;
};

}  // namespace vorn
