#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lab/host/RecordedScreen.h"
#include "lab/objc/ObjcSession.h"

namespace vornlab {

// The session of a host without windows: the toolkit is the one of the stand-ins, which remember what was shown.
class HeadlessSession final : public ObjcSession, private RecordedScreen {
 public:
  using ObjcSession::ObjcSession;

  static std::unique_ptr<LabSession> start(const LabOptions& options, CalendarStore& calendar,
                                           const HostOptions& hostOptions) {
    return std::make_unique<HeadlessSession>(options, calendar, hostOptions);
  }

  HostScreen& screen() override { return *this; }

 private:
  std::vector<std::string> alertMessages() const override;
  void answerNext(vorn::Presenter::Answer answer) override;
  bool showsProgress() const override;
  const vorn::PanelRecord& panels() const override;
};

}  // namespace vornlab
