#include "tests/support/FakeHost.h"

#include <cctype>
#include <memory>

namespace vorn {

namespace {

void put(Value& state, const std::string& key, const Value& value) {
  state.erase(key);
  state.set(key, value);
}

std::string callsOf(const std::string& selector) { return "calls of " + selector; }

}  // namespace

HostObject FakeHost::object(const std::string& className,
                            std::initializer_list<std::pair<std::string, Value>> answers) {
  m_runtime.defineClass(className);
  const HostObject made = m_runtime.create(className, std::make_shared<Value>(Value::dictionary()));
  for (const auto& [selector, answer] : answers) set(made, selector, answer);
  return made;
}

void FakeHost::teach(const std::string& className, std::initializer_list<std::string> selectors) {
  m_runtime.defineClass(className);
  for (const std::string& selector : selectors) teach(className, selector, true);
}

void FakeHost::teachUnnoted(const std::string& className, std::initializer_list<std::string> selectors) {
  m_runtime.defineClass(className);
  for (const std::string& selector : selectors) teach(className, selector, false);
}

void FakeHost::set(const HostObject& object, const std::string& selector, const Value& answer) {
  put(*m_runtime.state<Value>(object), selector, answer);
  teach(m_runtime.className(object), selector, true);
}

Value FakeHost::get(const HostObject& object, const std::string& selector) const {
  return (*m_runtime.state<Value>(object))[selector];
}

std::vector<Arguments> FakeHost::calls(const HostObject& object, const std::string& selector) const {
  std::vector<Arguments> all;
  for (const Value& call : get(object, callsOf(selector)).items()) {
    all.emplace_back(call.items().begin(), call.items().end());
  }
  return all;
}

void FakeHost::teach(const std::string& className, const std::string& selector, bool notesCalls) {
  if (m_runtime.class_getInstanceMethod(m_runtime.NSClassFromString(className), selector)) return;
  std::string field;
  if (selector.starts_with("set") && selector.find(':') == selector.size() - 1) {
    field = selector.substr(3, selector.size() - 4);
    field[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(field[0])));
  }
  // The class outlives this object.
  m_runtime.setInstanceMethod(
      className, selector,
      [&runtime = m_runtime, selector, field, notesCalls](const HostObject& self, const Arguments& arguments) {
        const auto state = runtime.state<Value>(self);
        if (!state) return Value();
        if (notesCalls) {
          Value calls = (*state)[callsOf(selector)];
          if (calls.isAbsent()) calls = Value::array();
          calls.append(Value(Value::Array(arguments.begin(), arguments.end())));
          state->set(callsOf(selector), calls);
        }
        if (!field.empty() && arguments.size() == 1) put(*state, field, arguments[0]);
        return (*state)[selector];
      });
}

FakeEditor FakeEditor::open(FakeHost& host) {
  const HostObject event = host.object("ECCalendarEvent");
  const HostObject window = host.object("NSWindow");
  const HostObject editor = host.object("ERCalendarEventEditorViewController", {{"content", event}});
  const HostObject controller =
      host.object("ERCalendarEventEditorWindowController", {{"window", window}, {"editorViewController", editor}});
  host.set(window, "windowController", controller);
  return {window, controller, editor, event};
}

}  // namespace vorn
