#pragma once

#include <functional>
#include <string>

#include "util/Value.h"

namespace vorn {

// Where the files of this system lie, and small common questions on addresses, lists and countries.
//
// Class methods only, main thread only.
class vnCommon {
 public:
  // The folder of this system below the user's documents.
  static std::string getDocumentOutlookPluginRootPath();
  // The file with the settings of a user; "" without a user, and for an id that would lead to another file.
  static std::string getVnUserProfilePath(const OptionalText& userId);
  // The id of the signed-in user; absent as long as no profile has come, and once it was cleared until it has come
  // anew.
  static OptionalText getUID();
  // Who knows the user's id. The profile reader says so when it begins to live; an empty source takes it back.
  static void setUserIdSource(std::function<OptionalText()> source);

  static bool isValidEmail(const OptionalText& text);
  // A domain name, which may begin with "*." and have blanks around it.
  static bool isValidDomainName(const OptionalText& text);

  // Dictionaries "code" and "name" of all countries that have a name in the user's language. No caller here.
  static Value getAllCountriesArray();
  // The name in the user's language; the code itself when it has none; absent for an absent or empty code.
  static OptionalText getCountryNameByCode(const OptionalText& code);

  // The text in lower case, as the user's language has it.
  static std::string inLowerCase(const std::string& text);

  // Whether the array holds the text; the first of the two has no caller here.
  static bool isExistedInAnotherList(const OptionalText& text, const Value& anotherList);
  static bool isExistedInAnotherListWithIgnoreCase(const OptionalText& text, const Value& anotherList);
};

}  // namespace vorn
