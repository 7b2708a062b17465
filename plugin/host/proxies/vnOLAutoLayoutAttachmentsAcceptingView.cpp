#include "host/proxies/vnOLAutoLayoutAttachmentsAcceptingView.h"

#include "host/proxies/vnOlkModernAttachmentsViewController.h"

namespace vorn {

HostObject vnOLAutoLayoutAttachmentsAcceptingView::attachmentsController() const {
  return askHost(recordViewController(), "attachmentsController").object();
}

bool vnOLAutoLayoutAttachmentsAcceptingView::hasAttachments() const {
  return vnOlkModernAttachmentsViewController(attachmentsController()).hasAttachments();
}

double vnOLAutoLayoutAttachmentsAcceptingView::getAttachmentsViewHeight() const {
  return vnOlkModernAttachmentsViewController(attachmentsController()).getSelfViewHeight();
}

}  // namespace vorn
