#include "data/TrackingFields.h"

#include <utility>

#include "data/vnProtoBufConvert.h"
#include "meeting.pb.h"

namespace vorn {

_sTrackingField takeTrackingField(com::tidemar::webapp::proto::TrackingField& from) {
  _sTrackingField field;
  if (from.has_id()) field.id = textFromWire(std::move(*from.mutable_id()));
  if (from.has_required()) field.required = from.required();
  if (from.has_trackfield()) field.trackField = textFromWire(std::move(*from.mutable_trackfield()));
  if (from.has_trackvalue()) field.trackValue = textFromWire(std::move(*from.mutable_trackvalue()));
  if (from.has_mtvalue()) field.mtValue = textFromWire(std::move(*from.mutable_mtvalue()));
  return field;
}

}  // namespace vorn
