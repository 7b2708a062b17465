#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace vornlab {

// How calendar files of one producer differ from the format. This one changes nothing.
class ProducerQuirks {
 public:
  virtual ~ProducerQuirks() = default;

  // True when this DESCRIPTION, unescaped, holds HTML instead of plain text.
  virtual bool descriptionIsHtml(std::string_view) const { return false; }
  // The HTML that such a DESCRIPTION stands for. Linear in its size.
  virtual std::string htmlOf(std::string_view description) const { return std::string(description); }

  // The quirks of the producer that names itself in PRODID.
  static std::unique_ptr<ProducerQuirks> of(std::string_view productIdentifier);
};

}  // namespace vornlab
