#pragma once

#include <QHash>
#include <QString>
#include <utility>
#include <vector>

namespace brindlex {

/// The per-user store of settings: (application, section, key) -> text. Any text comes back as it
/// was. Nothing reports a failure: what cannot be read is the empty text, and what cannot be
/// written is dropped, with the store on the disk left as it was.
///
/// An application has one file, its name with ".ini" behind it, in the toolkit's format.
class SettingsStore {
  public:
    using Values = std::vector<std::pair<QString, QString>>;
    /// Texts by their keys.
    using Section = QHash<QString, QString>;

    /// The user's own store.
    SettingsStore();
    /// A store in a folder of its own; the folder is made when it is first written to.
    explicit SettingsStore(QString folder);

    /// The stored text; empty when there is none. Sees what other programs wrote since.
    QString read(const QString& application, const QString& section, const QString& key) const;
    /// All texts of a section.
    Section readSection(const QString& application, const QString& section) const;
    /// Creates or replaces the text of a key. Waits for the disk.
    void write(const QString& application, const QString& section, const QString& key,
               const QString& value);
    /// Creates or replaces the texts of several keys at once: all or none of them.
    void write(const QString& application, const QString& section, const Values& values);

  private:
    QString pathOf(const QString& application) const;

    QString folder_;
};

}  // namespace brindlex
