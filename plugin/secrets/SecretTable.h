#pragma once

#include <span>
#include <string_view>

namespace vorn {

// What is a secret, told once for everything that is printed, traced or kept in a journal. Texts of the table are
// in lower case; what they are compared with has passed through ReadableText, which takes case and accents away.

// Words of an invitation, a letter or a screen behind which a secret stands. A blank stands for a hyphen, too.
struct SecretLabel {
  // How the words may stand in what surrounds them: at the end of a longer word, or as words of their own.
  enum class Stands { anywhere, alone };
  // Whether these words mean other things as well, so that only a longer number behind them is taken for a secret.
  enum class Means { secret, manyThings };

  std::string_view words;
  Stands stands = Stands::anywhere;
  Means means = Means::secret;
};
std::span<const SecretLabel> secretLabels();

// Words that may stand between a label and its secret, as in "the passcode is 4711".
std::span<const std::string_view> wordsBeforeSecret();

// Words before a label that has many meanings that say which one it is: an "error code" hides nothing.
std::span<const std::string_view> wordsOfPlainCodes();

// What stands behind a label and is none: the state of a control, the words of a rule.
std::span<const std::string_view> wordsOfNoSecret();

// Parameters of a URL. The short ones count only where a parameter begins.
struct SecretParameter {
  std::string_view name;
  bool isShort = false;
};
std::span<const SecretParameter> secretParameters();

// What a key of JSON, of a dictionary, or the name of a control says of its value.
enum class KeyKind {
  plain,
  // Nobody's business, whatever it is.
  secret,
  // A text for people who dial in: telephone numbers, which may be seen, and codes, which may not.
  dialText,
};
KeyKind kindOfKey(std::string_view key);
// Whether such a key, below another, tells something of that other's value and not the value: who decided it, and
// why.
bool tellsOfItsOwner(std::string_view key);

}  // namespace vorn
