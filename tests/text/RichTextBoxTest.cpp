#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <regex>
#include <span>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "text/Random.h"
#include "text/RichTextBox.h"

namespace brindlex {
namespace {

using Box = RichTextBox;

/// What a box tells its observer and its handlers, in that order.
class Log : public RichTextObserver {
  public:
    void textChanged(const TextEdit& edit) override {
        add("text", edit.removed, edit.inserted, edit.removedBreaks, edit.insertedBreaks,
            edit.line);
    }
    void formatChanged(Range range) override { add("format", range); }
    void selectionChanged() override { add("selection"); }

    template <typename... Parts>
    void add(const Parts&... parts) {
        ((text_ << parts << ' '), ...);
    }
    std::string take() { return std::exchange(text_, {}).str(); }

    int depth = 0;  // of handlers within handlers

  private:
    std::ostringstream text_;
};

/// A format as one number: the colour, and above it a bit for each of the other fields.
char32_t lookOf(CharFormat format) {
    return format.color | format.bold << 24U | format.italic << 25U | format.underline << 26U |
           format.strikeThrough << 27U;
}

/// A RichTextBox of a plain string and a string with the look of each byte, which works everything
/// out anew each time.
class Model {
  public:
    explicit Model(Log& log) : log_(log) {}

    std::function<void()> onSelChange;
    std::function<void()> onChange;

    void SetText(const std::string& incoming) {
        const std::string in = fitting(incoming, 0, text.size());
        put(0, text.size(), in, std::u32string(in.size(), 0), 0);
    }
    Long SelStart() const { return static_cast<Long>(begin()); }
    Long SelLength() const { return static_cast<Long>(end() - begin()); }
    void SetSelStart(Long start) { select(offset(start), offset(start)); }
    void SetSelLength(Long length) { select(Offset(begin()), offset(length) + begin()); }
    void select(Offset anchorOffset, Offset caretOffset) {
        if (!moveTo(cut(anchorOffset), cut(caretOffset))) return;
        log_.selectionChanged();
        if (onSelChange) onSelChange();
    }
    void SetSelText(const std::string& incoming) {
        const auto [from, to] = whole(begin(), end());
        const std::string in = fitting(incoming, from, to);
        insert(from, to, in);
    }

    bool userReplace(Range range, const std::string& incoming) {
        const auto [from, to] = whole(cut(range.begin()), cut(range.end()));
        const std::string in = fitting(incoming, from, to);
        if (locked_ || (in.empty() && !incoming.empty())) return false;
        if (from == to && in.empty()) return true;
        const std::string before = text;
        if (caret < from || caret > to || (begin() != from && !in.empty()))
            select(Offset(from), Offset(from));
        if (text != before) return false;
        insert(from, to, in);
        return true;
    }
    bool userMove(Range range, Offset target) {
        if (locked_) return false;
        const auto [from, to] = whole(cut(range.begin()), cut(range.end()));
        const std::size_t place = whole(cut(target), text.size()).first;
        if (from == to || (from <= place && place <= to)) {
            select(Offset(from), Offset(to));
            return true;
        }
        const std::string moved = text.substr(from, to - from);
        const std::u32string kept = looks.substr(from, to - from);
        if (!userReplace({Offset(from), Offset(to)}, "")) return false;
        const Offset behind(place < from ? place : place - moved.size());
        select(behind, behind);
        const std::size_t at = whole(caret, caret).first;
        const std::size_t end = at + moved.size();
        put(at, at, moved, kept, end);
        if (anchor == end && caret == end) select(Offset(at), Offset(end));
        return true;
    }

    void SetLocked(bool on) { locked_ = on; }
    void SetMaxLength(Long length) { most_ = static_cast<std::size_t>(length); }

