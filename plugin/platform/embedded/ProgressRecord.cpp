#include "platform/embedded/ProgressRecord.h"

#include <utility>

namespace vorn {

class ProgressRecord::Sheet final : public Presenter::Progress {
 public:
  Sheet(std::shared_ptr<std::vector<const Sheet*>> all, std::string_view message)
      : m_all(std::move(all)), m_message(message) {
    m_all->push_back(this);
  }
  ~Sheet() override { std::erase(*m_all, this); }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  const std::string& message() const { return m_message; }

 private:
  std::shared_ptr<std::vector<const Sheet*>> m_all;
  std::string m_message;
};

std::unique_ptr<Presenter::Progress> ProgressRecord::begin(std::string_view message) {
  ++m_begun;
  return std::make_unique<Sheet>(m_open, message);
}

std::vector<std::string> ProgressRecord::open() const {
  std::vector<std::string> messages;
  for (const Sheet* sheet : *m_open) messages.push_back(sheet->message());
  return messages;
}

}  // namespace vorn
