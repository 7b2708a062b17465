#pragma once

#include <string>

#include "util/Value.h"

namespace vorn {

// Property lists on disk, the platform's own format for small data. Any thread.

// The content of an XML or binary property list; absent when the file cannot be read, is no property list or is
// nested deeper than 512. Integers keep 64 bits. Dates and binary data have no place in a Value and are left out.
Value readPropertyList(const std::string& path);
// The same of a file's content.
Value propertyListIn(const std::string& content);

// Writes a property list in XML, the whole file or nothing of it. What the format cannot hold, absent, null and
// host objects, is left out. False when nothing was written: for a value that is left out itself, for text that
// is not UTF-8 or holds a control character that XML has no form for, and for every failure of the disk.
bool writePropertyList(const Value& value, const std::string& path);

}  // namespace vorn
