#include "lab/shell/TemporaryFolder.h"

#include <stdlib.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "lab/shell/LabError.h"

namespace vornlab {

namespace fs = std::filesystem;

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
}

fs::path TemporaryFolder::make() {
  std::string name = (fs::temp_directory_path() / "vornlab-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw LabError("cannot make " + name + ": " + std::strerror(errno));
  return fs::canonical(name);
}

}  // namespace vornlab
