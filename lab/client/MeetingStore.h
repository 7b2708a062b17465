#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "lab/client/Meeting.h"

struct sqlite3;
struct sqlite3_stmt;

namespace vornlab {

class StoreError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The meetings, in one SQLite file. Several clients may use one file: each waits for the others' transactions.
// Every operation throws StoreError when the database fails, or stays busy for longer than that.
class MeetingStore {
 public:
  // Less than a laboratory gives its client to start, and much less than a request may take.
  static constexpr int kPatienceMilliseconds = 15'000;

  // Opens or makes the file; ":memory:" keeps everything in memory. Throws StoreError also for a file that is no
  // database of ours or was written by a newer version.
  explicit MeetingStore(const std::string& path, int patienceMilliseconds = kPatienceMilliseconds);
  ~MeetingStore();
  MeetingStore(const MeetingStore&) = delete;
  MeetingStore& operator=(const MeetingStore&) = delete;

  // Writes all that is in a database, as it is at one moment, into a new file, and nothing into the database
  // itself.
  static void copy(const std::string& database, const std::string& path);

  std::optional<Meeting> find(std::int64_t number);

  // The meeting that was stored last for this appointment.
  std::optional<Meeting> findByAppointment(const std::string& appointment);

  // The meeting under a personal number that was stored last for this host.
  std::optional<Meeting> findLastPersonal(const std::string& hostEmail);

  // Stores the meeting in place of one of the same number.
  void put(const Meeting& meeting);

  // False when there was none.
  bool remove(std::int64_t number);

  std::int64_t count();

  // What happens in its life is stored together at commit(), or not at all.
  class Transaction {
   public:
    explicit Transaction(MeetingStore& store);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

   private:
    MeetingStore& m_store;
    bool m_open = true;
  };

 private:
  explicit MeetingStore(int patienceMilliseconds) : m_patienceMilliseconds(patienceMilliseconds) {}
  void open(const std::string& path, int flags);

  struct CloseDatabase {
    void operator()(sqlite3* database) const;
  };
  struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

  void execute(const char* sql);
  Statement prepare(const char* sql);
  void prepareSchema();
  bool step(sqlite3_stmt* statement);
  std::optional<Meeting> readOne(sqlite3_stmt* statement);
  [[noreturn]] void fail() const;

  int m_patienceMilliseconds;
  std::unique_ptr<sqlite3, CloseDatabase> m_database;
  Statement m_find;
  Statement m_findByAppointment;
  Statement m_findLastPersonal;
  Statement m_put;
  Statement m_remove;
  Statement m_count;
};

}  // namespace vornlab
