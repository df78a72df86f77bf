#pragma once

#include <QString>
#include <QStringList>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brindlex {

class CodePage;

/// The names by which scripts address the entities of a map, by entity class.
struct MapEntities {
    /// Between key and value of a record.
    static constexpr QLatin1String kSeparator{" - "};
    struct Class {
        QString name;
        QStringList records;  ///< "<key> - <value>", in the order of the file
    };
    std::vector<Class> classes;  ///< in the order in which the file first has an entity of theirs
};

/// Reads the text of a map, given piece by piece. An entity is a line that begins with "// entity",
/// a line that is skipped, and the lines behind it that begin with a double quote; all other lines
/// are passed over. Of the key lines, those whose key begins with "classname", "scriptname" or
/// "target" are records. Entities with one record are left out: no script addresses them.
///
/// Takes one pass, and no memory but for the records and the longest key line or comment.
class MapReader {
  public:
    /// The text is in `codePage`, which outlives the reader.
    explicit MapReader(const CodePage& codePage) : codePage_(codePage) {}

    /// The next bytes, cut anywhere. Lines end in LF or CR LF.
    void take(std::string_view piece);
    /// The text is at its end. An entity whose last key line is the end of the text is dropped.
    /// To be called once, as the last.
    MapEntities finish();

  private:
    struct Record {
        QString text;  // empty: it only names the class
        std::optional<QString> className;
    };
    using Records = std::vector<Record>;
    enum class Expected { Marker, Brace, KeyLine };

    static void fillClassNames(Records& records);
    void hold(std::string_view part);
    void takeLine(std::string_view line);
    void takeKeyLine(std::string_view line);
    void endEntity();
    void endRun();
    MapEntities::Class& classNamed(const QString& name);

    const CodePage& codePage_;
    /// The line that the last piece ended in, as far as it is there; without text if none of it
    /// will be looked at.
    std::optional<std::string> held_;
    Expected expected_ = Expected::Marker;
    std::string number_;  // of the entity being read
    Records entity_;
    /// The records since the entity number last changed. Neighbours of the same number count as
    /// one entity.
    Records run_;
    std::string runNumber_;
    MapEntities entities_;
    std::unordered_map<QString, std::size_t> places_;  // of the classes, by name
};

/// The entities of a map file. Nothing when it cannot be read to its end (Files::readPieces).
std::optional<MapEntities> readMapEntities(const QString& path, const CodePage& codePage);

}  // namespace brindlex
