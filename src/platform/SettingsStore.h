#pragma once

#include <QHash>
#include <QString>
#include <utility>
#include <vector>

namespace brindlex {

/// The per-user store of settings: (application, section, key) -> text. Nothing in it reports a
/// failure: what cannot be read is the empty text, what cannot be written is dropped, and the store
/// on the disk then stays as it was.
///
/// One file for each application, "Brindlex.ini", in UTF-8: "[section]" above lines of "key=text".
/// Any text comes back as it was: "\uXXXX" stands for a character that would not survive in a line,
/// "\\" for a backslash. Lines that are neither are passed over.
class SettingsStore {
  public:
    using Values = std::vector<std::pair<QString, QString>>;
    /// Texts by their keys.
    using Section = QHash<QString, QString>;

    /// The user's own store.
    SettingsStore();
    /// A store in a folder of its own; the folder is made when it is first written to.
    explicit SettingsStore(QString folder);

    /// The stored text; empty when there is none. Reads the file, so it sees what others wrote.
    QString read(const QString& application, const QString& section, const QString& key) const;
    /// All texts of a section, for the price of one. Of a key that stands twice, the first text.
    Section readSection(const QString& application, const QString& section) const;
    /// Creates or replaces the text of a key. Waits for the disk.
    void write(const QString& application, const QString& section, const QString& key,
               const QString& value);
    /// Creates or replaces the texts of several keys at once, in this order: all or none of them.
    void write(const QString& application, const QString& section, const Values& values);

  private:
    QString pathOf(const QString& application) const;

    QString folder_;
};

}  // namespace brindlex
