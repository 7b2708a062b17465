#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The header view of an editor.
class vnOLAutoLayoutAttachmentsAcceptingView : public vnDelegateBase {
 public:
  explicit vnOLAutoLayoutAttachmentsAcceptingView(const HostObject& delegate)
      : vnDelegateBase("OLAutoLayoutAttachmentsAcceptingView", delegate) {}

  HostObject recordViewController() const { return object("recordViewController"); }
  HostObject attachmentsController() const;
  bool hasAttachments() const;
  // The default without a suitable controller.
  double getAttachmentsViewHeight() const;
};

}  // namespace vorn
