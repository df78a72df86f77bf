#pragma once

#include <QString>
#include <memory>

struct sqlite3;

namespace brindlex {

/// What became of an operation on a database: true when it was done.
struct [[nodiscard]] DatabaseResult {
    /// Why it was not done, as the part of a line: "no such table: MAIN".
    QString failure;
    explicit operator bool() const { return failure.isEmpty(); }
};

/// A connection to a database file, which is a file of SQLite 3. Several may be open on one file.
/// An operation waits a second at most for another program, and works about a second at most.
class Connection {
  public:
    /// `text` has the path behind "Data Source=", blanks round it do not count. "key=value" parts
    /// before and behind it, parted by ";", are passed over.
    explicit Connection(QString text);

    /// Opens the file, which is looked up as for reading (`Files`); for reading alone if it may not
    /// be written. No file is ever made. Fails for what is no database; an empty file is one.
    DatabaseResult Open();
    void Close();

  private:
    friend class RecordSet;
    friend class Transaction;

    QString text_;
    std::shared_ptr<sqlite3> database_;
};

/// Makes the updates through a connection take effect together at commit(). What is not committed
/// is taken back. A record set keeps its texts all the same. Open one at a time.
class Transaction {
  public:
    explicit Transaction(const Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    DatabaseResult commit();

  private:
    std::shared_ptr<sqlite3> database_;
};

}  // namespace brindlex
