#pragma once

#include <optional>
#include <string_view>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// This system's items in the toolbar of the host's main window, and what a click on them does. Process-wide; main
// thread only.
class vnToolbarItemMgr {
 public:
  static vnToolbarItemMgr& sharedInstance();

  ~vnToolbarItemMgr();

  // The item of one of this system's identifiers for a toolbar: the one that is kept, or another one when that
  // stands in another toolbar, for an item has one place. Absent for any other identifier, and when the host has
  // no toolbar items.
  HostObject itemForIdentifier(std::string_view identifier, const HostObject& toolbar);

  // Each item is made when it is first asked for, and kept.
  const HostObject& VNStartToolbarItem();
  const HostObject& VNScheduleToolbarItem();
  const HostObject& vnSchedulePACToolbarItem();
  const HostObject& VNOpenLogFolderToolbarItem();

  // Open the menu of such an item below the view, or below the view of an item.
  void popupStartContextMenu(const HostObject& sender);
  void popupSchedulePACContextMenu(const HostObject& sender);
  // An entry of such a menu was chosen; its tag says which. What it does begins when the menu has closed. Any tag
  // that no entry has does nothing.
  void onContextMenuAction_Start(const HostObject& sender);
  void onContextMenuAction_SchedulePAC(const HostObject& sender);

  void onClickStartMeetingWithVideo();
  void onClickStartMeetingWithoutVideo();
  void onClickScheduleVornMeeting();
  // The data names the account.
  void onClickSchedulePersonalAudioMeeting(const Value& data);
  void onClickOpenLogFolder();

  // Whether this build offers to start a meeting without video.
  static bool supportStartWithoutVideo();

  // The toolkit asks an item, after nearly everything that happens, whether it may be used now.
  void validate(const HostObject& item);

 private:
  // What an item is made of.
  struct Look;

  HostObject makeItem(const Look& look);
  HostObject makeItemWithMenu(const Look& look, const HostObject& menu);
  // Another item of the kind; absent for an identifier that is not ours.
  HostObject makeItemForIdentifier(std::string_view identifier);
  HostObject* keptItem(std::string_view identifier);
  const HostObject& kept(std::string_view identifier);
  const HostObject& target();
  const HostObject& startMenu();
  const HostObject& schedulePACMenu();

  HostObject m_target;
  HostObject m_startMenu;
  HostObject m_schedulePACMenu;
  HostObject m_start;
  HostObject m_schedule;
  HostObject m_schedulePAC;
  HostObject m_openLogFolder;
  // Neither changes while the host runs, and both are read from the disk.
  std::optional<bool> m_isSupportedHost;
  std::optional<bool> m_isSupportedSystem;
};

}  // namespace vorn
