#pragma once

namespace vorn {

// While the host reads or writes the stored record, items of a series have to pass for single appointments: the
// record may then be stored on a series too. The mark is true only around the host's own call, never across an
// asynchronous step, and it is no counter: the end of an inner call ends it for the outer one as well.
class InbandTrick {
 public:
  static bool isException();

  InbandTrick();
  ~InbandTrick();
  InbandTrick(const InbandTrick&) = delete;
  InbandTrick& operator=(const InbandTrick&) = delete;
};

}  // namespace vorn
