#include "platform/embedded/PanelRecord.h"

#include <algorithm>
#include <utility>

namespace vorn {

class PanelRecord::Sheet final : public Presenter::Panel {
 public:
  Sheet(std::shared_ptr<std::vector<Sheet*>> all, const HostObject& onWindow, std::string_view withTitle,
        PanelLayout inOrder, ControlSet& shown, Presenter::PanelInput input)
      : window(onWindow),
        title(withTitle),
        layout(std::move(inOrder)),
        controls(shown),
        used(std::move(input)),
        m_all(std::move(all)) {
    m_all->push_back(this);
  }
  ~Sheet() override { std::erase(*m_all, this); }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  const HostObject window;
  const std::string title;
  const PanelLayout layout;
  ControlSet& controls;
  const Presenter::PanelInput used;

 private:
  std::shared_ptr<std::vector<Sheet*>> m_all;
};

std::unique_ptr<Presenter::Panel> PanelRecord::show(const HostObject& window, std::string_view title,
                                                    const PanelLayout& layout, ControlSet& controls,
                                                    Presenter::PanelInput used) {
  return std::make_unique<Sheet>(m_open, window, title, layout, controls, std::move(used));
}

PanelRecord::Sheet* PanelRecord::find(const HostObject& window) const {
  const auto found =
      std::find_if(m_open->begin(), m_open->end(), [&](const Sheet* sheet) { return sheet->window == window; });
  return found == m_open->end() ? nullptr : *found;
}

const ControlSet* PanelRecord::on(const HostObject& window) const {
  const Sheet* sheet = find(window);
  return sheet ? &sheet->controls : nullptr;
}

std::string PanelRecord::title(const HostObject& window) const {
  const Sheet* sheet = find(window);
  return sheet ? sheet->title : "";
}

PanelLayout PanelRecord::layout(const HostObject& window) const {
  const Sheet* sheet = find(window);
  return sheet ? layoutOf(sheet->layout, sheet->controls) : PanelLayout();
}

PanelRecord::Use PanelRecord::use(const HostObject& window, const std::string& key,
                                  const std::function<void(Control&)>& change) const {
  Sheet* sheet = find(window);
  return sheet ? useControl(sheet->controls, key, change, sheet->used) : Use::noPanel;
}

PanelRecord::Use PanelRecord::scroll(const HostObject& window) const {
  Sheet* sheet = find(window);
  if (!sheet) return Use::noPanel;
  const Presenter::PanelInput used = sheet->used;
  const ControlSet::Change step(sheet->controls);
  used("");
  return Use::done;
}

}  // namespace vorn
