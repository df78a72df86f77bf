#include "system/Connection.h"

#include <sqlite3.h>

#include <QFileInfo>
#include <QRegularExpression>

#include "system/Files.h"
#include "system/SqliteStatement.h"

namespace brindlex {
namespace {

constexpr int kBusyMilliseconds = 1000;
constexpr int kLongestText = 1 << 20;

/// A part behind the path holds no separator, so that a folder may have a ";" in its name.
QString dataSource(const QString& connectionText) {
    static const QRegularExpression pattern(
        R"((?:^|;)\s*Data Source\s*=\s*(.+?)\s*(?:;[^;=\\/]*=[^;\\/]*)*;?\s*$)",
        QRegularExpression::CaseInsensitiveOption);
    return pattern.match(connectionText).captured(1);
}

/// The file may come from anywhere: nothing in it runs but reading and writing rows of tables.
void restrain(sqlite3* database) {
    for (const int option : {SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_TRIGGER,
                             SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(database, option, 0, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, kLongestText);
    sqlite3_busy_timeout(database, kBusyMilliseconds);
}

DatabaseResult run(sqlite3* database, const QString& sql) {
    SqliteStatement statement(database, sql);
    statement.step();
    return {statement.failure()};
}

}  // namespace

Connection::Connection(QString text) : text_(std::move(text)) {}

DatabaseResult Connection::Open() {
    Close();
    const std::optional<QString> path = Files::resolve(dataSource(text_));
    if (!path || !QFileInfo(*path).isFile()) return {QStringLiteral("there is no such file")};
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(path->toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::shared_ptr<sqlite3> database(opened, sqlite3_close_v2);
    if (code != SQLITE_OK) return {QString::fromUtf8(sqlite3_errstr(code))};
    restrain(opened);
    DatabaseResult readable = run(opened, QStringLiteral("SELECT 1 FROM sqlite_master"));
    if (readable) database_ = database;
    return readable;
}

void Connection::Close() {
    database_.reset();
}

Transaction::Transaction(const Connection& connection) : database_(connection.database_) {
    if (database_) (void)run(database_.get(), QStringLiteral("BEGIN"));
}

Transaction::~Transaction() {
    if (database_ && !sqlite3_get_autocommit(database_.get()))
        (void)run(database_.get(), QStringLiteral("ROLLBACK"));
}

DatabaseResult Transaction::commit() {
    if (!database_) return {QStringLiteral("the connection is closed")};
    return run(database_.get(), QStringLiteral("COMMIT"));
}

}  // namespace brindlex
