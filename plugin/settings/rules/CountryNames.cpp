#include "settings/rules/CountryNames.h"

namespace vorn::panel_rules {

std::string replaceCountryName(const std::string& code, bool isTaiWanZH, const TextSource& texts,
                               const std::function<std::string(const std::string& code)>& systemName) {
  if (code.empty()) return "";
  if (code == "HK") return texts("LN_Schedule_Enable_DataCenterRegion_HK_151084", {});
  if (code == "MO") return texts("LN_Audiooption_CountryName_Macau_49437", {});
  if (code == "TW") {
    return texts(isTaiWanZH ? "LN_Audiooption_CountryName_TaiWan_WithChina_115980"
                            : "LN_Audiooption_CountryName_TaiWan_49437",
                 {});
  }
  return systemName(code);
}

}  // namespace vorn::panel_rules
