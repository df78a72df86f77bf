#include "system/SettingsStore.h"

#include <QSettings>
#include <QStandardPaths>

namespace brindlex {
namespace {

/// The toolkit reads an unquoted text with commas, as a user may write it, as a list.
QString textOf(const QVariant& value) {
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QLatin1String(", "))
                                                    : value.toString();
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
    QSettings file(pathOf(application), QSettings::IniFormat);
    file.beginGroup(section);
    Section texts;
    for (const QString& key : file.childKeys()) texts.insert(key, textOf(file.value(key)));
    return texts;
}

void SettingsStore::write(const QString& application, const QString& section, const QString& key,
                          const QString& value) {
    write(application, section, {{key, value}});
}

void SettingsStore::write(const QString& application, const QString& section,
                          const Values& values) {
    QSettings file(pathOf(application), QSettings::IniFormat);
    file.beginGroup(section);
    for (const auto& [key, value] : values) file.setValue(key, value);
    file.sync();
}

}  // namespace brindlex
