#pragma once

#include <QLatin1String>
#include <array>

namespace brindlex {

/// A category of commands: its name, which stands in the reference database, and the key of its
/// root in the reference panel.
struct Category {
    QLatin1String name;
    QLatin1String key;
};

inline constexpr std::array<Category, 14> kCategories = {{
    {QLatin1String("Level Interaction"), QLatin1String("LVL")},
    {QLatin1String("Spawn Related"), QLatin1String("SPAWN")},
    {QLatin1String("Game Control"), QLatin1String("GAMECTRL")},
    {QLatin1String("Accum Registers"), QLatin1String("ACCUM")},
    {QLatin1String("Control Structures"), QLatin1String("CTRL")},
    {QLatin1String("Entity Handling"), QLatin1String("ENTITY")},
    {QLatin1String("Message System"), QLatin1String("MSG")},
    {QLatin1String("Objective Handling"), QLatin1String("OBJ")},
    {QLatin1String("Models and Texture Related"), QLatin1String("MODELS")},
    {QLatin1String("Movement Related"), QLatin1String("MOVEMENT")},
    {QLatin1String("Command Post Related"), QLatin1String("CP")},
    {QLatin1String("Tank Related"), QLatin1String("TANK")},
    {QLatin1String("Construction Related"), QLatin1String("CONSTR")},
    {QLatin1String("Sound"), QLatin1String("SOUND")},
}};

/// The most rows that a category may have.
inline constexpr int kMostRows = 1001;

}  // namespace brindlex
