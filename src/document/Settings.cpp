#include "document/Settings.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <variant>

#include "document/AppState.h"

namespace brindlex {
namespace {

/// A flag that changes for "0" and "1" alone.
struct LastingFlag {
    bool AppState::*field;
};
struct Minutes {
    int AppState::*field;
};
/// A size of letters, 1 or more.
struct Points {
    int AppState::*field;
};
struct Color {
    std::size_t index;
};
using Field = std::variant<int AppState::*, bool AppState::*, QString AppState::*, LastingFlag,
                           Minutes, Points, Color>;

struct Setting {
    const char* key;
    const char* firstValue;  // null: the default colour of the field's index
    Field field;
};

Setting colorSetting(std::size_t index) {
    return {kUserColors[index].key, nullptr, Color{index}};
}

const Setting kSettings[] = {
    {"GetPreset", "1", &AppState::GetPreset},
    {"WolfDir", Settings::kFirstWolfDir, &AppState::WolfDir},
    {"ShowTreeView", "1", &AppState::ShowTreeView},
    {"AutoIndent", "1", &AppState::AutoIndent},
    {"AutoBlockIndent", "1", &AppState::AutoBlockIndent},
    {"TypeOther", "1", &AppState::TypeOther},
    {"AutoComplete", "1", &AppState::AutoComplete},
    {"AutoBackup", "1", &AppState::AutoBackup},
    {"AutoBackupMins", "3", Minutes{&AppState::AutoBackupMins}},
    colorSetting(0),
    colorSetting(1),
    colorSetting(2),
    colorSetting(3),
    colorSetting(4),
    {"FontName", "Courier New", &AppState::FontName},
    {"FontSize", "10", Points{&AppState::FontSize}},
    {"FontBold", "0", LastingFlag{&AppState::FontBold}},
    {"FontItalic", "0", &AppState::FontItalic},
    {"FontUnderline", "0", &AppState::FontUnderline},
    {"FontStrikeThru", "0", &AppState::FontStrikeThru},
};

QString firstValueOf(const Setting& setting, const AppState& state) {
    if (const Color* color = std::get_if<Color>(&setting.field))
        return state.DefaultColors[color->index];
    return QString::fromLatin1(setting.firstValue);
}

constexpr double kMinInteger = std::numeric_limits<std::int16_t>::min();
constexpr double kMaxInteger = std::numeric_limits<std::int16_t>::max();

/// A number, rounded to an Integer of 16 bits.
std::optional<int> wholeNumber(const QString& text) {
    bool ok = false;
    const double value = std::nearbyint(text.toDouble(&ok));
    if (!ok || !(value >= kMinInteger && value <= kMaxInteger)) return std::nullopt;
    return static_cast<int>(value);
}

/// Puts a stored text into the field that it belongs to; false, and nothing done, when the text is
/// not what the field takes.
struct Taker {
    AppState& state;
    const QString& text;

    bool operator()(int AppState::*field) const {
        const auto number = wholeNumber(text);
        if (number) state.*field = *number;
        return number.has_value();
    }
    bool operator()(bool AppState::*field) const {
        const auto number = wholeNumber(text);
        if (number) state.*field = *number == 1;
        return number.has_value();
    }
    bool operator()(QString AppState::*field) const {
        state.*field = text;
        return true;
    }
    bool operator()(LastingFlag flag) const {
        const auto number = wholeNumber(text);
        if (number) state.*flag.field = flagOf(*number).value_or(state.*flag.field);
        return number.has_value();
    }
    bool operator()(Minutes minutes) const {
        state.*minutes.field = leadingNumber(text);
        return true;
    }
    bool operator()(Points points) const {
        const bool isSize = wholeNumber(text).value_or(0) >= 1;
        return isSize && (*this)(points.field);
    }
    bool operator()(Color color) const {
        bool isColor = false;
        text.toInt(&isColor);
        if (isColor) state.ColorValues[color.index] = text;
        return isColor;
    }
};

struct TextOf {
    const AppState& state;

    QString operator()(int AppState::*field) const { return QString::number(state.*field); }
    QString operator()(bool AppState::*field) const { return QString::number(state.*field); }
    QString operator()(QString AppState::*field) const { return state.*field; }
    QString operator()(LastingFlag flag) const { return QString::number(state.*flag.field); }
    QString operator()(Minutes minutes) const { return QString::number(state.*minutes.field); }
    QString operator()(Points points) const { return QString::number(state.*points.field); }
    QString operator()(Color color) const { return state.ColorValues[color.index]; }
};

/// Writes every key with the value that `valueOf` gives its setting, all at once.
template <typename ValueOf>
void writeAll(SettingsStore& store, ValueOf valueOf) {
    SettingsStore::Values values;
    for (const Setting& setting : kSettings)
        values.emplace_back(QString::fromLatin1(setting.key), valueOf(setting));
    store.write(kProgram, Settings::kSection, values);
}

}  // namespace

bool Settings::isFirstRun(const SettingsStore& store) {
    return store.read(kProgram, kSection, kSettings[0].key).isEmpty();
}

void Settings::writeFirstRun(SettingsStore& store, const AppState& state) {
    writeAll(store, [&state](const Setting& setting) { return firstValueOf(setting, state); });
}

void Settings::read(const SettingsStore& store, AppState& state) {
    const SettingsStore::Section texts = store.readSection(kProgram, kSection);
    for (const Setting& setting : kSettings) {
        const auto text = texts.constFind(setting.key);
        if (text != texts.cend() && std::visit(Taker{state, *text}, setting.field)) continue;
        const QString firstValue = firstValueOf(setting, state);
        std::visit(Taker{state, firstValue}, setting.field);
    }
}

void Settings::write(SettingsStore& store, const AppState& state) {
    writeAll(store,
             [&state](const Setting& setting) { return std::visit(TextOf{state}, setting.field); });
}

std::optional<bool> flagOf(int number) {
    if (number != 0 && number != 1) return std::nullopt;
    return number == 1;
}

int leadingNumber(const QString& text) {
    const QString trimmed = text.trimmed();
    int end = 0;
    bool dot = false;
    for (; end < trimmed.size(); ++end) {
        const char16_t c = trimmed[end].unicode();
        const bool sign = end == 0 && (c == u'-' || c == u'+');
        if (!sign && !(c >= u'0' && c <= u'9') && (dot || c != u'.')) break;
        dot = dot || c == u'.';
    }
    // A lone sign or point is no number and gives 0.
    const double value = std::floor(trimmed.left(end).toDouble());
    return static_cast<int>(std::clamp(value, kMinInteger, kMaxInteger));
}

}  // namespace brindlex