    /// Sets or clears the bits of a field.
    void setFormat(char32_t field, bool on) {
        if (begin() == end()) return;
        for (std::size_t i = begin(); i < end(); ++i)
            looks[i] = (looks[i] & ~field) | (on ? field : 0);
        log_.formatChanged({Offset(begin()), Offset(end())});
    }
    std::optional<char32_t> commonFormat(char32_t field) const {
        const std::size_t at = whole(begin(), begin()).first;
        const char32_t first = field & (begin() == end() ? inherited(at, at) : looks[begin()]);
        for (std::size_t i = begin(); i < end(); ++i)
            if ((looks[i] & field) != first) return std::nullopt;
        return first;
    }
    void colorRuns(Offset first, const std::vector<ColorRun>& runs) {
        std::vector<std::size_t> changed;
        std::size_t at = first.value();
        for (const ColorRun& run : runs) {
            for (const std::size_t end = at + run.length; at < std::min(end, text.size()); ++at) {
                if (run.color == ColorRun::kKeep || (looks[at] & kColorMask) == run.color) continue;
                looks[at] = (looks[at] & ~kColorMask) | run.color;
                changed.push_back(at);
            }
        }
        if (changed.empty()) return;
        log_.formatChanged({Offset(changed.front()), Offset(changed.back() + 1)});
    }
    Long Find(const std::string& incoming, std::optional<Long> start, std::optional<Long> stop,
              Long options) {
        const std::string wanted = paired(incoming);
        const std::size_t from = start ? cut(offset(*start)) : begin();
        const std::size_t rest = !start && begin() != end() ? end() : text.size();
        const std::size_t to = stop ? cut(offset(*stop)) : rest;
        std::vector<std::size_t> hits;
        for (std::size_t at = std::min(from, to); at + wanted.size() <= std::max(from, to); ++at)
            if (!wanted.empty() && matches(at, wanted, options)) hits.push_back(at);
        if (hits.empty()) return -1;
        const std::size_t hit = to < from ? hits.back() : hits.front();
        if ((options & FindNoHighlight) == 0) select(Offset(hit), Offset(hit + wanted.size()));
        return static_cast<Long>(hit);
    }
    void Span(const std::string& set, bool forward, bool negate) {
        std::size_t at = begin();
        const auto runs = [&](char byte) { return (set.find(byte) == set.npos) == negate; };
        if (forward)
            while (at < text.size() && runs(text[at])) ++at;
        else
            while (at > 0 && runs(text[at - 1])) --at;
        select(Offset(begin()), Offset(at));
    }
    void UpTo(const std::string& set, bool forward, bool negate) {
        const auto stops = [&](char byte) { return (set.find(byte) != set.npos) != negate; };
        for (std::size_t at = caret; forward ? at < text.size() : at > 0; forward ? ++at : --at)
            if (stops(text[forward ? at : at - 1])) return select(Offset(at), Offset(at));
    }

    std::size_t begin() const { return std::min(anchor, caret); }
    std::size_t end() const { return std::max(anchor, caret); }
    /// Grown over the line breaks that it begins or ends within.
    std::pair<std::size_t, std::size_t> whole(std::size_t from, std::size_t to) const {
        const auto splits = [&](std::size_t at) {
            return at > 0 && at < text.size() && text[at - 1] == '\r' && text[at] == '\n';
        };
        const std::size_t first = splits(from) ? from - 1 : from;
        return {first, from == to ? first : (splits(to) ? to + 1 : to)};
    }
    std::size_t breaksIn(std::size_t from, std::size_t to) const {
        return static_cast<std::size_t>(std::ranges::count(text.substr(from, to - from), '\n'));
    }

    std::string text;
    std::u32string looks;
    std::size_t anchor = 0;
    std::size_t caret = 0;

  private:
    static Offset offset(Long number) { return Offset(static_cast<std::size_t>(number)); }
    std::size_t cut(Offset at) const { return std::min(at.value(), text.size()); }

