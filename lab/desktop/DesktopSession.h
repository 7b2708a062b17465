#pragma once

#include <string>

#include "lab/objc/ObjcSession.h"

@class NSWindow;

namespace vornlab {

// The laboratory with real windows. The application has been made before. Main thread only.
class DesktopSession final : public ObjcSession {
 public:
  // Throws LabError when something cannot be started.
  DesktopSession(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress)
      : ObjcSession(options, calendar, hostOf(userAddress)) {}
  // Closes what is open, without saving.
  ~DesktopSession() override;
  DesktopSession(const DesktopSession&) = delete;
  DesktopSession& operator=(const DesktopSession&) = delete;

  // Makes the application, with the desktop's looks. Throws LabError where there is no display.
  static void beginApplication();

  // Opens the editor of the appointment, or of a new one for nothing.
  void openEditor(const CalendarEvent* event);
  // Closes all editors, without saving.
  void closeEditors();
  // Presses the button with that action in the bar of the editor that was opened last. False when it is not there,
  // hidden or disabled.
  bool pressInBar(const std::string& action);
  // Nil without an open editor, of which it is the one that was opened last.
  NSWindow* editorWindow() const;
  NSWindow* mainWindow() const;
  // Runs until the person ends the application.
  void run();

 protected:
  // Whatever the person does meanwhile reaches the windows.
  void turn() override;

 private:
  static HostOptions hostOf(const std::string& userAddress) {
    HostOptions host;
    host.userAddress = userAddress;
    return host;
  }
};

}  // namespace vornlab
