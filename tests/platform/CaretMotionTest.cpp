#include "platform/CaretMotion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

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
    Offset lineStart(Offset offset) const {
        const auto feed =
            offset.value() == 0 ? std::string::npos : text.rfind('\n', offset.value() - 1);
        return Offset(feed == std::string::npos ? 0 : feed + 1);
    }
    Offset lineEnd(Offset offset) const {
        return Offset(std::min(text.find("\r\n", offset.value()), text.size()));
    }

    std::string text;
    Offsets starts;  ///< of characters, and the end
    Offsets words;   ///< where words, runs of blanks or signs and breaks start, and the end
    Offsets stops;   ///< where moves by words may stop
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
        const Model model(randomText(random));
        const Rope rope(model.text);
        const CaretMotion motion(rope, table());
        for (const Offset at : model.starts) {
            SCOPED_TRACE(at);
            if (random() % 4 != 0 && at.value() > 20) continue;
            ASSERT_EQ(motion.snapped(at), at);
            ASSERT_EQ(motion.next(at), model.after(model.starts, at));
            ASSERT_EQ(motion.previous(at), model.before(model.starts, at));
            ASSERT_EQ(motion.nextWord(at), model.after(model.stops, at));
            ASSERT_EQ(motion.previousWord(at), model.before(model.stops, at));
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
