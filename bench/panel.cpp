// The settings panel: what its opening, one typed character and its long lists cost, and what many panels leave
// behind.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <string>
#include <unordered_set>

#include "data/vnGetScheduleForListHelper.h"
#include "data/vnUserProfileHelper.h"
#include "lab/client/Account.h"
#include "lab/client/Replies.h"
#include "settings/VNAlternateHostHelper.h"
#include "settings/rules/CountryRules.h"
#include "tests/support/PanelWindow.h"
#include "util/Text.h"
#include "util/vStringUtils.h"

namespace vorn {
namespace {

constexpr const char* kTypedInto = "passwordTextField";
// Roughly as many have something to ask of the account.
constexpr int kGroups = 10;

// A window of an account with everything on, as many tracking fields and as many countries.
class PanelWorld : public PanelWindow {
 public:
  PanelWorld(std::int64_t trackingFields, std::int64_t countries)
      : PanelWorld(profile(trackingFields, countries)) {}
  explicit PanelWorld(const Value& account) { vnUserProfileHelper::sharedInstance().setData(account); }
  ~PanelWorld() { Registry::reset(); }

  bool type(const std::string& text) {
    return use(kTypedInto, [&](Control& field) { field.text = text; });
  }
  bool turn(const std::string& key, bool on) {
    return use(key, [on](Control& control) { control.on = on; });
  }
  bool typeToken(const std::string& key, const std::string& text) {
    return use(key, [&](Control& field) {
      text.empty() ? field.tokens.press(TokenText::Key::deleteBackward) : field.tokens.type(text);
    });
  }
  void scheduleFor(const std::string& email) { window->manager->setScheduleForEmail(email); }
  std::size_t controls() { return shown()->keys().size(); }

