#include "lab/client/InvitationWords.h"

#include <array>
#include <cstdio>

namespace vornlab {
namespace {

constexpr std::array<InvitationWords, 4> kWords = {{
    {"en", "MMM d, y hh:mm a", "%1 is inviting you to a scheduled Vorn meeting.", "Topic", "Time",
     "This is a recurring meeting: the same link holds for every occurrence.", "Join Vorn Meeting", "Meeting ID",
     "Passcode", "One tap mobile", "Dial by your location", "toll-free", "Find your local number", "Join by SIP",
     "Join from a room system", "Audio",
     "Please do not pass this invitation on: whoever has the link and the passcode can join.",
     "If you join for the first time, open the link a few minutes early so that your computer can be made ready.",
     "Help with joining"},
    {"de", "d. MMM y HH:mm", "%1 lädt Sie zu einem geplanten Vorn-Meeting ein.", "Thema", "Uhrzeit",
     "Dies ist ein wiederkehrendes Meeting: derselbe Link gilt für jeden Termin.", "Vorn-Meeting beitreten",
     "Meeting-ID", "Kenncode", "Schnelleinwahl mobil", "Einwahl nach aktuellem Standort", "gebührenfrei",
     "Ortseinwahl suchen", "Mit SIP beitreten", "Aus einem Konferenzraum beitreten", "Audio",
     "Bitte geben Sie diese Einladung nicht weiter: Wer Link und Kenncode hat, kann beitreten.",
     "Wenn Sie zum ersten Mal teilnehmen, öffnen Sie den Link einige Minuten früher, damit Ihr Rechner bereit "
     "ist.",
     "Hilfe beim Beitreten"},
    {"fr", "d MMM y HH:mm", "%1 vous invite à une réunion Vorn planifiée.", "Sujet", "Heure",
     "Cette réunion est périodique : le même lien vaut pour chaque occurrence.", "Participer à la réunion Vorn",
     "ID de réunion", "Code secret", "Appel en une pression", "Composez un numéro selon votre lieu", "gratuit",
     "Trouver votre numéro local", "Participer par SIP", "Participer depuis une salle", "Audio",
     "Merci de ne pas transmettre cette invitation : le lien et le code secret suffisent pour participer.",
     "Si c'est votre première réunion, ouvrez le lien quelques minutes à l'avance pour préparer votre ordinateur.",
     "Aide pour participer"},
    {"es", "d MMM y HH:mm", "%1 le está invitando a una reunión de Vorn programada.", "Tema", "Hora",
     "Es una reunión recurrente: el mismo enlace vale para cada sesión.", "Entrar en la reunión de Vorn",
     "ID de reunión", "Código de acceso", "Móvil con un toque", "Marque según su ubicación", "gratuito",
     "Encuentre su número local", "Entrar por SIP", "Entrar desde una sala", "Audio",
     "No reenvíe esta invitación: quien tenga el enlace y el código puede entrar.",
     "Si entra por primera vez, abra el enlace unos minutos antes para que su equipo esté preparado.",
     "Ayuda para entrar"},
}};

struct CountryNumbers {
  const char* code;
  const char* prefix;
  std::array<const char*, 5> places;
};

constexpr std::array<CountryNumbers, 8> kCountries = {{
    {"US", "+1 646", {"US (New York)", "US (Chicago)", "US (San Jose)", "US (Houston)", "US (Tacoma)"}},
    {"DE",
     "+49 69",
     {"Germany (Frankfurt)", "Germany (Berlin)", "Germany (Hamburg)", "Germany (Munich)", "Germany"}},
    {"FR", "+33 1", {"France (Paris)", "France (Lyon)", "France (Lille)", "France (Nantes)", "France"}},
    {"GB",
     "+44 20",
     {"United Kingdom (London)", "United Kingdom (Leeds)", "United Kingdom (Cardiff)", "United Kingdom (Belfast)",
      "United Kingdom"}},
    {"JP", "+81 3", {"Japan (Tokyo)", "Japan (Osaka)", "Japan (Nagoya)", "Japan (Sapporo)", "Japan"}},
    {"NL",
     "+31 20",
     {"Netherlands (Amsterdam)", "Netherlands (Utrecht)", "Netherlands (Delft)", "Netherlands (Breda)",
      "Netherlands"}},
    {"AT", "+43 1", {"Austria (Vienna)", "Austria (Graz)", "Austria (Linz)", "Austria (Salzburg)", "Austria"}},
    {"CH",
     "+41 44",
     {"Switzerland (Zurich)", "Switzerland (Geneva)", "Switzerland (Basel)", "Switzerland (Bern)", "Switzerland"}},
}};

// 555 01xx, the numbers that belong to nobody.
std::string inventedNumber(const std::string& prefix, unsigned seed) {
  std::array<char, 16> tail{};
  std::snprintf(tail.data(), tail.size(), " 555 01%02u", seed % 100U);
  return prefix + tail.data();
}

}  // namespace

const InvitationWords& invitationWords(const std::string& language) {
  for (const auto& words : kWords) {
    if (language.compare(0, 2, words.language) == 0) return words;
  }
  return kWords.front();
}

std::vector<DialInNumber> dialInNumbers(const std::string& country, bool withTollFree) {
  unsigned seed = 7;
  for (const char c : country) seed = seed * 31U + static_cast<unsigned char>(c);

  std::vector<DialInNumber> numbers;
  for (const auto& known : kCountries) {
    if (country != known.code) continue;
    for (const char* place : known.places) numbers.push_back({inventedNumber(known.prefix, seed++), place, false});
  }
  if (numbers.empty())
    numbers.push_back({inventedNumber("+99 " + std::to_string(seed % 900U + 100U), seed), country});
  if (withTollFree) numbers.push_back({inventedNumber("+800", seed), country, true});
  return numbers;
}

}  // namespace vornlab