    static std::string paired(const std::string& in) {
        static const std::regex kBreak("\r\n?|\n");
        return std::regex_replace(in, kBreak, "\r\n");
    }
    std::string fitting(const std::string& in, std::size_t from, std::size_t to) const {
        std::string out = paired(in);
        const std::size_t kept = text.size() - (to - from);
        while (most_ != 0 && !out.empty() && kept + out.size() > most_)
            out.resize(out.size() - (out.back() == '\n' ? 2 : 1));
        return out;
    }
    char32_t inherited(std::size_t from, std::size_t to) const {
        if (from > 0 && text[from - 1] != '\n') return looks[from - 1];
        return to < text.size() ? looks[to] : 0;
    }
    bool matches(std::size_t at, const std::string& wanted, Long options) const {
        const auto& table = CharacterTable::latin1();
        const auto fold = [&](char c) { return (options & FindMatchCase) ? c : table.lower(c); };
        for (std::size_t i = 0; i < wanted.size(); ++i)
            if (fold(text[at + i]) != fold(wanted[i])) return false;
        if ((options & FindWholeWord) == 0) return true;
        const std::size_t behind = at + wanted.size();
        return !(at > 0 && table.isWord(text[at - 1])) &&
               !(behind < text.size() && table.isWord(text[behind]));
    }
    void insert(std::size_t from, std::size_t to, const std::string& in) {
        put(from, to, in, std::u32string(in.size(), inherited(from, to)), from + in.size());
    }
    void put(std::size_t from, std::size_t to, const std::string& in, const std::u32string& inLooks,
             std::size_t caretTo) {
        const bool changes = from != to || !in.empty();
        if (changes) {
            const std::size_t line = breaksIn(0, from);
            const std::size_t gone = breaksIn(from, to);
            text.replace(from, to - from, in);
            looks.replace(from, to - from, inLooks);
            const std::size_t come = breaksIn(from, from + in.size());
            log_.textChanged({{Offset(from), Offset(to)}, in.size(), gone, come, LineIndex(line)});
        }
        const bool moves = moveTo(caretTo, caretTo);
        if (moves) log_.selectionChanged();
        if ((moves || changes) && onSelChange) onSelChange();
        if (changes && onChange) onChange();
    }
    bool moveTo(std::size_t newAnchor, std::size_t newCaret) {
        if (newAnchor == anchor && newCaret == caret) return false;
        anchor = newAnchor;
        caret = newCaret;
        return true;
    }

    Log& log_;
    bool locked_ = false;
    std::size_t most_ = 0;
};

/// A box and its model, which take the same random operations.
class Pair {
  public:
    /// Texts of up to about `size` bytes; long ones stand in trees of many pieces and runs.
    Pair(std::uint64_t seed, int nestings, std::size_t size)
        : random_(seed), journal_(seed), size_(size) {
        box_.setObserver(&boxLog_);
        listen(box_, boxLog_, nestings);
        listen(model_, modelLog_, nestings);
    }

    void run(int steps) {
        for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
            step();
            compare();
        }
        if (testing::Test::HasFailure()) ADD_FAILURE() << journal_.text();
    }

  private:
    using Step = void (Pair::*)();

    /// Handlers that tell of themselves, and now and then edit or select.
    template <typename Target>
    static void listen(Target& target, Log& log, int nestings) {
        target.onSelChange = [&target, &log, nestings] {
            log.add("SelChange", target.SelStart(), target.SelLength());
            if (log.depth++ < nestings) {
                if (target.SelStart() % 7 == 3) target.SetSelLength(2);
                if (target.SelStart() % 11 == 5) target.SetSelText("\n");
            }
            --log.depth;
        };
        target.onChange = [&target, &log, nestings] {
            log.add("Change", target.SelStart());
            if (log.depth++ < nestings) {
                if (target.SelStart() % 3 == 1) target.SetSelText("x");
                if (target.SelStart() % 5 == 2) target.SetSelStart(target.SelStart() / 2);
            }
            --log.depth;
        };
    }

    /// Calls one function of the box and its partner of the model.
    template <auto OfBox, auto OfModel, typename... Arguments>
    void apply(const char* name, const Arguments&... arguments) {
        journal_.add(name, arguments...);
        if constexpr (std::is_void_v<decltype((model_.*OfModel)(arguments...))>) {
            (box_.*OfBox)(arguments...);
            (model_.*OfModel)(arguments...);
        } else {
            EXPECT_EQ((box_.*OfBox)(arguments...), (model_.*OfModel)(arguments...));
        }
    }

