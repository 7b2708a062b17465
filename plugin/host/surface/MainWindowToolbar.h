#pragma once

#include <string_view>

#include "util/HostObject.h"

namespace vorn {

// This system's items in the toolbar of the host's main window, by the identifiers that a toolbar stores.
inline constexpr std::string_view m_instantMeetingItemIdentifier = "VNStartToolbarItem";
inline constexpr std::string_view m_scheduleMeetingItemIdentifier = "VNScheduleToolbarItem";
inline constexpr std::string_view m_schedulePACItemIdentifier = "VNSchedulePACToolbarItem";
inline constexpr std::string_view m_openLogFolderItemIdentifier = "VNOpenLogFolder";

// Puts an item into the toolbar of every main window that is open. For hosts whose users do not find the items by
// themselves. Main thread only.
void addUIToMainWindow(std::string_view toolbarIdentifier);

// The same for one window: in front of the last flexible space, or at the start without one. Nothing when the
// toolbar is hidden, or shows the item already. The host makes the item; one that it does not make does not come
// in.
void addVornButtonToToolbar(const HostObject& window, std::string_view toobarIdentifier);

}  // namespace vorn
