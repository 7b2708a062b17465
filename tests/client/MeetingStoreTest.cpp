#include "lab/client/MeetingStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <thread>

#include "tests/support/TemporaryFolder.h"

namespace vornlab {
namespace {

TEST(MeetingStore, WaitsForAnotherClientOfItsFileAndSaysWhenThatTakesTooLong) {
  const test::TemporaryFolder folder;
  const std::string path = folder / "meetings.db";
  MeetingStore other(path);
  std::optional<MeetingStore::Transaction> busy(std::in_place, other);
  Meeting meeting;
  meeting.number = 1;
  MeetingStore hasty(path, 20);
  try {
    hasty.put(meeting);
    FAIL() << "wrote into a transaction of somebody else";
  } catch (const StoreError& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("another program has kept the database busy"));
  }
  std::jthread ends([&busy] {
    std::this_thread::sleep_for(std::chrono::milliseconds(2300));
    busy.reset();
  });
  MeetingStore patient(path);
  patient.put(meeting);
  EXPECT_EQ(hasty.count(), 1);
}

}  // namespace
}  // namespace vornlab