 private:
  bool use(const std::string& key, const std::function<void(Control&)>& change) {
    return click(key, change) == Use::done;
  }
  static Value profile(std::int64_t trackingFields, std::int64_t countries) {
    vornlab::Account account = vornlab::Account::fromFile(EVERYTHING_ON);
    account.tracking.clear();
    for (std::int64_t i = 0; i < trackingFields; ++i) {
      const std::string number = std::to_string(i);
      account.tracking.push_back({"field-" + number, "Field " + number, {"one", "two", "three"}, "two", false});
    }
    vornlab::DialInPolicy& dialIn = account.policy.dialIn;
    dialIn.all.clear();
    for (std::int64_t i = 0; i < countries; ++i) {
      dialIn.all.push_back({static_cast<char>('A' + i / 26 % 26), static_cast<char>('A' + i % 26)});
    }
    dialIn.selected = dialIn.all;
    return vStringUtils::toArrayOrNSDictionary(vornlab::profileReply(account));
  }
};

Value people(std::int64_t count) {
  Value all = Value::array();
  for (std::int64_t i = 0; i < count; ++i) all.append("h" + std::to_string(i) + "@vorn.example");
  return all;
}

void openAndClose(benchmark::State& state) {
  PanelWorld world(state.range(0), state.range(1));
  world.open();
  state.counters["controls"] = static_cast<double>(world.controls());
  world.close();
  for ([[maybe_unused]] auto _ : state) {
    world.open();
    world.close();
  }
}

// The floor: the account read once for each group, which any panel has to do.
void readTheAccount(benchmark::State& state) {
  const PanelWorld world(state.range(0), state.range(1));
  for ([[maybe_unused]] auto _ : state) {
    for (int group = 0; group < kGroups; ++group) {
      benchmark::DoNotOptimize(accountFacts(vnUserProfileHelper::sharedInstance(), std::nullopt));
    }
  }
}

BENCHMARK(openAndClose)->Args({0, 0})->Args({50, 250})->Unit(benchmark::kMicrosecond);
BENCHMARK(readTheAccount)->Args({0, 0})->Args({50, 250})->Unit(benchmark::kMicrosecond);

void keystroke(benchmark::State& state) {
  PanelWorld world(50, 250);
  world.open();
  world.turn("requiredMeetingPswButton", true);
  std::string text = "Trm7-4k";
  for ([[maybe_unused]] auto _ : state) {
    text.back() = text.back() == 'k' ? 'm' : 'k';
    if (!world.type(text)) state.SkipWithError("the field cannot be typed into");
  }
}

// The floor: the passcode held against the account's rules, which each character needs.
void validation(benchmark::State& state) {
  const PanelWorld world(50, 250);
  std::int64_t failed = 0;
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(vnSettingData::ValidateMeetingPassword("Trm7-4k", failed));
  }
}

BENCHMARK(keystroke)->Unit(benchmark::kMicrosecond);
BENCHMARK(validation)->Unit(benchmark::kMicrosecond);

// One character in a field whose list offers as many people, and taken back.
void typeInSearchList(benchmark::State& state) {
  PanelWorld world(0, 0);
  VNAlternateHostHelper::sharedInstance().addToInputAlternateHostHistory(people(state.range(0)));
  world.open();
  for ([[maybe_unused]] auto _ : state) {
    if (!world.typeToken("alternateHostTextField", "h") || !world.typeToken("alternateHostTextField", "")) {
      state.SkipWithError("the field cannot be typed into");
    }
  }
}

// The floor: each of them compared once without regard to the case.
void compareNames(benchmark::State& state) {
  const Value all = people(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    std::size_t found = 0;
    for (const Value& each : all.items()) found += caseFolded(each.text()).starts_with("h") ? 1 : 0;
    benchmark::DoNotOptimize(found);
  }
}

BENCHMARK(typeInSearchList)->Arg(100)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(compareNames)->Arg(10'000)->Unit(benchmark::kMicrosecond);

// Codes from AA on.
Value codes(std::int64_t count) {
  Value all = Value::array();
  for (std::int64_t i = 0; i < count; ++i) {
    all.append(std::string{static_cast<char>('A' + i / 26 % 26), static_cast<char>('A' + i % 26)});
  }
  return all;
}

// As many countries, all chosen, and as many centres of which none is used and each has a tenth of the countries.
void countriesInConflict(benchmark::State& state) {
  const Value countries = codes(state.range(0));
  panel_rules::CountryConflict conflict{
      .webUncheckedDCInfos = Value::array(), .regionPolicyType = 1, .selectedRegions = codes(state.range(0) / 2)};
  Value byCenter = Value::array();
  for (std::int64_t i = 0; i < state.range(1); ++i) {
    const std::string name = "DC" + std::to_string(i);
    byCenter.append(Value::dictionaryFromPairs({{"dcName", name}, {"dcCountries", codes(state.range(0) / 10)}}));
    conflict.webUncheckedDCInfos.append(Value::dictionaryFromPairs({{"dc", name}}));
  }
  conflict.maximumDialinCountry.set("maximumDialinCountries", countries);
  conflict.maximumDialinCountry.set("pstnDcWithCountries", byCenter);
  const panel_rules::CountryNames names{.nameOf = [](const std::string& code) { return "Land " + code; },
                                        .texts = [](std::string_view key, auto) { return std::string(key); }};
  VNAvailableDialinCountryContent content;
  content.selectedCountries = countries;
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(panel_rules::updateDialinCountryForConflict(conflict, content, names));
  }
}

// The floor: the lists that it is given, read once.
void readTheLists(benchmark::State& state) {
  const Value countries = codes(state.range(0));
  const Value some = codes(state.range(0) / 10);
  for ([[maybe_unused]] auto _ : state) {
    std::unordered_set<std::string> seen;
    for (const Value& each : countries.items()) seen.insert(each.text());
    for (std::int64_t i = 0; i < state.range(1); ++i) {
      for (const Value& each : some.items()) benchmark::DoNotOptimize(seen.contains(each.text()));
    }
  }
}

BENCHMARK(countriesInConflict)->Args({250, 50})->Args({2500, 50})->Unit(benchmark::kMicrosecond);
BENCHMARK(readTheLists)->Args({250, 50})->Unit(benchmark::kMicrosecond);

// The panel of one who schedules for somebody with policies of her own; "" is for oneself, the floor.
void openForPerson(benchmark::State& state, const std::string& email) {
  const vornlab::Account account = vornlab::Account::fromFile(THREE_PEOPLE);
  PanelWorld world(vStringUtils::toArrayOrNSDictionary(vornlab::profileReply(account)));
  vnGetScheduleForListHelper::sharedInstance().setData(
      vStringUtils::toArrayOrNSDictionary(vornlab::peopleReply(account)));
  world.scheduleFor(email);
  for ([[maybe_unused]] auto _ : state) {
    world.open();
    world.close();
  }
}

BENCHMARK_CAPTURE(openForPerson, herself, "dana.birch@example.com")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(openForPerson, oneself, "")->Unit(benchmark::kMicrosecond);

// Bytes in use after as many panels, less those after the first.
void manyPanels(benchmark::State& state) {
  PanelWorld world(50, 250);
  world.open();
  world.close();
  const std::size_t before = mallinfo2().uordblks;
  for ([[maybe_unused]] auto _ : state) {
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      world.open();
      world.close();
    }
  }
  const double bytesLeft = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(before);
  state.counters["bytesLeft"] = bytesLeft;
  // What the runtime and the texts keep once is a few thousand bytes, however many panels come and go.
  constexpr double kSlack = 64 * 1024;
  if (bytesLeft > kSlack) state.SkipWithError("panels leave memory behind");
}

BENCHMARK(manyPanels)->Arg(100)->Arg(1000)->Arg(10'000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vorn
