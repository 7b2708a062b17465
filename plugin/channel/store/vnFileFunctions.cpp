#include "channel/store/vnFileFunctions.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>
#include <vector>

#include "platform/Registry.h"
#include "platform/Workspace.h"
#include "util/AtomicFile.h"

namespace vorn {

namespace {

namespace fs = std::filesystem;

bool isDeletable(const fs::path& path) {
  const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
  return ::access(folder.c_str(), W_OK) == 0;
}

bool moveAcrossVolumes(const std::string& source, const std::string& destination) {
  std::error_code failed;
  fs::copy(source, destination, fs::copy_options::recursive | fs::copy_options::copy_symlinks, failed);
  return !failed && vnDeleteFile(source);
}

}  // namespace

bool vnIsFileExist(const OptionalText& path) {
  std::error_code failed;
  return path && fs::exists(*path, failed);
}

bool vnIsDirection(const OptionalText& path) {
  std::error_code failed;
  return path && fs::is_directory(*path, failed);
}

bool vnDeleteFile(const OptionalText& path) {
  if (!vnIsFileExist(path) || !isDeletable(*path)) return false;
  std::error_code failed;
  fs::remove_all(*path, failed);
  return !failed;
}

Value vnGetDirectoryItems(const OptionalText& path) {
  if (!vnIsDirection(path)) return {};
  std::vector<std::string> names;
  std::error_code failed;
  for (fs::directory_iterator item(*path, failed), end; !failed && item != end; item.increment(failed)) {
    names.push_back(item->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return Value(Value::Array(names.begin(), names.end()));
}

bool vnCreateDirection(const OptionalText& path) {
  if (!path || path->empty() || vnIsFileExist(path)) return false;
  std::error_code failed;
  fs::create_directories(*path, failed);
  return !failed;
}

bool vnMoveFile(const OptionalText& source, const OptionalText& destination) {
  if (!vnIsFileExist(source) || !destination) return false;
  std::error_code failed;
  // The destination goes first, and with it would go the only copy.
  if (fs::equivalent(*source, *destination, failed)) return false;
  if (vnIsFileExist(destination) && !vnDeleteFile(destination)) return false;
  fs::rename(*source, *destination, failed);
  if (failed == std::errc::cross_device_link) return moveAcrossVolumes(*source, *destination);
  return !failed;
}

std::string vnGetFileVersion(const OptionalText& applicationPath) {
  Workspace* workspace = Registry::platform().workspace;
  if (!applicationPath || !workspace) return "";
  return workspace->propertyListAtPath(*applicationPath + "/Contents/Info.plist")["CFBundleVersion"].stringValue();
}

std::int32_t vnGetFileSizeFromPath(const OptionalText& path) {
  std::error_code failed;
  if (!path) return 0;
  const std::uintmax_t size = fs::file_size(*path, failed);
  if (failed) return 0;
  return static_cast<std::int32_t>(std::min<std::uintmax_t>(size, std::numeric_limits<std::int32_t>::max()));
}

bool vnCreateFile(const OptionalText& path, const OptionalText& text) {
  if (!path || path->empty() || !text) return false;
  if (vnIsFileExist(path) && !vnDeleteFile(path)) return false;
  return replaceFile(*path, *text);
}

}  // namespace vorn
