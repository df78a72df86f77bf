#include "platform/CaretMotion.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace brindlex {
namespace {

const CharacterTable& table() {
    return CharacterTable::latin1();
}

/// The text cut into its words and breaks, by a walk from the front.
std::vector<Range> wordsOf(const std::string& text) {
    const auto kindAt = [&](std::size_t at) {
        if (text[at] == '\r' || text[at] == '\n') return 0;
        if (text[at] == ' ' || text[at] == '\t') return 1;
        return table().isWord(text[at]) ? 2 : 3;
    };
    std::vector<Range> words;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at + 1;
        while (end < text.size() && kindAt(end) == kindAt(at) &&
               (kindAt(at) != 0 || text[end] == '\n'))
            ++end;
        words.push_back({Offset(at), Offset(end)});
        at = end;
    }
    return words;
}

/// What the class under test answers, found by brute force.
struct Model {
    std::string text;
    std::vector<Range> words = wordsOf(text);

    bool isBreak(const Range& word) const { return text[word.begin().value()] == '\r'; }
    bool isBlank(const Range& word) const {
        return text[word.begin().value()] == ' ' || text[word.begin().value()] == '\t';
    }

    std::vector<Offset> characterStarts() const {
        std::vector<Offset> starts;
        for (std::size_t at = 0; at <= text.size(); ++at)
            if (at == 0 || at == text.size() || text[at] != '\n') starts.push_back(Offset(at));
        return starts;
    }
    Offset next(Offset from) const {
        for (const Offset start : characterStarts())
            if (start > from) return start;
        return from;
    }
    Offset previous(Offset from) const {
        Offset found(0);
        for (const Offset start : characterStarts())
            if (start < from) found = start;
        return found;
    }
    /// Starts of words, of breaks and of lines, and the end: where moves by words may stop. Blanks
    /// count as the tail of the word before them, but not at the start of a line.
    std::vector<Offset> wordStops() const {
        std::vector<Offset> stops{Offset(0)};
        for (std::size_t i = 0; i < words.size(); ++i)
            if (!isBlank(words[i]) || i == 0 || isBreak(words[i - 1]))
                stops.push_back(words[i].begin());
        stops.push_back(Offset(text.size()));
        return stops;
    }
    Offset nextWord(Offset from) const {
        for (const Offset stop : wordStops())
            if (stop > from) return stop;
        return from;
    }
    Offset previousWord(Offset from) const {
        Offset found(0);
        for (const Offset stop : wordStops())
            if (stop < from) found = stop;
        return found;
    }
    Range wordAt(Offset offset) const {
        Range before(offset, offset);
        for (const Range& word : words) {
            if (isBreak(word)) continue;
            if (word.begin() <= offset && offset < word.end()) return word;
            if (word.end() == offset) before = word;
        }
        return before;
    }
    Offset lineStart(Offset offset) const {
        const auto at =
            offset.value() == 0 ? std::string::npos : text.rfind('\n', offset.value() - 1);
        return Offset(at == std::string::npos ? 0 : at + 1);
    }
    Offset lineEnd(Offset offset) const {
        return Offset(std::min(text.find("\r\n", offset.value()), text.size()));
    }
};

/// Long runs, so that they cross the pieces that the rope is made of.
std::string randomText(std::mt19937& random) {
    const std::string alphabet[] = {"abc_Z9\xE9", " \t", "(){};!", "\r"};
    std::string text;
    while (text.size() < 2500) {
        const std::string& letters = alphabet[random() % 4];
        if (letters == "\r") {
            text += "\r\n";
            continue;
        }
        const std::size_t count = random() % 20 == 0 ? 600 : 1 + random() % 6;
        for (std::size_t i = 0; i < count; ++i) text += letters[random() % letters.size()];
    }
    return text;
}

TEST(CaretMotion, AnswersAsAWalkFromTheFrontDoes) {
    for (const unsigned seed : {1U, 2U, 3U, std::random_device{}()}) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const Model model{randomText(random)};
        const Rope rope(model.text);
        const CaretMotion motion(rope, table());
        for (const Offset at : model.characterStarts()) {
            SCOPED_TRACE(at);
            if (random() % 4 != 0 && at.value() > 20) continue;
            ASSERT_EQ(motion.snapped(at), at);
            ASSERT_EQ(motion.next(at), model.next(at));
            ASSERT_EQ(motion.previous(at), model.previous(at));
            ASSERT_EQ(motion.nextWord(at), model.nextWord(at));
            ASSERT_EQ(motion.previousWord(at), model.previousWord(at));
            ASSERT_EQ(motion.wordAt(at), model.wordAt(at));
            ASSERT_EQ(motion.lineStart(at), model.lineStart(at));
            ASSERT_EQ(motion.lineEnd(at), model.lineEnd(at));
        }
    }
}

TEST(CaretMotion, LeavesTheMiddleOfALineBreak) {
    const Rope rope("a\r\nb");
    const CaretMotion motion(rope, table());
    const Offset middle(2);
    EXPECT_EQ(motion.snapped(middle), Offset(1));
    EXPECT_EQ(motion.next(middle), Offset(3));
    EXPECT_EQ(motion.previous(middle), Offset(1));
    EXPECT_EQ(motion.lineStart(middle), Offset(0));
    EXPECT_EQ(motion.lineEnd(middle), Offset(1));
    EXPECT_EQ(motion.snapped(Offset(99)), Offset(4));
}

}  // namespace
}  // namespace brindlex
