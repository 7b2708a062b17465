#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace vorn {

// A reference to an object of the host's class runtime.
//
// The plug-in never looks inside such an object: it sends selectors by name through ClassRuntime and
// compares addresses. An address of 0 is the absent object. A reference usually does not keep the object
// alive; one that was handed out as a temporary carries a keeper, and the object then lives as long as any
// copy of the reference. Whether an object without a keeper still lives is the runtime's knowledge.
class HostObject {
 public:
  HostObject() = default;
  explicit HostObject(std::uintptr_t address) : m_address(address) {}
  HostObject(std::uintptr_t address, std::shared_ptr<void> keeper)
      : m_address(address), m_keeper(std::move(keeper)) {}

  std::uintptr_t address() const { return m_address; }
  explicit operator bool() const { return m_address != 0; }

  // The lower-case hexadecimal text of the address without a prefix; "0" for the absent object.
  std::string windowId() const;

  friend bool operator==(const HostObject& a, const HostObject& b) { return a.m_address == b.m_address; }
  friend bool operator!=(const HostObject& a, const HostObject& b) { return a.m_address != b.m_address; }
  friend bool operator<(const HostObject& a, const HostObject& b) { return a.m_address < b.m_address; }

 private:
  std::uintptr_t m_address = 0;
  std::shared_ptr<void> m_keeper;
};

}  // namespace vorn
