#pragma once

#include <cstdint>
#include <vector>

#include "util/HostObject.h"
#include "util/vStringUtils.h"

namespace vorn {

// Trimming and cutting of texts, tests on host objects, and stored text files. No state. What touches host objects
// belongs to the main thread; the rest may be called from any.
//
// Whitespace is the platform's set: the blanks of Unicode and the tab. New lines are U+000A to U+000D, U+0085,
// U+2028 and U+2029.
class vnOLUtils : public vStringUtils {
 public:
  // False for absence, for the null object, and for a host object that is dead or of the class "NSNull".
  static bool isValidInstance(const Value& object);
  // True for a valid host object of the named class or one that inherits from it. False for an absent or empty
  // name and for a class that does not exist.
  static bool kindofClass(const Value& object, const OptionalText& className);
  static bool kindofClass(const HostObject& object, std::string_view className);
  // Adds the views below the view that are of the named class, depth first; a match is not searched further.
  static void GetSubViewOfKind(const HostObject& view, const OptionalText& kindClass,
                               std::vector<HostObject>& resultArray);

  // Without whitespace at both ends and without U+0020 inside. Absent for absence, as in the following.
  static OptionalText trimAllSpace(const OptionalText& text);
  // Without whitespace at both ends.
  static OptionalText trimRLSpace(const OptionalText& text);
  // Without whitespace and new lines at both ends; the inside stays, in spite of the name.
  static OptionalText trimAllSpaceAndNewLine(const OptionalText& text);

  // The pieces between new-line characters as an array of texts; "\r\n" holds two, with an empty piece between.
  static Value getLines(const OptionalText& text);

  // A text no longer than the length in UTF-16 units as it is; otherwise its first units, 3 less than the length,
  // and "...". A length below 3 counts as 3 for a longer text, where the platform would raise.
  static OptionalText formatByEllipsis(const OptionalText& text, std::int32_t length);

  // Writes a property list of the one text, whole or not at all. Absence and an empty path write nothing.
  static void saveStrToFile(const OptionalText& text, const OptionalText& filePath);
  // The last text of such a file. Absent for an absent path; "" for an empty one, a missing or unreadable file,
  // and a property list of another shape.
  static OptionalText readStrFromFile(const OptionalText& filePath);
  // The same of what such a file holds.
  static std::string textOfFile(const std::string& content);
};

}  // namespace vorn
