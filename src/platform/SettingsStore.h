#pragma once

#include <QString>

namespace brindlex {

/// The per-user store of settings: (application, section, key) -> text. Nothing in it reports a
/// failure: what cannot be read is the empty text, what cannot be written is dropped.
class SettingsStore {
  public:
    /// The user's own store.
    SettingsStore();
    /// A store in a folder of its own.
    explicit SettingsStore(QString folder);

    /// The stored text; empty when there is none.
    QString read(const QString& application, const QString& section, const QString& key) const;
    /// Creates or replaces the text of a key.
    void write(const QString& application, const QString& section, const QString& key,
               const QString& value);

  private:
    QString folder_;  // empty: the user's own
};

}  // namespace brindlex
