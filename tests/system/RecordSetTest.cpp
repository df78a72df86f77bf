#include "system/RecordSet.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include "support/PlainUser.h"
#include "support/TempFolder.h"

namespace brindlex {
namespace {

namespace fs = std::filesystem;

/// A folder with a database that was made without the code under test.
class RecordSetTest : public testing::Test {
  protected:
    RecordSetTest() {
        sql("CREATE TABLE MAIN (CMD TEXT PRIMARY KEY, DESCR1 TEXT, DESCR2 TEXT, CAT TEXT);"
            "INSERT INTO MAIN VALUES ('wait', 'wait <ms>', 'Waits 100%', 'Control Structures'),"
            "('accum', 'accum <n>', 'Counts', 'Accum Registers'),"
            "('Wait_for', 'x', 'Ünusual ''word''', 'Control Structures'),"
            "('halt', NULL, 'Stops', 'Movement Related');"
            "CREATE TABLE BACKUP AS SELECT CMD, DESCR1, DESCR2 FROM MAIN;");
        EXPECT_TRUE(connection.Open());
    }
    void sql(const char* statements, const std::string& name = "scriptref.mdb") const {
        sqlite3* database = nullptr;
        sqlite3_open(folder.at(name).c_str(), &database);
        EXPECT_EQ(sqlite3_exec(database, statements, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }
    Connection to(const std::string& name) const {
        return Connection("Provider=Any;Data Source= " + folder.path("\\" + name));
    }
    static DatabaseResult open(RecordSet& rows, const QString& source, const Connection& on) {
        const bool isTable = !source.isEmpty() && !source.contains(' ');
        return rows.Open(source, on, CursorType::Keyset, LockType::Pessimistic,
                         isTable ? CommandType::Table : CommandType::Text);
    }
    /// The texts of a field of all rows; the failure in brackets.
    static std::string read(const QString& source, const Connection& on, const char* field) {
        RecordSet rows;
        const DatabaseResult opened = open(rows, source, on);
        QStringList texts;
        for (rows.MoveFirst(); !rows.isEof(); rows.MoveNext()) texts += rows.Fields(field);
        rows.MoveNext();
        return (opened ? texts.join(' ') : '(' + opened.failure + ')').toStdString();
    }
    std::string commands(const QString& source = "MAIN") { return read(source, connection, "CMD"); }
    std::string descriptions() { return read("MAIN", connection, "DESCR2"); }

    const TempFolder folder;
    Connection connection = to("scriptref.mdb");
};

TEST_F(RecordSetTest, ConnectionTextsLeadToTheFile) {
    fs::create_directory(folder.at("a; b=c"));
    fs::copy(folder.at("scriptref.mdb"), folder.at("a; b=c/scriptref.mdb"));
    for (const char* text : {"Any;Data Source= %1\\scriptref.mdb", "data source=%1/ScriptRef.MDB;",
                             "Any;Data Source=%1\\scriptref.mdb;Persist Security Info=False",
                             "Data Source=%1\\a; b=c\\scriptref.mdb;Persist Security Info=False"})
        EXPECT_TRUE(Connection(QString(text).arg(folder.path())).Open()) << text;
    for (const char* text : {"", "scriptref.mdb", "Data Source=", "Data Source=:memory:"})
        EXPECT_FALSE(Connection(text).Open()) << text;
}

TEST_F(RecordSetTest, StatementsFindTheirRows) {
    const QString from = "SELECT CMD, DESCR1, DESCR2 FROM MAIN";
    const std::pair<QString, const char*> cases[] = {
        {"MAIN", "wait accum Wait_for halt"},
        {from, "wait accum Wait_for halt"},
        {"SELECT * FROM MAIN WHERE [CAT] = 'Control Structures'", "wait Wait_for"},
        {"SELECT * FROM MAIN WHERE [CAT] = 'control structures'", ""},
        {"SELECT CMD, DESCR1 FROM MAIN WHERE CMD = 'wait'", "wait"},
        {from + " WHERE CMD Like '%WAIT%'", "wait Wait_for"},
        {from + " WHERE CMD LIKE '%a%' AND DESCR1 LIKE '%<%' AND DESCR2 LIKE '%s%'", "wait accum"},
        {from + " WHERE DESCR2 LIKE '%ünu%'", ""},
        {from + " WHERE CMD Like '%t_f%'", "Wait_for"},
        {" select CMD from MAIN where CMD = 'halt' ; ", "halt"},
    };
    for (const auto& [statement, expected] : cases)
        EXPECT_EQ(commands(statement), expected) << statement.toStdString();
    EXPECT_EQ(read(from, connection, "descr1"), "wait <ms> accum <n> x ") << "null is empty";
    EXPECT_EQ(read(from, connection, "CAT"), "   ");
}

TEST_F(RecordSetTest, WhatIsNoSingleSelectIsRefusedAndDoesNotRun) {
    const std::string before = folder.get("scriptref.mdb");
    const QString statements[] = {"",
                                  "DELETE FROM MAIN",
                                  "PRAGMA journal_mode = WAL",
                                  "SELECT CMD FROM MAIN; DELETE FROM MAIN",
                                  "SELECT CMD FROM MAIN;" + QString(QChar(0)) + "DELETE FROM MAIN",
                                  "SELECT CMD FROM MAIN WHERE CMD = 'it's'",
                                  "SELECT CMD FROM MAIN WHERE CMD = 'x'; DROP TABLE MAIN; --'",
                                  "ATTACH '" + folder.path("new.mdb") + "' AS other",
                                  "EXPLAIN SELECT CMD FROM MAIN",
                                  "BEGIN EXCLUSIVE",
                                  "WITH x AS (SELECT 1) DELETE FROM MAIN",
                                  "SELECT CMD FROM",
                                  "SELECT load_extension('x')",
                                  "MAIN;DELETE"};
    for (const QString& statement : statements)
        EXPECT_EQ(commands(statement).front(), '(') << statement.toStdString();
    EXPECT_EQ(folder.get("scriptref.mdb"), before);
    EXPECT_EQ(folder.count(), 1);
    const QString endless =
        "SELECT %1 FROM (WITH RECURSIVE n(i) AS "
        "(SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n)";
    EXPECT_EQ(commands(endless.arg("count(i)")), "(the statement took too long)");
    EXPECT_EQ(commands(endless.arg("i")).front(), '(');
    EXPECT_EQ(commands(), "wait accum Wait_for halt");
}

TEST_F(RecordSetTest, UpdateWritesTheRowOfTheKey) {
    RecordSet rows;
    ASSERT_TRUE(open(rows, "SELECT DESCR2 AS d, CMD FROM MAIN WHERE CAT LIKE 'c%'", connection));
    rows.SetFields("d", "dropped by the move");
    rows.MoveNext();
    sql("UPDATE MAIN SET rowid = rowid + 10; DELETE FROM MAIN WHERE CMD = 'wait'");
    rows.SetFields("d", "it's; \"Ü\" ? 地");
    EXPECT_EQ(rows.Fields("D"), "it's; \"Ü\" ? 地");
    EXPECT_TRUE(rows.Update());
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields("d"), "Waits 100%");
    rows.SetFields("d", "x");
    EXPECT_FALSE(rows.Update()) << "the row is gone";
    for (const char* source :
         {"SELECT DESCR2 FROM MAIN", "SELECT CMD, DESCR2 || '' AS DESCR2 FROM MAIN", "BACKUP",
          "SELECT CMD, DESCR2 FROM MAIN WHERE CMD = 'none'", "MAIN"}) {
        ASSERT_TRUE(open(rows, source, connection));
        rows.SetFields("DESCR2", "x");
        if (QString(source) == "MAIN") connection.Close();
        EXPECT_FALSE(rows.Update()) << source;
    }
    EXPECT_TRUE(connection.Open());
    EXPECT_EQ(descriptions(), "Counts it's; \"Ü\" ? 地 Stops");
}

TEST_F(RecordSetTest, ConnectionsShareTheFileAndATransactionIsWhole) {
    Connection second = to("scriptref.mdb");
    ASSERT_TRUE(second.Open());
    const std::string before = descriptions();
    for (const bool commit : {false, true}) {
        Transaction transaction(second);
        RecordSet rows;
        ASSERT_TRUE(open(rows, "MAIN", second));
        for (; !rows.isEof(); rows.MoveNext()) {
            rows.SetFields("DESCR2", "a");
            EXPECT_TRUE(rows.Update());
        }
        EXPECT_EQ(read("MAIN", second, "DESCR2"), "a a a a");
        EXPECT_EQ(descriptions(), before);
        EXPECT_TRUE(!commit || transaction.commit());
    }
    EXPECT_EQ(descriptions(), "a a a a");
}

// --- Bad input -----------------------------------------------------------------------------------

TEST_F(RecordSetTest, WhatIsNotTheDatabaseFailsWithAReason) {
    folder.put("empty", "");
    folder.put("text", std::string(5000, 'x'));
    folder.put("folder/x", "");
    mkfifo(folder.at("pipe").c_str(), 0666);
    sql("CREATE TABLE OTHER (A)", "other");
    sql("CREATE VIEW MAIN AS SELECT 1 AS CMD", "view");
    sql("CREATE TABLE MAIN (A, CMD AS (zeroblob(500000000))); INSERT INTO MAIN VALUES (1)", "big");
    sql("CREATE TABLE MAIN (CMD); INSERT INTO MAIN WITH RECURSIVE n(i) AS "
        "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 999) SELECT zeroblob(i) FROM n",
        "cut");
    fs::resize_file(folder.at("cut"), fs::file_size(folder.at("cut")) / 2);
    const std::ptrdiff_t count = folder.count();
    const std::pair<const char*, const char*> cases[] = {
        {"missing", "there is no such file"},        {"folder", "there is no such file"},
        {"pipe", "there is no such file"},           {"empty", "no such table: MAIN"},
        {"text", "file is not a database"},          {"other", "no such table: MAIN"},
        {"cut", "database disk image is malformed"}, {"view", "access to view \"MAIN\" prohibited"},
        {"big", "string or blob too big"},
    };
    for (const auto& [name, reason] : cases) {
        Connection bad = to(name);
        RecordSet rows;
        DatabaseResult result = bad.Open();
        if (result) result = open(rows, "MAIN", bad);
        EXPECT_EQ(result.failure, reason) << name;
    }
    EXPECT_EQ(folder.count(), count) << "a file was made";
}

TEST_F(RecordSetTest, AFileOrFolderThatTakesNoWriteCanBeRead) {
    for (const auto& [ofFolder, ofFile] : {std::pair(0777U, 0444U), std::pair(0555U, 0666U)}) {
        chmod(folder.at().c_str(), ofFolder);
        chmod(folder.at("scriptref.mdb").c_str(), ofFile);
        EXPECT_TRUE(asPlainUser([&] {
            RecordSet rows;
            if (!connection.Open() || !open(rows, "MAIN", connection)) return false;
            rows.SetFields("DESCR2", "x");
            return !rows.Update() && descriptions().starts_with("Waits");
        })) << ofFolder;
    }
    chmod(folder.at().c_str(), 0777);
}

TEST_F(RecordSetTest, ALockedFileIsGivenUp) {
    RecordSet rows;
    ASSERT_TRUE(open(rows, "MAIN", connection));
    rows.SetFields("DESCR2", "x");
    sqlite3* other = nullptr;
    sqlite3_open(folder.at("scriptref.mdb").c_str(), &other);
    sqlite3_exec(other, "BEGIN; UPDATE MAIN SET DESCR2 = 'half'", nullptr, nullptr, nullptr);
    EXPECT_EQ(rows.Update().failure, "database is locked");
    EXPECT_EQ(commands(), "wait accum Wait_for halt");
    sqlite3_exec(other, "ROLLBACK; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    EXPECT_EQ(commands(), "(database is locked)");
    EXPECT_EQ(connection.Open().failure, "database is locked");
    sqlite3_close(other);
}

}  // namespace
}  // namespace brindlex
