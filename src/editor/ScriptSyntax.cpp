#include "editor/ScriptSyntax.h"

#include <string_view>

#include "editor/KELP_RTBSyntax.h"

namespace brindlex {
namespace {

using Editor = KELP_RTBSyntax;

// The vocabulary, in groups of words with blanks between them. The blanks at the ends count: the
// words for completion are made by joining the groups as they stand.
constexpr std::string_view kEvents =
    " game_manager trigger activate buildstart built death decayed defused destroyed "
    "dynamited failed mg42 mount mg42 unmount message pain playerstart rebirth spawn ";
constexpr std::string_view kCommands =
    " setglobalfog spawnrubble setautospawn mu_fade mu_play mu_queue mu_start mu_stop "
    "wm_allied_respawntime wm_axis_respawntime wm_set_defending_team wm_set_round_timelimit "
    "cvar setdebuglevel wm_objective_status wm_number_of_objectives setchargetimefactor "
    "sethqstatus setdamagable settankammo constructible_chargebarreq constructible_class "
    "constructible_constructxpbonus constructible_destructxpbonus constructible_duration "
    "constructible_health constructible_weaponclass setmodelfrombrushmodel wm_endround accum "
    "globalaccum resetscript self global player activator wait random alertentity kill "
    "remove wm_announce_icon wm_announce wm_voiceannounce wm_setwinner "
    "wm_addteamvoiceannounce wm_removeteamvoiceannounce wm_teamvoiceannounce changemodel "
    "remapshader remapshaderflush setstate attachtotag abortmove attatchtotrain faceangles "
    "followpath followspline gotomarker halt setposition setrotation setspeed stoprotation "
    "freezeanimation playanim startanim unfreezeanimation allowtankenter allowtankexit "
    "disablespeaker enablespeaker fadeallsounds playsound stopsound togglespeaker";
constexpr std::string_view kAccumOperators =
    " bitreset bitset inc random set set_to_dynamitecount abortifwarmup abort_if_bitset "
    "abort_if_equal abort_if_greater_than abort_if_less_than abort_if_not_bitset "
    "abort_if_not_equal trigger_if_equal wait_while_equal ";
constexpr std::string_view kWaitWords = " wait random ";
constexpr std::string_view kExtraWords = "invisible default underconstruction ";
constexpr std::array kGroups = {kEvents, kCommands, kAccumOperators, kWaitWords, kExtraWords};

/// A group as a word list: a blank at each end.
std::string wordList(std::string_view group) {
    std::string list(group);
    if (!list.starts_with(' ')) list.insert(0, 1, ' ');
    if (!list.ends_with(' ')) list.push_back(' ');
    return list;
}

void applyColors(KELP_RTBSyntax& editor, const UserColorValues& colorValues) {
    for (std::size_t i = 0; i < kUserColorCount; ++i) {
        bool isNumber = false;
        const Long color = colorValues[i].toLongLong(&isNumber);
        if (isNumber) kUserColors[i].give(editor, color);
    }
}

}  // namespace

constinit const std::array<UserColor, kUserColorCount> kUserColors = {{
    {"Normal text", "Color0", "0", [](Editor& e, Long color) { e.SetColorOf_Normal(color); }},
    {"Comments", "Color1", "32768", [](Editor& e, Long color) { e.SetColorOf_Comments(color); }},
    {"Strings", "Color2", "192", [](Editor& e, Long color) { e.SetColorOf_Strings(color); }},
    {"Reserved words", "Color3", "8388608",
     [](Editor& e, Long color) {
         e.SetColorOf_ReservedWords(color);
         e.SetColorOf_ProceduresORFunctions(color);
     }},
    {"Operators", "Color4", "16711935",
     [](Editor& e, Long color) {
         e.SetColorOf_LogicalOperators(color);
         e.SetColorOf_Operators(color);
     }},
}};

void applyScriptSyntax(KELP_RTBSyntax& editor, const UserColorValues& colorValues) {
    applyColors(editor, colorValues);
    editor.SetSyntax_CommentChar("//");
    editor.SetSyntax_StringChar("\"");
    editor.SetSyntax_Delimiter(" ");
    editor.SetSyntax_Operators(wordList(kAccumOperators));
    editor.SetSyntax_LogicalOperators(wordList(kWaitWords));
    editor.SetSyntax_ReservedWords(wordList(kEvents));
    editor.SetSyntax_ProceduresORFunctions(wordList(kCommands));
    editor.ReColorize();
}

std::vector<std::string> scriptKeywords() {
    std::string joined;
    for (const std::string_view group : kGroups) joined += group;
    std::vector<std::string> words;
    std::size_t begin = 0;
    for (std::size_t blank = joined.find(' '); blank != std::string::npos;
         blank = joined.find(' ', begin)) {
        words.push_back(joined.substr(begin, blank - begin));
        begin = blank + 1;
    }
    words.push_back(joined.substr(begin));
    return words;
}

}  // namespace brindlex
