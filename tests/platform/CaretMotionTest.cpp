#include "platform/CaretMotion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "text/Random.h"

namespace brindlex {
namespace {

const CharacterTable& table() {
    return CharacterTable::latin1();
}

/// What the class under test answers, found by a walk from the front.
struct Model {
    explicit Model(std::string bytes) : text(std::move(bytes)) {
        for (std::size_t at = 0; at <= text.size(); ++at) {
            if (kindAt(at) == Kind::Feed) continue;
            starts.push_back(Offset(at));
            const Kind before = at == 0 ? Kind::Feed : kindAt(at - 1);
            const bool begins = kindAt(at) != before;
            if (begins) words.push_back(Offset(at));
            // blanks count as the tail of the word before them, but not at the start of a line
            if (begins && (kindAt(at) != Kind::Blank || before == Kind::Feed))
                stops.push_back(Offset(at));
        }
    }

    enum class Kind { Return, Feed, Blank, Word, Sign, End };
    Kind kindAt(std::size_t at) const {
        if (at == text.size()) return Kind::End;
        if (text[at] == '\r') return Kind::Return;
        if (text[at] == '\n') return Kind::Feed;
        if (text[at] == ' ' || text[at] == '\t') return Kind::Blank;
        return table().isWord(text[at]) ? Kind::Word : Kind::Sign;
    }
    using Offsets = std::vector<Offset>;
    static Offset after(const Offsets& places, Offset from) {
        const auto found =
            std::find_if(places.begin(), places.end(), [&](Offset place) { return place > from; });
        return found == places.end() ? from : *found;
    }
    static Offset before(const Offsets& places, Offset from) {
        const auto found = std::find_if(places.rbegin(), places.rend(),
                                        [&](Offset place) { return place < from; });
        return found == places.rend() ? Offset(0) : *found;
    }
    /// The word to the right, else the one to the left; line breaks are none.
    Range wordAt(Offset offset) const {
        const auto isText = [&](std::size_t at) { return kindAt(at) > Kind::Feed; };
        const std::size_t at = offset.value();
        if (at < text.size() && isText(at))
            return {before(words, offset + 1), after(words, offset)};
        if (at > 0 && isText(at - 1)) return {before(words, offset), offset};
        return {offset, offset};
    }

    std::string text;
    Offsets starts;  ///< of characters, and the end
    Offsets words;   ///< where words, runs of blanks or signs and breaks start, and the end
    Offsets stops;   ///< where moves by words may stop
};

/// Long runs, so that they cross the pieces that the rope is made of.
std::string randomText(test::Random& random) {
    const std::string alphabets[] = {"abc_Z9\xE9", " \t", "(){};!"};
    std::string text;
    while (text.size() < 2500) {
        const std::size_t length = random.oneIn(20) ? 600 : random.below(7);
        text += random.text(length, alphabets[random.below(3)]) + (random.oneIn(4) ? "\r\n" : "");
    }
    return text;
}

TEST(CaretMotion, AnswersAsAWalkFromTheFrontDoes) {
    for (const std::uint64_t seed : test::seeds(3)) {
        SCOPED_TRACE(seed);
        test::Random random(seed);
        const Model model(randomText(random));
        const Rope rope(model.text);
        const CaretMotion motion(rope, table());
        for (const Offset at : model.starts) {
            SCOPED_TRACE(at);
            if (!random.oneIn(4) && at.value() > 20) continue;
            ASSERT_EQ(motion.snapped(at), at);
            ASSERT_EQ(motion.next(at), model.after(model.starts, at));
            ASSERT_EQ(motion.previous(at), model.before(model.starts, at));
            ASSERT_EQ(motion.nextWord(at), model.after(model.stops, at));
            ASSERT_EQ(motion.previousWord(at), model.before(model.stops, at));
            ASSERT_EQ(motion.wordAt(at), model.wordAt(at));
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
