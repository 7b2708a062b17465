// The body of an editor: OLWordMailEditor and its content.

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

Value toldOfContent(const HostCall& call, const HostComposeView& compose) {
  return call.world.send(compose.viewController, "contentDidChange");
}

Value display(const HostCall& call, HostComposeView& compose) {
  compose.state->show(call.first().text());
  return toldOfContent(call, compose);
}

template <bool isPlainText>
Value switchText(const HostCall&, HostComposeView& compose) {
  compose.state->switchToPlainText(isPlainText);
  return {};
}

constexpr HostMethodOn<HostComposeView> kOfComposeView[] = {
    {"editorContent",
     [](const HostCall& call, HostComposeView& compose) {
       const auto held = call.world.editorOf(compose.viewController);
       return Value(held ? held->wordContent : HostObject());
     }},
    {"displayHTMLContent:readOnly:", display},
    {"displayHTMLContent:readOnly:signatureEditor:activateEditor:", display},
    {"insertText:atLocation:isHTML:",
     [](const HostCall& call, HostComposeView& compose) {
       compose.state->insert(call.first().text(), call.at(2).boolValue());
       return toldOfContent(call, compose);
     }},
    {"switchToPlainText", switchText<true>},
    {"switchToHTMLText", switchText<false>},
};

constexpr HostMethodOn<HostComposeView> kOfContent[] = {
    {"bodyContent", [](const HostCall&, HostComposeView& compose) { return Value(compose.state->html()); }}};

}  // namespace

void HostWorld::defineComposeView() {
  const auto compose = [this](const HostObject& self) { return runtime.state<HostComposeView>(self); };
  runtime.defineClass("OLWordMailEditor", "NSObject");
  defineOn("OLWordMailEditor", kOfComposeView, compose);
  runtime.defineClass("OLWordMailEditorContent", "NSObject");
  defineOn("OLWordMailEditorContent", kOfContent, compose);
}

}  // namespace vornlab
