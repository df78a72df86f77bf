#pragma once

#include <QString>
#include <functional>

#include "system/Connection.h"
#include "system/RecordSet.h"

namespace brindlex {

/// A command of the script language, as the reference tells it.
struct ReferenceRow {
    QString command;
    QString usage;
    QString description;
};

/// The reference of all script commands, scriptref.mdb in the program's folder.
class ReferenceDatabase {
  public:
    explicit ReferenceDatabase(QString programFolder);

    bool exists() const;
    /// Opens DbConnection, which answers usageOf, if the file is there. A failure shows when the
    /// reference is read.
    void open();
    void close();
    /// The usage line of a word; empty when there is none.
    QString usageOf(const QString& word);
    /// Gives all commands to `take`, category by category, in the order of the table. Stops at the
    /// first failure.
    DatabaseResult read(
        const std::function<void(std::size_t category, const ReferenceRow& row)>& take) const;

  private:
    QString path() const;

    QString programFolder_;
    Connection DbConnection_;
    RecordSet DbRecordset_;
};

}  // namespace brindlex
