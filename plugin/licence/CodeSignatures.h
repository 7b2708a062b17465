#pragma once

#include <optional>
#include <string>

namespace vorn {

// Whether programs and packages of this product bear its maker's signature. A port: the platform's own tools
// decide. Nobody makes one, and nothing here asks.
class CodeSignatures {
 public:
  virtual ~CodeSignatures() = default;
  // Of an application's bundle, and of an installer package, at an absolute path. Absent when it cannot be told.
  virtual std::optional<bool> checkAppCodeSign(const std::string& path) = 0;
  virtual std::optional<bool> checkCodeSignForVornPkg(const std::string& path) = 0;
};

// Where programs are not signed nobody can tell, and a guess would be worse than none.
class UnknownCodeSignatures final : public CodeSignatures {
 public:
  std::optional<bool> checkAppCodeSign(const std::string&) override { return std::nullopt; }
  std::optional<bool> checkCodeSignForVornPkg(const std::string&) override { return std::nullopt; }
};

}  // namespace vorn
