#include "lab/client/MeetingStore.h"

#include <sqlite3.h>

#include <cstring>

namespace vornlab {
namespace {

constexpr int kSchemaVersion = 1;

// In the order of the columns.
constexpr const char* kColumns =
    "number, appointment, subject, start, minutes, recurring, timezone, passcode, token, language, host_email, "
    "personal, settings";

// The texts outlive the step that follows: no copy is needed.
void bind(sqlite3_stmt* statement, int index, const std::string& text) {
  sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

std::string column(sqlite3_stmt* statement, int index) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
  return text == nullptr ? std::string()
                         : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, index)));
}

// A statement that was stepped holds its bindings and, unless reset, the database's lock.
class Reset {
 public:
  explicit Reset(sqlite3_stmt* statement) : m_statement(statement) {}
  ~Reset() {
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
  }
  Reset(const Reset&) = delete;
  Reset& operator=(const Reset&) = delete;

 private:
  sqlite3_stmt* m_statement;
};

}  // namespace

void MeetingStore::CloseDatabase::operator()(sqlite3* database) const { sqlite3_close(database); }
void MeetingStore::FinalizeStatement::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

void MeetingStore::open(const std::string& path, int flags) {
  sqlite3* database = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &database, flags, nullptr);
  m_database.reset(database);
  if (opened != SQLITE_OK) fail();
  sqlite3_busy_timeout(database, m_patienceMilliseconds);
}

MeetingStore::MeetingStore(const std::string& path, int patienceMilliseconds)
    : MeetingStore(patienceMilliseconds) {
  open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  prepareSchema();

  const std::string all(kColumns);
  m_find = prepare(("SELECT " + all + " FROM meeting WHERE number = ?").c_str());
  m_findByAppointment =
      prepare(("SELECT " + all + " FROM meeting WHERE appointment = ? ORDER BY stored DESC LIMIT 1").c_str());
  m_findLastPersonal = prepare(
      ("SELECT " + all + " FROM meeting WHERE personal = 1 AND host_email = ? ORDER BY stored DESC LIMIT 1")
          .c_str());
  m_put = prepare(("INSERT INTO meeting (" + all +
                   ", stored) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?,"
                   " (SELECT coalesce(max(stored), 0) + 1 FROM meeting))"
                   " ON CONFLICT (number) DO UPDATE SET appointment = excluded.appointment,"
                   " subject = excluded.subject, start = excluded.start, minutes = excluded.minutes,"
                   " recurring = excluded.recurring, timezone = excluded.timezone, passcode = excluded.passcode,"
                   " token = excluded.token, language = excluded.language, host_email = excluded.host_email,"
                   " personal = excluded.personal, settings = excluded.settings, stored = excluded.stored")
                      .c_str());
  m_remove = prepare("DELETE FROM meeting WHERE number = ?");
  m_count = prepare("SELECT count(*) FROM meeting");
}

MeetingStore::~MeetingStore() = default;

void MeetingStore::prepareSchema() {
  // A crash of the machine may lose the last meetings, but the file stays sound; waiting for the disk at every
  // request would make the laboratory measure the disk.
  execute("PRAGMA journal_mode = WAL");
  execute("PRAGMA synchronous = NORMAL");

  int version = 0;
  {
    const Statement read = prepare("PRAGMA user_version");
    if (step(read.get())) version = sqlite3_column_int(read.get(), 0);
  }
  if (version > kSchemaVersion) {
    throw StoreError("the database has version " + std::to_string(version) + ", this program knows up to " +
                     std::to_string(kSchemaVersion));
  }
  if (version == kSchemaVersion) return;
  execute(
      "BEGIN IMMEDIATE;"
      "CREATE TABLE IF NOT EXISTS meeting ("
      " number INTEGER PRIMARY KEY, appointment TEXT NOT NULL, subject TEXT NOT NULL, start INTEGER NOT NULL,"
      " minutes TEXT NOT NULL, recurring INTEGER NOT NULL, timezone TEXT NOT NULL, passcode TEXT NOT NULL,"
      " token TEXT NOT NULL, language TEXT NOT NULL, host_email TEXT NOT NULL, personal INTEGER NOT NULL,"
      " settings TEXT NOT NULL, stored INTEGER NOT NULL);"
      "CREATE INDEX IF NOT EXISTS meeting_appointment ON meeting (appointment, stored);"
      "CREATE INDEX IF NOT EXISTS meeting_stored ON meeting (stored);"
      "PRAGMA user_version = 1;"
      "COMMIT");
}

std::optional<Meeting> MeetingStore::find(std::int64_t number) {
  const Reset reset(m_find.get());
  sqlite3_bind_int64(m_find.get(), 1, number);
  return readOne(m_find.get());
}

std::optional<Meeting> MeetingStore::findByAppointment(const std::string& appointment) {
  const Reset reset(m_findByAppointment.get());
  bind(m_findByAppointment.get(), 1, appointment);
  return readOne(m_findByAppointment.get());
}

