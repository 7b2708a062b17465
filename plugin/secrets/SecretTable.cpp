#include "secrets/SecretTable.h"

#include <algorithm>
#include <string>

namespace vorn {

namespace {

using Stands = SecretLabel::Stands;
using Means = SecretLabel::Means;

// The invitation comes in the user's language from the service, so these are more than the laboratory's own four.
constexpr SecretLabel kLabels[] = {
    // What programs write, in any language.
    {"passcode"},
    {"password"},
    {"passwd"},
    {"passphrase"},
    {"pwd"},
    {"token"},
    {"bearer", Stands::alone},
    {"host key"},
    {"hostkey"},
    {"secret", Stands::alone},
    {"pin", Stands::alone},
    {"pin code"},
    {"zak", Stands::alone},
    // English
    {"pass code"},
    {"access code"},
    {"security code"},
    {"host code"},
    {"participant code"},
    {"attendee code"},
    {"guest code"},
    {"moderator code"},
    {"leader code"},
    {"chairperson code"},
    {"conference code"},
    {"entry code"},
    {"bridge code"},
    {"dial in code"},
    {"code", Stands::alone, Means::manyThings},
    // German; the compounds end in a word of their own
    {"kenncode"},
    {"kennwort"},
    {"passwort"},
    {"zugangscode"},
    {"zugriffscode"},
    {"zugangsdaten"},
    {"sicherheitscode"},
    {"teilnehmercode"},
    {"moderatorcode"},
    {"einwahlcode"},
    {"geheimzahl"},
    // French
    {"code secret"},
    {"code d'acces"},
    {"code confidentiel"},
    {"code de securite"},
    {"mot de passe"},
    // Spanish and Portuguese
    {"codigo de acceso"},
    {"codigo de seguridad"},
    {"contrasena"},
    {"clave", Stands::alone},
    {"clave de acceso"},
    {"codigo de acesso"},
    {"codigo de seguranca"},
    {"senha", Stands::alone},
    {"palavra passe"},
    // Italian, Dutch, the north
    {"codice d'accesso"},
    {"codice di accesso"},
    {"codice di sicurezza"},
    {"parola d'ordine"},
    {"toegangscode"},
    {"wachtwoord"},
    {"wachtwoordcode"},
    {"losenord"},
    {"losenkod"},
    {"atkomstkod"},
    {"adgangskode"},
    {"passord"},
    {"tilgangskode"},
    {"salasana"},
    {"paasykoodi"},
    {"tunnuskoodi"},
    // The east and the south
    {"hasło", Stands::alone},
    {"kod dostepu"},
    {"heslo", Stands::alone},
    {"pristupovy kod"},
    {"jelszo"},
    {"hozzaferesi kod"},
    {"parola", Stands::alone},
    {"cod de acces"},
    {"sifre"},
    {"giris kodu"},
    {"κωδικος"},
    {"κωδικος προσβασης"},
    {"пароль"},
    {"код доступа"},
    {"код доступу"},
    {"код безопасности"},
    {"סיסמה"},
    {"קוד גישה"},
    {"رمز المرور"},
    {"كلمة المرور"},
    {"رمز الدخول"},
    {"पासकोड"},
    {"पासवर्ड"},
    {"รหัสผ่าน"},
    {"kata sandi"},
    {"kode sandi"},
    {"kode akses"},
    {"kata laluan"},
    {"kod laluan"},
    {"mat khau"},
    {"mat ma"},
    {"ma truy cap"},
    {"密码"},
    {"密碼"},
    {"口令"},
    {"通行码"},
    {"通行碼"},
    {"访问码"},
    {"パスコード"},
    {"パスワード"},
    {"暗証番号"},
    {"암호"},
    {"비밀번호"},
    {"패스코드"},
};

constexpr std::string_view kBefore[] = {"is", "ist", "lautet", "est", "es", "e", "ar", "er", "jest", "to"};

constexpr std::string_view kPlainCodes[] = {"error",  "exit",   "country", "area",   "zip",      "postal",
                                            "post",   "status", "return",  "reply",  "source",   "region",
                                            "result", "bar",    "qr",      "reason", "language", "code"};

constexpr std::string_view kNoSecret[] = {
    "at least", "at most",   "on",      "off",    "yes",     "no",      "true",    "false",  "null",
    "none",     "any",       "empty",   "done",   "hidden",  "locked",  "refused", "shown",  "required",
    "missing",  "not there", "enabled", "open",   "closed",  "-",       "...",     "[x]",    "[ ]",
    "(x)",      "( )",       "(empty)", "least",  "longest", "rules",   "length",  "digits", "letters",
    "expected", "nothing",   "must",    "cannot", "may",     "disabled"};

constexpr SecretParameter kParameters[] = {{"pwd"},       {"passcode"},  {"password"}, {"passwd"},    {"token"},
                                           {"zak"},       {"secret"},    {"hostkey"},  {"pw", true},  {"tk", true},
                                           {"pin", true}, {"sig", true}, {"hash"},     {"signature"}, {"apikey"},
                                           {"key", true}, {"auth", true}};

// Parts of a key; one is enough.
constexpr std::string_view kSecretParts[] = {"password",       "passcode", "passwd",  "pwd",    "token", "zak",
                                             "alternatehosts", "email",    "hostkey", "secret", "apikey"};
// A key may be all of this.
constexpr std::string_view kSecretKeys[] = {"tk", "pin", "pw", "participantcode", "hostcode", "accesscode"};
constexpr std::string_view kDialTextParts[] = {"thirdpartyaudio", "dialinnumber", "dedicatednumber", "otheraudio"};
// Parts that make a key speak about secrets instead of holding one: how long they are, whether they are wanted.
constexpr std::string_view kAboutParts[] = {"length",  "rule",    "option", "require",  "enable",   "lock",
                                            "support", "disable", "helper", "codetype", "wordtype", "tokentype"};

constexpr std::string_view kOwnersFacts[] = {"decidedby", "accessor", "lockedby", "reason"};

template <typename Parts>
bool holdsAny(std::string_view text, const Parts& parts) {
  return std::any_of(std::begin(parts), std::end(parts),
                     [&](std::string_view part) { return text.find(part) != std::string_view::npos; });
}

// Keys are written in every style; what joins their words says nothing.
std::string lettersOf(std::string_view key) {
  std::string letters;
  for (const char c : key) {
    if (c >= 'A' && c <= 'Z') {
      letters += static_cast<char>(c - 'A' + 'a');
    } else if (c != '_' && c != '-' && c != ' ' && c != '.') {
      letters += c;
    }
  }
  return letters;
}

KeyKind kindOfLetters(std::string_view letters) {
  if (holdsAny(letters, kAboutParts)) return KeyKind::plain;
  const bool isWhole = std::find(std::begin(kSecretKeys), std::end(kSecretKeys), letters) != std::end(kSecretKeys);
  if (isWhole || holdsAny(letters, kSecretParts)) return KeyKind::secret;
  return holdsAny(letters, kDialTextParts) ? KeyKind::dialText : KeyKind::plain;
}

}  // namespace

std::span<const SecretLabel> secretLabels() { return kLabels; }
std::span<const std::string_view> wordsBeforeSecret() { return kBefore; }
std::span<const std::string_view> wordsOfPlainCodes() { return kPlainCodes; }
std::span<const std::string_view> wordsOfNoSecret() { return kNoSecret; }
std::span<const SecretParameter> secretParameters() { return kParameters; }

KeyKind kindOfKey(std::string_view key) {
  // Nobody names anything so.
  constexpr std::size_t kLongestKey = 80;
  if (key.empty() || key.size() > kLongestKey) return KeyKind::plain;
  return kindOfLetters(lettersOf(key));
}

bool tellsOfItsOwner(std::string_view key) {
  return std::find(std::begin(kOwnersFacts), std::end(kOwnersFacts), lettersOf(key)) != std::end(kOwnersFacts);
}

}  // namespace vorn
