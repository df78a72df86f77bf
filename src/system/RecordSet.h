#pragma once

#include <QString>
#include <map>
#include <memory>
#include <vector>

#include "system/Connection.h"

namespace brindlex {

class SqliteStatement;

enum class CursorType { Keyset = 1 };
enum class LockType { Pessimistic = 2, Optimistic = 3 };
enum class CommandType { Text = 1, Table = 2 };

/// The rows of a table or of a SELECT, as they were when it was opened, with one current row. All
/// values are texts, null is the empty one. Names of fields are compared without regard to case.
class RecordSet {
  public:
    /// Reads all rows and goes to the first. `source` is one SELECT or the name of a table; any
    /// other statement is refused and does not run. In it "=" is exact and LIKE ignores the case of
    /// ASCII letters. Cursor and lock type make no difference, since nothing stays open or locked.
    /// A failure leaves the record set closed.
    DatabaseResult Open(const QString& source, const Connection& connection, CursorType, LockType,
                        CommandType options);
    /// Drops the rows; a closed record set has none.
    void Close();

    /// Behind the last row, or without any.
    bool isEof() const { return current_ == rows_.size(); }
    void MoveFirst();
    /// Does nothing behind the last row.
    void MoveNext();

    /// The text in the current row. Empty without a row or for a field that is not there, where a
    /// set is passed over. A set text reaches the table by Update, and a move drops it.
    QString Fields(const QString& name) const;
    void SetFields(const QString& name, const QString& text);
    /// Writes the set texts to the table at once, to the row with the primary key of the current
    /// one. Fails without a current row, if the row is not in the table any longer, if its primary
    /// key is not among the fields, or if a set field is no column of the table.
    DatabaseResult Update();

  private:
    using Row = std::vector<QString>;
    struct Column {
        QString name;
        QString table;
        QString origin;
    };
    DatabaseResult read(SqliteStatement& statement);
    std::size_t find(const QString& name) const;
    std::vector<std::size_t> primaryKey(sqlite3* database, const QString& table) const;
    QString updateStatement(const QString& table, const std::vector<std::size_t>& key) const;

    std::weak_ptr<sqlite3> database_;
    std::vector<Column> columns_;
    std::vector<Row> rows_;
    std::size_t current_ = 0;
    std::map<std::size_t, QString> changes_;  ///< texts set in the current row, by column
};

}  // namespace brindlex
