#pragma once

// The rules of the regions that may join: the option in the panel, and the list in its window. Pure functions;
// time linear in what they are given, but for the sorting of what is offered. Any thread.

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "data/AccountFacts.h"
#include "platform/controls/TokenText.h"
#include "settings/rules/LongTexts.h"
#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

// Of a policy. Any other value than 0 blocks.
inline constexpr std::int64_t kRegionsAllowed = 0;
inline constexpr std::int64_t kRegionsBlocked = 1;

struct VNAllowDenyRCCell {
  std::string rcCode{};
  std::string regionCountry{};

  bool operator==(const VNAllowDenyRCCell&) const = default;
};

// Regions by their codes and their names. Where two share a name the first has it.
class RegionTable {
 public:
  using Naming = std::function<std::string(const std::string& code)>;

  RegionTable() = default;
  RegionTable(const std::vector<std::string>& codes, const Naming& nameOf);

  const std::vector<VNAllowDenyRCCell>& all() const { return m_all; }
  // "" for a text that is no region's name to the letter.
  std::string getRCCodeByCountry(const std::string& name) const;

 private:
  std::vector<VNAllowDenyRCCell> m_all;
  std::map<std::string, std::string> m_codes;
};

// -- The option --------------------------------------------------------------------------------------------------

bool isRegionOptionShown(const AccountFacts& account, const ClientGates& client);

// Names as one text.
std::string regionList(const std::vector<std::string>& names);

// What stands beside the switch while it is on.
struct RegionSummary {
  ShownText text{};
  std::string link{};
  // Who can change nothing has no use for a window with what the text says already.
  bool isLinkShown = true;

  bool operator==(const RegionSummary&) const = default;
};
RegionSummary regionSummary(std::int64_t regionType, const std::vector<std::string>& names, bool isLocked,
                            const TextSource& texts);

// The switch was turned on without a list: its window opens first, and the option stays off until that is saved.
bool opensWindowFirst(bool isPolicyOn, bool hasCodeList, bool isListEmpty, bool isTurnedOn);

// -- The window --------------------------------------------------------------------------------------------------

TokenChip chipOf(const VNAllowDenyRCCell& region);

// The codes in the text in its order, each once: those of the chips, and of plain texts that are a region's name.
std::vector<std::string> addedRegionCodes(const TokenText& tokens, const RegionTable& regions);
// There are regions, and nothing that is none.
bool maySaveRegions(const TokenText& tokens, const RegionTable& regions);
// Those that are not in the text yet and whose name begins with the word, both in lower case, sorted by name as
// the language does, whose order is that of the keys.
std::vector<VNAllowDenyRCCell> offeredRegions(const RegionTable& regions, const std::vector<std::string>& added,
                                              const std::string& word,
                                              const std::function<std::string(const std::string&)>& inLowerCase,
                                              const std::function<std::string(const std::string&)>& orderKey);

}  // namespace vorn::panel_rules
