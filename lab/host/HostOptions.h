#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vornlab {

// How a stand-in host is set up, whatever its classes are made of.
struct HostOptions {
  // The address of the person whose calendar this is. When it is set, an appointment with an ORGANIZER who has
  // neither it nor one of the other accounts is somebody else's; when it is not, every appointment is one's own.
  std::string userAddress;
  std::string userName = "Calendar Owner";
  // The addresses of further accounts, of which an editor lets its user choose one.
  std::vector<std::string> otherAccounts;
  // The account writes plain text bodies only.
  bool plainTextOnly = false;
  // The editor is open on behalf of the account's owner.
  bool delegating = false;
  // The class of the header view that an editor builds: this one or "OLAutoLayoutAttachmentsAcceptingView". It and
  // the width are those of the host in our own runtime; the other one has this class, 900 wide, alone.
  std::string headerViewClass = "OLCalendarHeaderContainerView";
  double headerWidth = 900;
  // The identifiers in the main window's toolbar, from left to right.
  std::vector<std::string> toolbar = {"OLNewItem", "NSToolbarFlexibleSpaceItem", "OLSearchItem"};
  // The window has a toolbar, and the mail's tab of the ribbon the chunk of the store of add-ins.
  bool hasToolbar = true;
  bool hasAddinsChunk = true;
  // What time it is, in seconds since 1970; none for the machine's clock.
  std::function<double()> clock = {};
};

}  // namespace vornlab
