#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>

namespace vornlab::test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::string name = (fs::temp_directory_path() / "vtXXXXXX").string();
  // Without a folder every test that writes would fail for a reason that is hard to see.
  if (!::mkdtemp(name.data())) std::abort();
  m_path = fs::canonical(name);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
}

fs::path TemporaryFolder::write(const fs::path& name, const std::string& content) const {
  const fs::path path = m_path / name;
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

}  // namespace vornlab::test
