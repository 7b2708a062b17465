#include "host/proxies/vnOLWordMailEditor.h"

namespace vorn {

void vnOLWordMailEditor::displayHTMLContent(const Value& content, bool readOnly) const {
  insertTextToBody(content, 0, true);
  if (!isValidConnection()) return;
  const bool signatureEditor = true;
  const bool activateEditor = true;
  if (answers("displayHTMLContent:readOnly:signatureEditor:activateEditor:")) {
    askHost(delegate(), "displayHTMLContent:readOnly:signatureEditor:activateEditor:",
            {content, readOnly, signatureEditor, activateEditor});
  } else if (answers("displayHTMLContent:readOnly:signatureEditor:")) {
    askHost(delegate(), "displayHTMLContent:readOnly:signatureEditor:", {content, readOnly, signatureEditor});
  } else {
    getOLItemID("displayHTMLContent:readOnly:", content, readOnly);
  }
}

void vnOLWordMailEditor::insertTextToBody(const Value& content, std::int64_t location, bool isHTML) const {
  if (!isValidConnection()) return;
  if (answers("insertText:atLocation:isHTML:")) {
    askHost(delegate(), "insertText:atLocation:isHTML:", {content, location, isHTML});
  } else {
    getOLItemID("insertHTMLContent:atLocation:", content, location);
  }
}

}  // namespace vorn