    std::string text(std::size_t length) {
        return random_.text(length, coin() ? "aAb_. \r\n\xE4\xC4" : "aA b");
    }
    std::string text() { return text(random_.below(7)); }
    std::size_t somewhere() { return random_.below(model_.text.size() + 3); }
    Long place() { return static_cast<Long>(somewhere()); }
    bool coin() { return random_.oneIn(2); }
    Range range() {
        const std::size_t one = somewhere();
        const std::size_t other = coin() ? one : std::min(one + 4, somewhere());
        return {Offset(std::min(one, other)), Offset(std::max(one, other))};
    }

    void step() {
        static constexpr Step kOften[] = {&Pair::select, &Pair::edit, &Pair::replace};
        static constexpr Step kSeldom[] = {
            &Pair::move,
            &Pair::color,
            &Pair::find,
            &Pair::limits,
            &Pair::format<kColorMask, &Box::SelColor, &Box::SetSelColor>,
            &Pair::format<1 << 24, &Box::SelBold, &Box::SetSelBold>,
            &Pair::format<1 << 25, &Box::SelItalic, &Box::SetSelItalic>,
            &Pair::format<1 << 26, &Box::SelUnderline, &Box::SetSelUnderline>,
            &Pair::format<1 << 27, &Box::SelStrikethru, &Box::SetSelStrikethru>,
        };
        const std::span<const Step> steps =
            coin() ? std::span<const Step>(kOften) : std::span<const Step>(kSeldom);
        (this->*steps[random_.below(steps.size())])();
    }
    void select() {
        const Offset anchor(somewhere());
        if (coin()) return apply<&Box::SetSelStart, &Model::SetSelStart>("SetSelStart", place());
        if (coin()) return apply<&Box::SetSelLength, &Model::SetSelLength>("SetSelLength", place());
        apply<&Box::select, &Model::select>("select", anchor, Offset(somewhere()));
    }
    void edit() {
        if (model_.text.size() <= size_ && !random_.oneIn(20))
            return apply<&Box::SetSelText, &Model::SetSelText>("SetSelText", text());
        const std::string whole = text(random_.below(size_));
        journal_.add("SetText", whole);
        coin() ? box_.SetText(Rope(whole)) : box_.SetText(whole);
        model_.SetText(whole);
    }
    void replace() {
        const Range where = coin() ? Range::at(Offset(model_.caret), 0) : range();
        apply<&Box::userReplace, &Model::userReplace>("userReplace", where, text());
    }
    void move() {
        const Range from = range();
        apply<&Box::userMove, &Model::userMove>("userMove", from, Offset(somewhere()));
    }

    /// Asks for a format of the selection, then sets it.
    template <char32_t kField, auto kGet, auto kSet>
    void format() {
        const bool on = coin();
        journal_.add("format", kField, on);
        decltype((box_.*kGet)()) expected;
        if (const auto look = model_.commonFormat(kField)) expected = *look;
        EXPECT_EQ((box_.*kGet)(), expected);
        const char32_t value = on ? kField : 0;
        (box_.*kSet)(value);
        model_.setFormat(kField, on);
    }
    void color() {
        std::vector<ColorRun> runs(random_.below(40));
        for (ColorRun& run : runs) {
            run = {static_cast<std::uint32_t>(random_.below(4)), ColorRef(random_.below(3))};
            if (random_.oneIn(3)) run.color = ColorRun::kKeep;
        }
        const Offset begin(std::min(somewhere(), model_.text.size()));
        apply<&Box::colorRuns, &Model::colorRuns>("colorRuns", begin, runs);
    }

    void find() {
        const std::size_t length = size_ > 500 && coin() ? 300 : random_.below(6);
        const std::string wanted =
            coin() ? text(random_.below(3))
                   : model_.text.substr(random_.below(model_.text.size() + 1), length);
        const bool forward = coin();
        const bool negate = coin();
        if (random_.oneIn(3))
            return apply<&Box::Span, &Model::Span>("Span", wanted, forward, negate);
        if (coin()) return apply<&Box::UpTo, &Model::UpTo>("UpTo", wanted, forward, negate);
        const auto start = forward ? std::nullopt : std::optional(place());
        const auto end = negate ? std::nullopt : std::optional(place());
        const auto options = static_cast<Long>(random_.below(8) * 2);
        apply<&Box::Find, &Model::Find>("Find", wanted, start, end, options);
    }
    void limits() {
        const bool on = random_.oneIn(4);
        if (coin())
            apply<&Box::SetLocked, &Model::SetLocked>("SetLocked", on);
        else
            apply<&Box::SetMaxLength, &Model::SetMaxLength>("SetMaxLength", on ? place() : 0);
    }

