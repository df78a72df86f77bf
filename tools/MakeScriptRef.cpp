#include <sqlite3.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "editor/ScriptSyntax.h"
#include "reference/Categories.h"
#include "system/SqliteStatement.h"

namespace {

using namespace brindlex;

using Row = std::array<QString, 4>;
const Row kColumns = {"CMD", "DESCR1", "DESCR2", "CAT"};

constexpr char kTables[] = R"(
    BEGIN;
    CREATE TABLE MAIN (CMD TEXT PRIMARY KEY NOT NULL, DESCR1 TEXT NOT NULL, DESCR2 TEXT NOT NULL,
                       CAT TEXT NOT NULL);
    CREATE TABLE BACKUP (CMD TEXT PRIMARY KEY NOT NULL, DESCR1 TEXT NOT NULL, DESCR2 TEXT NOT NULL,
                         CAT TEXT NOT NULL);)";
constexpr char kInsert[] = "INSERT INTO MAIN VALUES (?, ?, ?, ?)";
constexpr char kBackup[] = "INSERT INTO BACKUP SELECT * FROM MAIN ORDER BY rowid; COMMIT";

/// The rows of a table of texts, checked one by one as they are added. Each check gives the fault.
class Reference {
  public:
    QString add(const QString& line) {
        const QStringList fields = line.split('\t');
        if (fields.size() != int(kColumns.size())) return "a line has four fields";
        Row row;
        std::copy(fields.begin(), fields.end(), row.begin());
        for (std::size_t i = 0; i < row.size(); ++i)
            if (row[i].trimmed().isEmpty()) return kColumns[i] + " is empty";
        const auto& [command, usage, description, category] = row;
        if (command.simplified() != command || command.contains(' '))
            return "CMD is not one word: " + command;
        if (commands_.contains(command)) return "CMD stands there twice: " + command;
        if (!isCategory(category)) return "CAT is no category: " + category;
        if (++counts_[category] > kMostRows) return "the category is full: " + category;
        commands_.insert(command);
        rows_.push_back(std::move(row));
        return {};
    }

    QString missing() const {
        for (const Category& category : kCategories)
            if (!counts_.contains(category.name)) return "no row for the category " + category.name;
        for (const std::string& word : scriptKeywords()) {
            const QString keyword = QString::fromStdString(word);
            if (!word.empty() && !commands_.contains(keyword))
                return "no row for the keyword " + keyword;
        }
        return {};
    }

    const std::vector<Row>& rows() const { return rows_; }

  private:
    static bool isCategory(const QString& name) {
        return std::any_of(kCategories.begin(), kCategories.end(),
                           [&](const Category& category) { return category.name == name; });
    }

    std::vector<Row> rows_;
    QSet<QString> commands_;
    QHash<QString, int> counts_;
};

/// Reads the table; gives the fault with its line.
QString read(const QString& path, Reference& reference) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return path + ": " + file.errorString();
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    if (lines.back().isEmpty()) lines.pop_back();
    QString fault;
    if (lines.value(0) != QStringList(kColumns.begin(), kColumns.end()).join('\t'))
        fault = "the first line must name the columns";
    qsizetype line = 1;
    for (; fault.isEmpty() && line < lines.size(); ++line) fault = reference.add(lines[line]);
    if (!fault.isEmpty()) return QString("%1:%2: %3").arg(path).arg(line).arg(fault);
    const QString missing = reference.missing();
    return missing.isEmpty() ? missing : path + ": " + missing;
}

/// Makes a database of the rows; gives the fault.
QString write(const QString& path, const std::vector<Row>& rows) {
    sqlite3* opened = nullptr;
    sqlite3_open(path.toUtf8().constData(), &opened);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, sqlite3_close);
    int code = sqlite3_exec(opened, kTables, nullptr, nullptr, nullptr);
    for (const Row& row : rows) {
        SqliteStatement insert(opened, kInsert);
        for (const QString& field : row) insert.bind(field);
        insert.step();
        if (!insert.failure().isEmpty()) return path + ": " + insert.failure();
    }
    if (code == SQLITE_OK) code = sqlite3_exec(opened, kBackup, nullptr, nullptr, nullptr);
    return code == SQLITE_OK ? QString() : path + ": " + QString::fromUtf8(sqlite3_errmsg(opened));
}

/// Makes the database beside the old one and renames it.
QString replace(const QString& path, const std::vector<Row>& rows) {
    const QString beside = path + ".new";
    QFile::remove(beside);
    const QString fault = write(beside, rows);
    if (!fault.isEmpty()) return fault;
    QFile::remove(path + "-journal");  // it would be played back into the new file
    std::error_code error;
    std::filesystem::rename(beside.toStdU16String(), path.toStdU16String(), error);
    return error ? path + ": " + QString::fromStdString(error.message()) : QString();
}

}  // namespace

/// Usage: make_script_ref TABLE.tsv DATABASE
/// Makes the reference database. One that is no older than the table is left alone, for the user
/// may have edited it.
int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const QString table = QString::fromLocal8Bit(argv[1]);
    const QString database = QString::fromLocal8Bit(argv[2]);
    const QFileInfo old(database);
    if (old.exists() && old.lastModified() >= QFileInfo(table).lastModified()) return 0;
    Reference reference;
    QString fault = read(table, reference);
    if (fault.isEmpty()) fault = replace(database, reference.rows());
    if (!fault.isEmpty()) std::fprintf(stderr, "%s\n", qPrintable(fault));
    return fault.isEmpty() ? 0 : 1;
}
