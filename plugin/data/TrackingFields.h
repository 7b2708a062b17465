#pragma once

#include "data/MeetingRecords.h"

namespace com::tidemar::webapp::proto {
class TrackingField;
}

namespace vorn {

// A tracking field out of its message, which the profile and a meeting both hold. The texts are moved
// out of the message. What it leaves out is as in a new record.
_sTrackingField takeTrackingField(com::tidemar::webapp::proto::TrackingField& from);

}  // namespace vorn
