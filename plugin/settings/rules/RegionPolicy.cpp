#include "settings/rules/RegionPolicy.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "data/OptionPolicy.h"
#include "settings/rules/TokenWords.h"

namespace vorn::panel_rules {

RegionTable::RegionTable(const std::vector<std::string>& codes, const Naming& nameOf) {
  for (const std::string& code : codes) {
    if (code.empty()) continue;
    m_all.push_back({code, nameOf(code)});
    m_codes.try_emplace(m_all.back().regionCountry, code);
  }
}

std::string RegionTable::getRCCodeByCountry(const std::string& name) const {
  const auto found = m_codes.find(name);
  return found == m_codes.end() ? "" : found->second;
}

bool isRegionOptionShown(const AccountFacts& account, const ClientGates& client) {
  return client.isVornClientSupport550Tasks &&
         !policyOf(vn_Setting_EnableAllowDenyJoinMeetingRegion).isLockedOff(account);
}

std::string regionList(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) {
    if (!all.empty()) all += ", ";
    all += name;
  }
  return all;
}

RegionSummary regionSummary(std::int64_t regionType, const std::vector<std::string>& names, bool isLocked,
                            const TextSource& texts) {
  const std::string prefix = texts(regionType == kRegionsAllowed ? "LN_Schedule_AllowDeny_OnlyAllow_188713"
                                                                 : "LN_Schedule_AllowDeny_Block_188713",
                                   {});
  const ShownText shown = shownText(LongText::regions, prefix + regionList(names));
  return {.text = shown,
          .link = texts(isLocked ? "LN_Schedule_AllowDeny_View_188713" : "Edit", {}),
          .isLinkShown = !isLocked || !shown.toolTip.empty()};
}

bool opensWindowFirst(bool isPolicyOn, bool hasCodeList, bool isListEmpty, bool isTurnedOn) {
  return !isPolicyOn && hasCodeList && isListEmpty && isTurnedOn;
}

TokenChip chipOf(const VNAllowDenyRCCell& region) {
  return {.title = region.regionCountry,
          .fields = {{"rcCode", region.rcCode}, {"regionCountry", region.regionCountry}}};
}

std::vector<std::string> addedRegionCodes(const TokenText& tokens, const RegionTable& regions) {
  std::vector<std::string> codes;
  std::unordered_set<std::string> known;
  for (const TokenPiece& piece : tokens.pieces()) {
    const std::string code =
        piece.chip ? piece.chip->field("rcCode") : regions.getRCCodeByCountry(onlyWordOf(piece.text).value_or(""));
    if (!code.empty() && known.insert(code).second) codes.push_back(code);
  }
  return codes;
}

bool maySaveRegions(const TokenText& tokens, const RegionTable& regions) {
  const auto isRegion = [&regions](const std::string& name) { return !regions.getRCCodeByCountry(name).empty(); };
  const std::optional<CurrentToken> token = currentToken(tokens);
  const std::string typed = token ? trimmed(token->text) : "";
  if (!typed.empty() && !isRegion(typed)) return false;
  // A word away from the caret that is no region would be lost without a word.
  return unknownWords(tokens, isRegion).empty() && !addedRegionCodes(tokens, regions).empty();
}

std::vector<VNAllowDenyRCCell> offeredRegions(const RegionTable& regions, const std::vector<std::string>& added,
                                              const std::string& word,
                                              const std::function<std::string(const std::string&)>& inLowerCase,
                                              const std::function<std::string(const std::string&)>& orderKey) {
  const std::unordered_set<std::string> isAdded(added.begin(), added.end());
  const std::string begin = inLowerCase(word);
  std::vector<std::pair<std::string, VNAllowDenyRCCell>> found;
  for (const VNAllowDenyRCCell& region : regions.all()) {
    if (isAdded.contains(region.rcCode)) continue;
    const std::string name = inLowerCase(region.regionCountry);
    if (name.starts_with(begin)) found.emplace_back(orderKey(name), region);
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& one, const auto& other) { return one.first < other.first; });
  std::vector<VNAllowDenyRCCell> offered;
  for (auto& [key, region] : found) offered.push_back(std::move(region));
  return offered;
}

}  // namespace vorn::panel_rules
