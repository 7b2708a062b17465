#pragma once

#include <string_view>

#include "util/Value.h"

namespace vorn {

bool isBinaryPropertyList(std::string_view content);

// The content of a binary property list; absent when it is broken in any way. Each object is read once however
// often it is referred to, so the time is linear in the size. Counted as broken: nesting beyond the given depth,
// which includes every object that contains itself, and lists that are shared so often that whoever walks through
// them would have far more before him than the file holds. Dates, data and sets are left out.
Value readBinaryPropertyList(std::string_view content, int deepestNesting);

}  // namespace vorn
