#include "reference/ReferenceDatabase.h"

#include <utility>

#include "document/Paths.h"
#include "reference/Categories.h"

namespace brindlex {
namespace {

constexpr QLatin1String kProvider("Provider=Microsoft.Jet.OLEDB.4.0;");

}  // namespace

ReferenceDatabase::ReferenceDatabase(QString programFolder)
    : programFolder_(std::move(programFolder)),
      DbConnection_(kProvider + "Data Source= " + path()) {}

QString ReferenceDatabase::path() const {
    return programFolder_ + "\\scriptref.mdb";
}

bool ReferenceDatabase::exists() const {
    return FileExists(path());
}

void ReferenceDatabase::open() {
    if (exists()) std::ignore = DbConnection_.Open();
}

void ReferenceDatabase::close() {
    DbRecordset_.Close();
    DbConnection_.Close();
}

QString ReferenceDatabase::usageOf(const QString& word) {
    DbRecordset_.Close();
    const QString statement = "SELECT CMD, DESCR1 FROM MAIN WHERE CMD = '" + word + "'";
    const bool found = bool(DbRecordset_.Open(statement, DbConnection_, CursorType::Keyset,
                                              LockType::Pessimistic, CommandType::Text));
    return found ? DbRecordset_.Fields("DESCR1") : QString();
}

DatabaseResult ReferenceDatabase::read(
    const std::function<void(std::size_t category, const ReferenceRow& row)>& take) const {
    Connection PanelConn(kProvider + "Data Source=" + path() + ";Persist Security Info=False");
    DatabaseResult result = PanelConn.Open();
    RecordSet PanelRs;
    for (std::size_t category = 0; result && category < kCategories.size(); ++category) {
        const QString statement =
            QStringLiteral("SELECT * FROM MAIN WHERE [CAT] = '") + kCategories[category].name + "'";
        result = PanelRs.Open(statement, PanelConn, CursorType::Keyset, LockType::Optimistic,
                              CommandType::Text);
        for (; !PanelRs.isEof(); PanelRs.MoveNext())
            take(category,
                 {PanelRs.Fields("CMD"), PanelRs.Fields("DESCR1"), PanelRs.Fields("DESCR2")});
    }
    return result;
}

}  // namespace brindlex
