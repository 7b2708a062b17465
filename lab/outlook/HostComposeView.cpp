// The body of an editor: OLWordMailEditor and its content.

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

constexpr std::string_view kEditorControllerClass = "ERCalendarEventEditorViewController";

// The HTML with a piece put in front of everything that its body shows.
std::string withPieceInFront(const std::string& html, const std::string& piece) {
  const std::size_t tag = html.find("<body");
  const std::size_t end = tag == std::string::npos ? std::string::npos : html.find('>', tag);
  const std::size_t at = end == std::string::npos ? 0 : end + 1;
  return html.substr(0, at) + piece + html.substr(at);
}

}  // namespace

void HostWorld::defineComposeView() {
  action(kEditorControllerClass, "hostWordMailEditor:", [this](const HostObject& self, const Arguments&) {
    send(self, "loadEventIntoWordMail");
  });
  action(kEditorControllerClass, "loadEventIntoWordMail", [this](const HostObject& self, const Arguments&) {
    const auto held = editorOf(self);
    if (!held) return;
    held->compose->html = send(held->event, "body").text();
    held->loadedHtml = held->compose->html;
    held->uncommitted.erase("content.body");
  });
  // The compose view tells that its content may have changed; only a true difference is a change.
  action(kEditorControllerClass, "contentDidChange", [this](const HostObject& self, const Arguments&) {
    const auto held = editorOf(self);
    if (!held) return;
    if (held->compose->html == held->loadedHtml && !held->uncommitted.contains("content.body")) return;
    held->uncommitted.set("content.body", held->compose->html);
    send(self, "setIsDirty:", {true});
  });

  runtime.defineClass("OLWordMailEditor", "NSObject");
  runtime.defineClass("OLWordMailEditorContent", "NSObject");
  method("OLWordMailEditorContent", "bodyContent", [this](const HostObject& self, const Arguments&) {
    const auto compose = runtime.state<HostComposeView>(self);
    return compose ? Value(compose->html) : Value();
  });
  method("OLWordMailEditor", "editorContent", [this](const HostObject& self, const Arguments&) {
    const auto compose = runtime.state<HostComposeView>(self);
    const auto held = compose ? editorOf(compose->viewController) : nullptr;
    return held ? held->wordContent : HostObject();
  });
  const auto display = [this](const HostObject& self, const Arguments& arguments) {
    const auto compose = runtime.state<HostComposeView>(self);
    if (!compose) return;
    compose->html = firstOf(arguments).text();
    send(compose->viewController, "contentDidChange");
  };
  action("OLWordMailEditor", "displayHTMLContent:readOnly:", display);
  action("OLWordMailEditor", "displayHTMLContent:readOnly:signatureEditor:activateEditor:", display);
  action("OLWordMailEditor",
         "insertText:atLocation:isHTML:", [this](const HostObject& self, const Arguments& arguments) {
           const auto compose = runtime.state<HostComposeView>(self);
           if (!compose || arguments.size() != 3) return;
           // Only the start of the body is a place that this editor knows.
           const std::string& text = arguments[0].text();
           const std::string piece = arguments[2].boolValue() ? text : htmlForPlainText(text);
           compose->html = withPieceInFront(compose->html, piece);
           send(compose->viewController, "contentDidChange");
         });
  const std::pair<const char*, bool> formats[] = {{"switchToPlainText", true}, {"switchToHTMLText", false}};
  for (const auto& [selector, isPlainText] : formats) {
    action("OLWordMailEditor", selector,
           [this, isPlainText = isPlainText](const HostObject& self, const Arguments&) {
             if (const auto compose = runtime.state<HostComposeView>(self)) compose->isPlainText = isPlainText;
           });
  }
}

}  // namespace vornlab
