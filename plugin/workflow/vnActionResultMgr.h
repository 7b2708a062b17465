#pragma once

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// Whether the last action succeeded, as far as is known: first that the request went out, then what the reply
// said.
class vnActionResultMgr {
 public:
  virtual ~vnActionResultMgr() = default;

  void setActionResult(bool succeeded) { m_bActionSucceed = succeeded; }
  bool getActionResult() const { return m_bActionSucceed; }
  // True exactly for a response that says "Success"; a missing entry is a failure.
  void setActionResultData(const Value& response);
  // The result of the editor's bar; false when there is no bar.
  bool getActionResultWithCalEventEditorViewCtrl(const HostObject& editor) const;

 private:
  bool m_bActionSucceed = false;
};

}  // namespace vorn
