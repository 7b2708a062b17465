#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace vorn {

// Gives the rules the text behind a key, with the values put in for its placeholders in their order.
using TextSource =
    std::function<std::string(std::string_view key, std::initializer_list<std::string_view> values)>;

}  // namespace vorn
