#pragma once

#include <cstdint>
#include <string_view>

#include "host/surface/vnSettingsButton.h"
#include "util/HostObject.h"
#include "util/Rect.h"

namespace vorn {

// This system's button in the ribbon of the host's main window, with a menu. Process-wide; main thread only.
//
// The button lives in the host's tree of views and is not taken out again: when the host builds another ribbon,
// the button goes with the old one.
class vnMainRibbonView {
 public:
  static vnMainRibbonView& sharedInstance();

  // The ribbon's active tab, which decides whether the button is wanted.
  void setOlMainWindowActivedTab(std::uint32_t tab) { olMainWindowActivedTab = tab; }
  bool isHomeMailInboxTab() const;
  ~vnMainRibbonView();

  // Sees to it that the ribbon with this container of chunks shows one button, or none where it is not wanted.
  // Nothing for an absent container.
  void initWithOLRibbonChunkContainerView(const HostObject& container);

  // Hides the button that stands in the ribbon, on a tab that has none.
  void hide();

  bool hasVnRibbonView() const;
  // The button among the container's subviews; absent when there is none.
  HostObject vnRibbonButton() const;

  void onClickScheduleMeeting();
  void onClickStartMeetingWithVideo();
  void onClickStartMeetingWithoutVideo();
  void onClickOpenLogFolder();
  void onClickAbout();

 private:
  void createVnRibbonButton();
  const HostObject& menu();
  // Puts the button behind the last chunk.
  void adjustVnRibbonButton();
  // The chunk furthest to the right; absent without chunks.
  HostObject getLastoneView() const;
  Rect getVnRibbonViewFrame() const;
  // Whether the ribbon has the chunk with the host's store of add-ins.
  static bool isOfficeAddinsStoreEnable(const HostObject& container);
  static OptionalText getRibbonChunkViewTitle(const HostObject& chunk);

  HostObject m_idOLRibbonChunkContainerView;
  std::uint32_t olMainWindowActivedTab = 0;
  HostObject m_target;
  HostObject m_menu;
};

}  // namespace vorn
