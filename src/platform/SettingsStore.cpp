#include "platform/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <optional>
#include <tuple>
#include <utility>

#include "platform/Files.h"

namespace brindlex {
namespace {

struct Entry {
    QString section;
    QString key;
    QString value;
};
using Entries = std::vector<Entry>;

constexpr QLatin1String kNoSpecials("");
/// Characters that end a key or would make its line another kind of line.
constexpr QLatin1String kKeySpecials("=[;");

QString escaped(const QString& text, QLatin1String specials) {
    QString line;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool edge = i == 0 || i + 1 == text.size();
        const bool unsafe =
            c.unicode() < 0x20 || c.isSurrogate() || (edge && c.isSpace()) || specials.contains(c);
        if (unsafe)
            line += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            line += c == '\\' ? QStringLiteral("\\\\") : QString(c);
    }
    return line;
}

/// The character of an escape "uXXXX" at the start of `rest`, if that is what stands there.
std::optional<QChar> escapedCharacter(QStringView rest) {
    bool isHex = false;
    const ushort unit = rest.mid(1, 4).toUShort(&isHex, 16);
    const bool found = isHex && rest.size() >= 5 && rest[0] == 'u';
    return found ? std::optional(QChar(unit)) : std::nullopt;
}

QString unescaped(QStringView line) {
    QString text;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QStringView rest = line.sliced(i + 1);
        const auto character = line[i] == '\\' ? escapedCharacter(rest) : std::nullopt;
        text += character.value_or(line[i]);
        if (character)
            i += 5;
        else if (line[i] == '\\' && rest.startsWith('\\'))
            ++i;
    }
    return text;
}

Entries parse(const QString& text) {
    Entries entries;
    QString section;
    for (QStringView line : QStringView(text).split('\n')) {
        line = line.trimmed();
        const qsizetype equals = line.indexOf('=');
        if (line.startsWith('[') && line.endsWith(']'))
            section = unescaped(line.sliced(1, line.size() - 2));
        else if (equals > 0 && !line.startsWith(';'))
            entries.push_back({section, unescaped(line.first(equals).trimmed()),
                               unescaped(line.sliced(equals + 1).trimmed())});
    }
    return entries;
}

QString print(const Entries& entries) {
    QString text;
    const QString* section = nullptr;
    for (const Entry& entry : entries) {
        if (!section || *section != entry.section)
            text += '[' + escaped(entry.section, kNoSpecials) + "]\n";
        section = &entry.section;
        text += escaped(entry.key, kKeySpecials) + '=' + escaped(entry.value, kNoSpecials) + '\n';
    }
    return text;
}

/// Replaces a value, or adds it at the end of its section. Whether the entries changed.
bool put(Entries& entries, const Entry& entry) {
    auto place = entries.end();
    for (auto other = entries.begin(); other != entries.end(); ++other) {
        if (other->section != entry.section) continue;
        if (other->key == entry.key) return std::exchange(other->value, entry.value) != entry.value;
        place = other + 1;
    }
    entries.insert(place, entry);
    return true;
}

/// Nothing when there is a file that cannot be read.
std::optional<Entries> load(const QString& path) {
    const std::optional<std::string> bytes = Files::read(path);
    if (bytes) return parse(QString::fromStdString(*bytes));
    return QFileInfo::exists(path) ? std::nullopt : std::optional(Entries{});
}

}  // namespace

SettingsStore::SettingsStore()
    : SettingsStore(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)) {}

SettingsStore::SettingsStore(QString folder) : folder_(std::move(folder)) {}

QString SettingsStore::pathOf(const QString& application) const {
    return folder_ + '/' + application + QLatin1String(".ini");
}

QString SettingsStore::read(const QString& application, const QString& section,
                            const QString& key) const {
    return readSection(application, section).value(key);
}

SettingsStore::Section SettingsStore::readSection(const QString& application,
                                                  const QString& section) const {
    Section texts;
    for (const Entry& entry : load(pathOf(application)).value_or(Entries{}))
        if (entry.section == section && !texts.contains(entry.key))
            texts.insert(entry.key, entry.value);
    return texts;
}

void SettingsStore::write(const QString& application, const QString& section, const QString& key,
                          const QString& value) {
    write(application, section, {{key, value}});
}

void SettingsStore::write(const QString& application, const QString& section,
                          const Values& values) {
    const QString path = pathOf(application);
    std::optional<Entries> entries = load(path);
    if (!entries) return;
    bool changed = false;
    for (const auto& [key, value] : values)
        changed = put(*entries, {section, key, value}) || changed;
    if (!changed) return;
    QDir().mkpath(folder_);
    // What cannot be written is dropped.
    std::ignore = Files::write(path, print(*entries).toStdString());
}

}  // namespace brindlex