    void compare() {
        box_.checkInvariants();
        ASSERT_EQ(box_.Text(), model_.text);
        EXPECT_EQ(boxLog_.take(), modelLog_.take());
        EXPECT_EQ(box_.anchor(), Offset(model_.anchor));
        EXPECT_EQ(box_.caret(), Offset(model_.caret));
        for (std::size_t i = 0; i < model_.text.size(); ++i)
            ASSERT_EQ(lookOf(box_.formatAt(Offset(i))), model_.looks[i]) << "format at " << i;
        const std::size_t lines = model_.breaksIn(0, model_.text.size()) + 1;
        ASSERT_EQ(box_.GetLineCount(), lines);
        std::size_t begin = 0;
        for (std::size_t line = 0; line < lines; ++line) {
            const std::size_t end = std::min(model_.text.find('\r', begin), model_.text.size());
            ASSERT_EQ(box_.GetLineIndex(static_cast<Long>(line)), begin);
            ASSERT_EQ(box_.lineContent(LineIndex(line)), Range(Offset(begin), Offset(end)));
            begin = end + 2;
        }
        const auto [first, last] = model_.whole(model_.begin(), model_.end());
        EXPECT_EQ(box_.wholeBreaks(box_.selection()), Range(Offset(first), Offset(last)));
        EXPECT_EQ(box_.SelText(),
                  model_.text.substr(model_.begin(), model_.end() - model_.begin()));
        EXPECT_EQ(box_.GetLineIndex(-1), box_.GetLineIndex(model_.breaksIn(0, model_.caret)));
        const std::size_t at = random_.below(model_.text.size() + 1);
        EXPECT_EQ(box_.GetLineFromChar(static_cast<Long>(at)), model_.breaksIn(0, at));
    }

    test::Random random_;
    test::Journal journal_;
    std::size_t size_;
    Log boxLog_;
    Log modelLog_;
    Box box_;
    Model model_{modelLog_};
};

TEST(RichTextBoxModel, AgreesAfterRandomOperations) {
    for (const std::uint64_t seed : test::seeds(6)) {
        for (const int nestings : {0, 2}) {
            for (const std::size_t size : {60U, 3000U}) {
                Pair(seed, nestings, size).run(3000);
                ASSERT_FALSE(HasFailure()) << "nestings " << nestings << ", size " << size;
            }
        }
    }
}

TEST(RichTextBox, RichTextComesBackAsItWent) {
    RichTextBox box;
    box.SetText("one\r\ntwo\r\n\r\nthree");
    box.colorRuns(Offset(1), std::vector<ColorRun>{{3, 0xFF}, {7, 0x8000}});
    box.select(Offset(6), Offset(9));
    box.SetSelBold(true);
    RichTextBox other;
    EXPECT_TRUE(other.SetTextRTF(box.TextRTF()));
    EXPECT_EQ(other.TextRTF(), box.TextRTF());
    EXPECT_EQ(other.SelStart(), 0);

    other.onChange = other.onSelChange = [] { ADD_FAILURE() << "an event"; };
    EXPECT_FALSE(other.SetTextRTF("{\\rtf1 damaged"));
    other.onChange = other.onSelChange = nullptr;
    other.SetMaxLength(20);
    other.select(Offset(13), Offset(14));
    EXPECT_TRUE(other.SetSelRTF(box.SelRTF()));
    EXPECT_EQ(other.Text(), "one\r\ntwo\r\n\r\ntwo\r\nree") << "a whole break, half selected";
    EXPECT_EQ(other.formatRangeAt(Offset(13)), Range(Offset(13), Offset(17)));
    EXPECT_TRUE(other.SetSelRTF("{\\rtf1 plain}"));
    EXPECT_EQ(other.SelStart(), 17) << "no room is left";
    other.checkInvariants();
}

}  // namespace
}  // namespace brindlex
