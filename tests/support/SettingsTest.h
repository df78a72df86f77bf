#pragma once

#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "system/SettingsStore.h"

namespace brindlex {

/// A test with a folder of its own, in which the settings of the program lie.
class SettingsTest : public testing::Test {
  protected:
    void put(const QString& key, const QString& value) {
        settings.write("Brindlex", "Options", key, value);
    }
    SettingsStore::Section stored() const { return settings.readSection("Brindlex", "Options"); }
    std::string stored(const QString& key) const { return stored().value(key).toStdString(); }

    TempFolder folder;
    SettingsStore settings{folder.path("settings")};
};

}  // namespace brindlex
