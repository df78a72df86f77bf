#pragma once

#include <QString>
#include <optional>

#include "system/SettingsStore.h"

namespace brindlex {

struct AppState;

/// The lasting preferences: twenty keys that the program reads at start and the options dialog
/// writes, all as text.
namespace Settings {

inline constexpr const char* kSection = "Options";
inline constexpr const char* kFirstWolfDir =
    "C:\\Program Files\\Wolfenstein - Enemy Territory\\etmain\\maps";

/// Whether nobody ever saved preferences in this store.
bool isFirstRun(const SettingsStore& store);
/// Writes every key with its first value.
void writeFirstRun(SettingsStore& store, const AppState& state);
/// Fills the fields of `state` from the store. A key that is missing or holds no number where one
/// belongs gives its first value; nothing is written.
void read(const SettingsStore& store, AppState& state);
/// Writes every key from the fields of `state`.
void write(SettingsStore& store, const AppState& state);

}  // namespace Settings

/// Off for 0, on for 1; unset for any other number, which leaves a flag as it was.
std::optional<bool> flagOf(int number);

/// The number that `text` begins with, rounded down; 0 if it begins with none ("12x" is 12). Cut to
/// the range of a 16-bit number.
int leadingNumber(const QString& text);

}  // namespace brindlex
