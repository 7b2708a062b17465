#include "lab/client/MessageScanner.h"

namespace vornlab {

std::vector<std::string> MessageScanner::feed(std::string_view bytes) {
  std::vector<std::string> found;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < bytes.size() && !overflowed_; ++i) {
    const char c = bytes[i];
    if (inText_) {
      if (escaped_) {
        escaped_ = false;
      } else if (c == '\\') {
        escaped_ = true;
      } else if (c == '"') {
        inText_ = false;
      }
    } else if (c == '{') {
      if (depth_++ == 0) begin = i;
    } else if (depth_ > 0 && c == '"') {
      inText_ = true;
    } else if (depth_ > 0 && c == '}' && --depth_ == 0) {
      object_.append(bytes.substr(begin, i + 1 - begin));
      found.push_back(std::move(object_));
      object_.clear();
      begin = i + 1;
    }
  }
  if (depth_ > 0) object_.append(bytes.substr(begin));
  if (object_.size() > limit_) {
    overflowed_ = true;
    object_ = {};
  }
  return found;
}

}  // namespace vornlab
