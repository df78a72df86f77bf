#include "system/RecordSet.h"

#include <sqlite3.h>

#include <QStringList>
#include <algorithm>

#include "system/SqliteStatement.h"

namespace brindlex {
namespace {

/// Characters in all rows of a record set, a field counting for some more than it has.
constexpr qsizetype kLargestSet = qsizetype{16} << 20;
constexpr qsizetype kFieldCost = 16;

QString quoted(QString name) {
    return '"' + name.replace('"', QLatin1String("\"\"")) + '"';
}

bool isSelect(const QString& sql) {
    return sql.trimmed().startsWith(QLatin1String("SELECT"), Qt::CaseInsensitive);
}

DatabaseResult closed() {
    return {QStringLiteral("the connection is closed")};
}

/// "name" = ?, as often as there are names.
QString equations(const QStringList& names, const QString& between) {
    QStringList texts;
    for (const QString& name : names) texts += quoted(name) + QLatin1String(" = ?");
    return texts.join(between);
}

}  // namespace

DatabaseResult RecordSet::Open(const QString& source, const Connection& connection, CursorType,
                               LockType, CommandType options) {
    Close();
    if (!connection.database_) return closed();
    const QString sql =
        options == CommandType::Table ? QLatin1String("SELECT * FROM ") + quoted(source) : source;
    const QString refusal = QStringLiteral("only a single SELECT is allowed");
    if (!isSelect(sql)) return {refusal};  // before it is prepared, which runs some statements
    SqliteStatement statement(connection.database_.get(), sql);
    if (!statement.failure().isEmpty()) return {statement.failure()};
    if (!statement.isQuery()) return {refusal};
    DatabaseResult complete = read(statement);
    if (complete) {
        database_ = connection.database_;
    } else {
        Close();
    }
    return complete;
}

DatabaseResult RecordSet::read(SqliteStatement& statement) {
    for (int i = 0; i < statement.columnCount(); ++i)
        columns_.push_back(
            {statement.columnName(i), statement.tableName(i), statement.originName(i)});
    qsizetype size = 0;
    while (statement.step()) {
        Row row;
        for (int i = 0; i < statement.columnCount(); ++i) {
            row.push_back(statement.text(i));
            size += kFieldCost + row.back().size();
        }
        if (size > kLargestSet) return {QStringLiteral("there are too many rows")};
        rows_.push_back(std::move(row));
    }
    return {statement.failure()};
}

void RecordSet::Close() {
    *this = RecordSet();
}

void RecordSet::MoveFirst() {
    changes_.clear();
    current_ = 0;
}

void RecordSet::MoveNext() {
    changes_.clear();
    if (!isEof()) ++current_;
}

std::size_t RecordSet::find(const QString& name) const {
    const auto column = std::find_if(columns_.begin(), columns_.end(), [&](const Column& each) {
        return each.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return std::size_t(column - columns_.begin());
}

QString RecordSet::Fields(const QString& name) const {
    const std::size_t column = find(name);
    if (isEof() || column == columns_.size()) return {};
    const auto change = changes_.find(column);
    return change == changes_.end() ? rows_[current_][column] : change->second;
}

void RecordSet::SetFields(const QString& name, const QString& text) {
    const std::size_t column = find(name);
    if (!isEof() && column < columns_.size()) changes_[column] = text;
}

/// The columns that hold the primary key of a table; none if one of them is missing.
std::vector<std::size_t> RecordSet::primaryKey(sqlite3* database, const QString& table) const {
    SqliteStatement names(database, "SELECT name FROM pragma_table_info(?) WHERE pk > 0");
    names.bind(table);
    std::vector<std::size_t> key;
    while (names.step()) {
        const auto column = std::find_if(columns_.begin(), columns_.end(), [&](const Column& each) {
            return each.table == table && each.origin == names.text(0);
        });
        if (column == columns_.end()) return {};
        key.push_back(std::size_t(column - columns_.begin()));
    }
    return key;
}

/// Empty when the set fields are not all columns of `table`.
QString RecordSet::updateStatement(const QString& table,
                                   const std::vector<std::size_t>& key) const {
    QStringList set;
    QStringList where;
    for (const auto& [column, text] : changes_) {
        if (columns_[column].table != table) return {};
        set += columns_[column].origin;
    }
    for (const std::size_t column : key) where += columns_[column].origin;
    return "UPDATE " + quoted(table) + " SET " + equations(set, ", ") + " WHERE " +
           equations(where, " AND ");
}

DatabaseResult RecordSet::Update() {
    if (isEof()) return {QStringLiteral("there is no current row")};
    if (changes_.empty()) return {};
    const std::shared_ptr<sqlite3> database = database_.lock();
    if (!database) return closed();
    const QString& table = columns_[changes_.begin()->first].table;
    const std::vector<std::size_t> key = primaryKey(database.get(), table);
    const QString sql = updateStatement(table, key);
    if (key.empty() || sql.isEmpty()) return {QStringLiteral("the row cannot be written")};

    SqliteStatement update(database.get(), sql);
    for (const auto& [column, text] : changes_) update.bind(text);
    for (const std::size_t column : key) update.bind(rows_[current_][column]);
    update.step();
    if (!update.failure().isEmpty()) return {update.failure()};
    if (sqlite3_changes(database.get()) != 1)
        return {QStringLiteral("the row is not there any longer")};
    for (auto& [column, text] : changes_) rows_[current_][column] = std::move(text);
    changes_.clear();
    return {};
}

}  // namespace brindlex
