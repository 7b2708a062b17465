#pragma once

// The rules of the alternate hosts: who is meant by what stands in the field, who is offered, and what a pasted
// list becomes. Pure functions; time linear in what they are given.

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/controls/TokenText.h"

namespace vorn::panel_rules {

using AddressTest = std::function<bool(const std::string&)>;

// Who is a host: what a chip of the field carries, and an entry of the list.
struct VNAlternateHostCell {
  std::string name{};
  std::string jid{};
  std::string email{};

  bool operator==(const VNAlternateHostCell&) const = default;
};

// A host in the field, and in a row of the list.
TokenChip chipOf(const VNAlternateHostCell& host);
std::string rowOf(const VNAlternateHostCell& host);

// The addresses in the field in the order of the text, each once: those of the chips, and the plain texts that are
// addresses.
std::vector<std::string> invitedUsers(const TokenText& tokens, const AddressTest& isValid);
// Something in the field is no address, or what is being typed is not one yet.
bool hasAlternateHostError(const TokenText& tokens, const std::string& typed, const AddressTest& isValid);

// E-mails that are equal in any case of letters.
class FoldedEmails {
 public:
  FoldedEmails() = default;
  explicit FoldedEmails(const std::vector<std::string>& emails);

  // False when it was there already.
  bool add(const std::string& email);
  bool contains(const std::string& email) const;

 private:
  std::unordered_set<std::string> m_emails;
};

// Who is offered: of these nobody who is in the field already, nobody without an address, and not oneself.
std::vector<VNAlternateHostCell> offeredHosts(std::vector<VNAlternateHostCell> users,
                                              const AddressTest& isUserExisted, const std::string& ownEmail);
// Who was a host before and is no attendee.
std::vector<VNAlternateHostCell> earlierHosts(const std::vector<std::string>& history,
                                              const AddressTest& isExistedInAttendeeList);

// What the field takes for a pasted text: a chip for each address, and the words that are none as they were. An
// entry "Jane Doe <jane@example.com>" is one chip, with that name.
std::vector<TokenPiece> pastedHosts(std::string_view text, const AddressTest& isValid);

// Points by which a field of that width is taller than one line, for hosts that do not fit into it.
double requiredExtraHeight(const std::vector<std::string>& hosts, double width);

}  // namespace vorn::panel_rules
