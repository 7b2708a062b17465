#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The host's editor of a body, of whatever class.
class vnOLWordMailEditor : public vnDelegateBase {
 public:
  explicit vnOLWordMailEditor(const HostObject& delegate) : vnDelegateBase(ownClassName(delegate), delegate) {}

  HostObject editorContent() const { return object("editorContent"); }
  Value bodyContent() const { return getOLItemID("bodyContent"); }
  void switchToPlainText() const { getOLItemID("switchToPlainText"); }
  void switchToHTMLText() const { getOLItemID("switchToHTMLText"); }

  // Shows a body, in the richest form that the host's editor answers to.
  void displayHTMLContent(const Value& content, bool readOnly) const;
  // Inserts at a position, by whichever of the two forms the host has; neither is no error.
  void insertTextToBody(const Value& content, std::int64_t location, bool isHTML) const;
};

}  // namespace vorn
