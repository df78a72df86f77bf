#include "system/SqliteStatement.h"

#include <sqlite3.h>

namespace brindlex {
namespace {

constexpr std::chrono::seconds kLongest(1);
/// How many steps of its virtual machine SQLite makes between two looks at the clock.
constexpr int kStepsPerLook = 1000;

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* database, const QString& sql) : database_(database) {
    sqlite3_progress_handler(database, kStepsPerLook, &isLate, this);
    const QByteArray bytes = sql.toUtf8();
    const char* rest = bytes.constData();
    check(sqlite3_prepare_v2(database, rest, int(bytes.size()) + 1, &statement_, &rest));
    alone_ = QByteArray(rest, bytes.constEnd() - rest).trimmed().isEmpty();
}

SqliteStatement::~SqliteStatement() {
    sqlite3_finalize(statement_);
    sqlite3_progress_handler(database_, 0, nullptr, nullptr);
}

/// The clock starts at the first look, for a wait until the file is free comes before it.
int SqliteStatement::isLate(void* statement) {
    auto& deadline = static_cast<SqliteStatement*>(statement)->deadline_;
    const Clock::time_point now = Clock::now();
    if (!deadline) deadline = now + kLongest;
    return now > *deadline;
}

void SqliteStatement::check(int code) {
    const bool good = code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE;
    if (good || !failure_.isEmpty()) return;
    failure_ = code == SQLITE_INTERRUPT ? QStringLiteral("the statement took too long")
                                        : QString::fromUtf8(sqlite3_errmsg(database_));
}

bool SqliteStatement::isQuery() const {
    return statement_ && alone_ && sqlite3_stmt_readonly(statement_) && columnCount() > 0;
}

void SqliteStatement::bind(const QString& value) {
    if (!failure_.isEmpty()) return;
    const QByteArray bytes = value.toUtf8();
    check(sqlite3_bind_text(statement_, ++bound_, bytes.constData(), int(bytes.size()),
                            SQLITE_TRANSIENT));
}

bool SqliteStatement::step() {
    if (!failure_.isEmpty()) return false;
    const int code = sqlite3_step(statement_);
    check(code);
    return code == SQLITE_ROW;
}

int SqliteStatement::columnCount() const {
    return sqlite3_column_count(statement_);
}

QString SqliteStatement::text(int column) const {
    const unsigned char* bytes = sqlite3_column_text(statement_, column);
    return QString::fromUtf8(reinterpret_cast<const char*>(bytes),
                             sqlite3_column_bytes(statement_, column));
}

QString SqliteStatement::columnName(int column) const {
    return QString::fromUtf8(sqlite3_column_name(statement_, column));
}

QString SqliteStatement::tableName(int column) const {
    return QString::fromUtf8(sqlite3_column_table_name(statement_, column));
}

QString SqliteStatement::originName(int column) const {
    return QString::fromUtf8(sqlite3_column_origin_name(statement_, column));
}

}  // namespace brindlex
