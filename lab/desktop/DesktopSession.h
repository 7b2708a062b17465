#pragma once

#include <functional>
#include <memory>
#include <string>

#include "lab/desktop/ClientDesk.h"
#include "lab/host/HostScreen.h"
#include "lab/objc/ObjcSession.h"

@class NSWindow, vnClientWindow, vnMainWindowWatch;

namespace vornlab {

// The laboratory with real windows. The application has been made before. Main thread only.
class DesktopSession final : public ObjcSession, public ClientDesk {
 public:
  // Throws LabError when something cannot be started. The client can be told to do things wrong in any case.
  DesktopSession(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress);
  // With somebody before the screen who is no person; null for one.
  DesktopSession(const LabOptions& options, CalendarStore& calendar, const HostOptions& hostOptions,
                 std::unique_ptr<HostScreen> watched);
  // Closes what is open, without saving.
  ~DesktopSession() override;
  DesktopSession(const DesktopSession&) = delete;
  DesktopSession& operator=(const DesktopSession&) = delete;

  // Makes the application, with the desktop's looks. Throws LabError where there is no display.
  static void beginApplication();

  HostScreen& screen() override { return m_screen ? *m_screen : ObjcSession::screen(); }

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
  // The window with what can be changed at the client.
  vnClientWindow* clientWindow() const { return m_clientWindow; }
  // Runs until the person ends the application: each editor with changes has been asked about, and then the
  // function, which says whether everything else may end.
  void run(const std::function<bool()>& mayEnd);

  std::filesystem::path account() const override { return clientOptions().account; }
  void signIn(const std::filesystem::path& account) override;
  void showVersion(const std::string& version) override;
  void misbehave(const std::string& rules) override;
  bool isClientRunning() override { return clientIsRunning(); }
  void startClientAgain() override;
  void endClient() override { stopClient(); }
  std::filesystem::path clientJournal() const override { return world().journal(); }

 protected:
  // Whatever the person does meanwhile reaches the windows.
  void turn() override;

 private:
  // Whoever is signed in at the client has an account at the host, too.
  void takeSignedInAccount(const LabOptions& options);
  // False when the person wants to go on, or something could not be saved.
  bool askAboutEditors();
  // The plug-in looks for a client that was away only when the host's main window has been closed and opened.
  void reopenMainWindow();

  std::unique_ptr<HostScreen> m_screen;
  // Retained.
  vnClientWindow* m_clientWindow = nullptr;
  vnMainWindowWatch* m_watch = nullptr;
};

}  // namespace vornlab
