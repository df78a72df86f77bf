#include "bench/ScriptGenerator.h"

#include <array>
#include <random>
#include <string_view>

namespace brindlex::bench {
namespace {

class Generator {
  public:
    std::string script(std::size_t bytes) {
        text_.reserve(bytes + 4096);
        while (text_.size() < bytes) block();
        return std::move(text_);
    }

  private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    std::string number(std::size_t limit) { return std::to_string(below(limit)); }

    template <std::size_t n>
    std::string_view oneOf(const std::array<std::string_view, n>& words) {
        return words[below(n)];
    }

    void line(std::size_t depth, const std::string& content) {
        text_.append(depth, '\t').append(content).append("\r\n");
    }

    std::string name() {
        static constexpr std::array<std::string_view, 8> kStems{
            "tank", "gate", "bridge", "west_bunker", "truck", "wall", "cp", "depot"};
        return std::string(oneOf(kStems)) + "_" + number(400);
    }

    void block() {
        line(0, "// " + name() + ": built, destroyed and announced to both teams");
        line(0, name());
        line(0, "{");
        const std::size_t events = 1 + below(5);
        for (std::size_t i = 0; i < events; ++i) event();
        line(0, "}");
        line(0, "");
    }

    void event() {
        static constexpr std::array<std::string_view, 6> kEvents{
            "spawn", "death", "built final", "trigger", "buildstart final", "destroyed"};
        std::string head(oneOf(kEvents));
        if (head == "trigger") head += " " + name();
        line(1, head);
        line(1, "{");
        const std::size_t actions = 2 + below(9);
        for (std::size_t i = 0; i < actions; ++i) line(2, action());
        line(1, "}");
    }

    std::string action() {
        switch (below(9)) {
            case 0:
                return "wait " + number(5000);
            case 1:
                return "setstate " + name() + " invisible";
            case 2:
                return "trigger " + name() + " " + name();
            case 3:
                return "wm_announce \"The " + name() + " has been destroyed!\"";
            case 4:
                return "accum " + number(8) + " abort_if_not_equal " + number(3);
            case 5:
                return "globalaccum " + number(8) + " inc 1";
            case 6:
                return "// " + name() + " waits for the " + name() + " here";
            case 7:
                return "gotomarker " + name() + " " + number(300) + " wait relative";
            default:
                return "alertentity " + name() + "\t// once a round";
        }
    }

    std::mt19937 random_{20031};
    std::string text_;
};

}  // namespace

std::string generateScript(std::size_t bytes) {
    return Generator().script(bytes);
}

}  // namespace brindlex::bench
