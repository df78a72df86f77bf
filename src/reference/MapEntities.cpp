#include "reference/MapEntities.h"

#include <algorithm>
#include <iterator>

#include "system/CodePage.h"
#include "system/Files.h"

namespace brindlex {
namespace {

constexpr std::string_view kMarker = "// entity";
constexpr std::string_view kClassName = "classname";
constexpr std::string_view kKeys[] = {kClassName, "scriptname", "target"};

/// What stands behind the last blank, without zeros in front, so that equal numbers are equal
/// texts. A CR at the end is no digit and stays out.
std::string numberOf(std::string_view marker) {
    std::string_view number = marker.substr(marker.rfind(' ') + 1);
    number = number.substr(0, number.find_first_not_of("-0123456789"));
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return std::string(number);
}

/// Cuts off the front of the line and the double quote behind it; nothing if it has none.
std::optional<std::string_view> cutAtQuote(std::string_view& line) {
    const std::size_t end = line.find('"');
    if (end == line.npos) return std::nullopt;
    const std::string_view front = line.substr(0, end);
    line.remove_prefix(end + 1);
    return front;
}

bool isWanted(std::string_view key) {
    return std::any_of(std::begin(kKeys), std::end(kKeys),
                       [key](std::string_view wanted) { return key.starts_with(wanted); });
}

}  // namespace

void MapReader::take(std::string_view piece) {
    while (!piece.empty()) {
        const std::size_t end = piece.find('\n');
        const std::string_view part = piece.substr(0, end);
        if (held_ || end == piece.npos) hold(part);
        if (end == piece.npos) return;
        takeLine(held_ ? *held_ : part);
        held_.reset();
        piece.remove_prefix(end + 1);
    }
}

void MapReader::hold(std::string_view part) {
    const bool isLookedAt = held_ ? !held_->empty() : part.front() == '/' || part.front() == '"';
    if (!held_) held_.emplace();
    if (isLookedAt) *held_ += part;
}

void MapReader::takeLine(std::string_view line) {
    switch (expected_) {
        case Expected::Marker:
            if (!line.starts_with(kMarker)) return;
            number_ = numberOf(line);
            expected_ = Expected::Brace;
            return;
        case Expected::Brace:
            expected_ = Expected::KeyLine;
            return;
        case Expected::KeyLine:
            if (line.starts_with('"')) return takeKeyLine(line.substr(1));
            endEntity();
            expected_ = Expected::Marker;
            return;
    }
}

void MapReader::takeKeyLine(std::string_view line) {
    if (!isWanted(line)) return;
    const auto key = cutAtQuote(line);
    cutAtQuote(line);
    const auto value = cutAtQuote(line);
    if (!value) return;
    const QString text =
        codePage_.toUnicode(*key) + MapEntities::kSeparator + codePage_.toUnicode(*value);
    // Where the name begins does not depend on the length of the key.
    constexpr auto nameAt = qsizetype(kClassName.size()) + MapEntities::kSeparator.size();
    if (key->starts_with(kClassName))
        entity_.push_back({{}, text.sliced(nameAt)});
    else
        entity_.push_back({text, {}});
}

/// A record without a class gets that of the nearest record in front that has one, else behind.
void MapReader::fillClassNames(Records& records) {
    const auto first = std::find_if(records.begin(), records.end(),
                                    [](const Record& record) { return record.className; });
    if (first == records.end()) return;
    std::optional<QString> current = first->className;
    for (Record& record : records) {
        if (record.className) current = record.className;
        record.className = current;
    }
}

void MapReader::endEntity() {
    if (entity_.empty()) return;
    if (number_ != runNumber_) endRun();
    runNumber_ = number_;
    fillClassNames(entity_);
    std::move(entity_.begin(), entity_.end(), std::back_inserter(run_));
    entity_.clear();
}

void MapReader::endRun() {
    if (run_.size() > 1) {
        fillClassNames(run_);
        for (const Record& record : run_) {
            const QString none = QStringLiteral("(no classname)");
            MapEntities::Class& itsClass = classNamed(record.className.value_or(none));
            if (!record.text.isEmpty()) itsClass.records += record.text;
        }
    }
    run_.clear();
}

MapEntities::Class& MapReader::classNamed(const QString& name) {
    const auto [place, isNew] = places_.try_emplace(name, entities_.classes.size());
    if (isNew) entities_.classes.push_back({name, {}});
    return entities_.classes[place->second];
}

MapEntities MapReader::finish() {
    if (held_) takeLine(*held_);
    endRun();
    return std::move(entities_);
}

std::optional<MapEntities> readMapEntities(const QString& path, const CodePage& codePage) {
    MapReader reader(codePage);
    const auto take = [&reader](std::string_view piece) { reader.take(piece); };
    return Files::readPieces(path, take) ? std::optional(reader.finish()) : std::nullopt;
}

}  // namespace brindlex
