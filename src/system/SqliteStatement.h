#pragma once

#include <QString>
#include <chrono>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace brindlex {

/// One statement of SQL on a database of SQLite. It is stopped when it has worked for a second. A
/// failure is kept; what is called after it does nothing. Only one statement of a database may live
/// at a time.
class SqliteStatement {
  public:
    SqliteStatement(sqlite3* database, const QString& sql);
    ~SqliteStatement();
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    /// Why the first of the calls that failed did so, in SQLite's words; empty if none did.
    const QString& failure() const { return failure_; }
    /// Whether the text is one statement, which has columns and changes nothing.
    bool isQuery() const;

    /// Gives the next parameter its value.
    void bind(const QString& value);
    /// Goes to the next row. False when there is none, or at a failure.
    bool step();
    int columnCount() const;
    /// The text in a column of the row, counted from 0; empty for null.
    QString text(int column) const;
    QString columnName(int column) const;
    /// The table and the column in it that a column shows as they are; empty for a computed one.
    QString tableName(int column) const;
    QString originName(int column) const;

  private:
    using Clock = std::chrono::steady_clock;
    static int isLate(void* statement);
    void check(int code);

    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
    bool alone_ = false;  ///< no second statement follows
    int bound_ = 0;
    std::optional<Clock::time_point> deadline_;
    QString failure_;
};

}  // namespace brindlex