std::optional<Meeting> MeetingStore::findLastPersonal(const std::string& hostEmail) {
  const Reset reset(m_findLastPersonal.get());
  bind(m_findLastPersonal.get(), 1, hostEmail);
  return readOne(m_findLastPersonal.get());
}

void MeetingStore::put(const Meeting& meeting) {
  const Reset reset(m_put.get());
  sqlite3_stmt* put = m_put.get();
  const std::string settings = meeting.settings.dump();
  sqlite3_bind_int64(put, 1, meeting.number);
  bind(put, 2, meeting.appointment);
  bind(put, 3, meeting.subject);
  sqlite3_bind_int64(put, 4, meeting.start);
  bind(put, 5, meeting.minutes);
  sqlite3_bind_int(put, 6, meeting.recurring ? 1 : 0);
  bind(put, 7, meeting.timezone);
  bind(put, 8, meeting.passcode);
  bind(put, 9, meeting.token);
  bind(put, 10, meeting.language);
  bind(put, 11, meeting.hostEmail);
  sqlite3_bind_int(put, 12, meeting.personal ? 1 : 0);
  bind(put, 13, settings);
  step(put);
}

bool MeetingStore::remove(std::int64_t number) {
  const Reset reset(m_remove.get());
  sqlite3_bind_int64(m_remove.get(), 1, number);
  step(m_remove.get());
  return sqlite3_changes(m_database.get()) > 0;
}

std::int64_t MeetingStore::count() {
  const Reset reset(m_count.get());
  step(m_count.get());
  return sqlite3_column_int64(m_count.get(), 0);
}

void MeetingStore::copy(const std::string& database, const std::string& path) {
  MeetingStore source(kPatienceMilliseconds);
  source.open(database, SQLITE_OPEN_READONLY);
  const Statement copy = source.prepare("VACUUM INTO ?1");
  bind(copy.get(), 1, path);
  source.step(copy.get());
}

MeetingStore::Transaction::Transaction(MeetingStore& store) : m_store(store) {
  m_store.execute("BEGIN IMMEDIATE");
}

MeetingStore::Transaction::~Transaction() {
  if (m_open) sqlite3_exec(m_store.m_database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void MeetingStore::Transaction::commit() {
  m_store.execute("COMMIT");
  m_open = false;
}

void MeetingStore::execute(const char* sql) {
  if (sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail();
}

MeetingStore::Statement MeetingStore::prepare(const char* sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(m_database.get(), sql, -1, &statement, nullptr) != SQLITE_OK) fail();
  return Statement(statement);
}

bool MeetingStore::step(sqlite3_stmt* statement) {
  const int result = sqlite3_step(statement);
  if (result != SQLITE_ROW && result != SQLITE_DONE) fail();
  return result == SQLITE_ROW;
}

std::optional<Meeting> MeetingStore::readOne(sqlite3_stmt* statement) {
  if (!step(statement)) return std::nullopt;
  Meeting meeting;
  meeting.number = sqlite3_column_int64(statement, 0);
  meeting.appointment = column(statement, 1);
  meeting.subject = column(statement, 2);
  meeting.start = sqlite3_column_int64(statement, 3);
  meeting.minutes = column(statement, 4);
  meeting.recurring = sqlite3_column_int(statement, 5) != 0;
  meeting.timezone = column(statement, 6);
  meeting.passcode = column(statement, 7);
  meeting.token = column(statement, 8);
  meeting.language = column(statement, 9);
  meeting.hostEmail = column(statement, 10);
  meeting.personal = sqlite3_column_int(statement, 11) != 0;
  meeting.settings = nlohmann::json::parse(column(statement, 12), nullptr, false);
  if (!meeting.settings.is_object()) meeting.settings = nlohmann::json::object();
  return meeting;
}

void MeetingStore::fail() const {
  const int code = sqlite3_errcode(m_database.get());
  const int error = sqlite3_system_errno(m_database.get());
  const std::string reason = error == 0 ? "" : std::string(": ") + std::strerror(error);
  switch (code) {
    case SQLITE_BUSY:
      throw StoreError("another program has kept the database busy for " +
                       std::to_string(m_patienceMilliseconds / 1000) + " seconds");
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT: throw StoreError("this is no database of meetings; name another file");
    case SQLITE_CANTOPEN: throw StoreError("the database cannot be opened" + reason);
    case SQLITE_READONLY:
    case SQLITE_PERM: throw StoreError("the database cannot be written; it is read-only");
    case SQLITE_FULL: throw StoreError("the database cannot be written; the disk is full");
    case SQLITE_IOERR: throw StoreError("the database cannot be read or written" + reason);
    default: throw StoreError("the database cannot be used; SQLite's code is " + std::to_string(code));
  }
}

}  // namespace vornlab
