#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vornlab {

// The five option words of an account or of a person: word 1 first. A set bit means what its name says.
using OptionWords = std::array<std::uint64_t, 5>;

struct AccountOption {
  std::string_view name;
  int word;  // 1 to 5
  int bit;
};

// Every option by the name that account files use.
const std::vector<AccountOption>& accountOptions();

// The option of that name, or null.
const AccountOption* findAccountOption(std::string_view name);

bool isSet(const OptionWords& words, std::string_view name);
void set(OptionWords& words, const AccountOption& option, bool value);

}  // namespace vornlab
