#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <regex>
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

  private:
    std::ostringstream text_;
};

/// A RichTextBox of a plain string and a vector with a format for each byte, which works everything
/// out anew each time.
class Model {
  public:
    explicit Model(Log& log) : log_(log) {}

    std::function<void()> onSelChange;
    std::function<void()> onChange;

    void SetText(const std::string& incoming) {
        const std::string in = fitting(incoming, 0, text.size());
        put(0, text.size(), in, std::vector<CharFormat>(in.size()), 0);
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
        const std::vector<CharFormat> kept(formats.begin() + index(from),
                                           formats.begin() + index(to));
        if (!userReplace({Offset(from), Offset(to)}, "")) return false;
        const Offset behind(place < from ? place : place - moved.size());
        select(behind, behind);
        const std::size_t at = whole(caret, caret).first;
        put(at, at, moved, kept, at + moved.size());
        select(Offset(at), Offset(at + moved.size()));
        return true;
    }

    void SetLocked(bool on) { locked_ = on; }
    void SetMaxLength(Long length) { most_ = static_cast<std::size_t>(length); }

    void change(const std::function<void(CharFormat&)>& change) {
        if (begin() == end()) return;
        for (std::size_t i = begin(); i < end(); ++i) change(formats[i]);
        log_.formatChanged({Offset(begin()), Offset(end())});
    }
    void colorRuns(Offset first, const std::vector<ColorRun>& runs) {
        std::vector<std::size_t> changed;
        std::size_t at = first.value();
        for (const ColorRun& run : runs) {
            for (const std::size_t end = at + run.length; at < std::min(end, text.size()); ++at) {
                const ColorRef color = run.color & kColorMask;
                if (run.color == ColorRun::kKeep || formats[at].color == color) continue;
                formats[at].color = color;
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

    template <typename Read>
    auto common(Read&& read) const {
        const std::size_t at = whole(begin(), begin()).first;
        if (begin() == end()) return std::optional(read(inherited(at, at)));
        const auto first = read(formats[begin()]);
        for (std::size_t i = begin(); i < end(); ++i)
            if (read(formats[i]) != first) return decltype(std::optional(first))();
        return std::optional(first);
    }

    std::string selected() const { return text.substr(begin(), end() - begin()); }
    std::size_t breaksIn(std::size_t from, std::size_t to) const {
        return static_cast<std::size_t>(
            std::count(text.begin() + index(from), text.begin() + index(to), '\n'));
    }

    std::string text;
    std::vector<CharFormat> formats;
    std::size_t anchor = 0;
    std::size_t caret = 0;

  private:
    static std::ptrdiff_t index(std::size_t at) { return static_cast<std::ptrdiff_t>(at); }
    static Offset offset(Long number) { return Offset(static_cast<std::size_t>(number)); }
    std::size_t cut(Offset at) const { return std::min(at.value(), text.size()); }
    std::size_t begin() const { return std::min(anchor, caret); }
    std::size_t end() const { return std::max(anchor, caret); }

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
    std::pair<std::size_t, std::size_t> whole(std::size_t from, std::size_t to) const {
        const auto splits = [&](std::size_t at) {
            return at > 0 && at < text.size() && text[at - 1] == '\r' && text[at] == '\n';
        };
        const std::size_t first = splits(from) ? from - 1 : from;
        return {first, from == to ? first : (splits(to) ? to + 1 : to)};
    }
    CharFormat inherited(std::size_t from, std::size_t to) const {
        if (from > 0 && text[from - 1] != '\n') return formats[from - 1];
        return to < text.size() ? formats[to] : CharFormat{};
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
        put(from, to, in, std::vector(in.size(), inherited(from, to)), from + in.size());
    }
    void put(std::size_t from, std::size_t to, const std::string& in,
             const std::vector<CharFormat>& inFormats, std::size_t caretTo) {
        const bool changes = from != to || !in.empty();
        if (changes) {
            const std::size_t line = breaksIn(0, from);
            const std::size_t gone = breaksIn(from, to);
            text.replace(from, to - from, in);
            formats.erase(formats.begin() + index(from), formats.begin() + index(to));
            formats.insert(formats.begin() + index(from), inFormats.begin(), inFormats.end());
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
    Pair(std::uint64_t seed, bool reentrant, std::size_t size)
        : random_(seed), journal_(seed), size_(size) {
        box_.setObserver(&boxLog_);
        listen(box_, boxLog_, reentrant);
        listen(model_, modelLog_, reentrant);
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
    static void listen(Target& target, Log& log, bool reentrant) {
        const auto nested = [reentrant, depth = std::make_shared<int>(0)](auto&& act) {
            if (!reentrant || *depth > 1) return;
            ++*depth;
            act();
            --*depth;
        };
        target.onSelChange = [&target, &log, nested] {
            log.add("SelChange", target.SelStart(), target.SelLength());
            nested([&target] {
                if (target.SelStart() % 7 == 3) target.SetSelLength(2);
                if (target.SelStart() % 11 == 5) target.SetSelText("\n");
            });
        };
        target.onChange = [&target, &log, nested] {
            log.add("Change", target.SelStart());
            nested([&target] {
                if (target.SelStart() % 3 == 1) target.SetSelText("x");
                if (target.SelStart() % 5 == 2) target.SetSelStart(target.SelStart() / 2);
            });
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
        static constexpr Step kSteps[] = {
            &Pair::select,  &Pair::select, &Pair::select,  &Pair::edit,
            &Pair::edit,    &Pair::edit,   &Pair::replace, &Pair::replace,
            &Pair::replace, &Pair::move,   &Pair::format,  &Pair::format,
            &Pair::color,   &Pair::find,   &Pair::find,    &Pair::limits};
        (this->*kSteps[random_.below(std::size(kSteps))])();
    }
    void select() {
        const Offset one(somewhere());
        const Offset other(somewhere());
        switch (random_.below(3)) {
            case 0:
                return apply<&Box::SetSelStart, &Model::SetSelStart>("SetSelStart", place());
            case 1:
                return apply<&Box::SetSelLength, &Model::SetSelLength>("SetSelLength", place());
            default:
                return apply<&Box::select, &Model::select>("select", one, other);
        }
    }
    void edit() {
        if (model_.text.size() > size_ || random_.oneIn(20))
            setText(text(random_.below(size_)), coin());
        else
            apply<&Box::SetSelText, &Model::SetSelText>("SetSelText", text());
    }
    void setText(const std::string& text, bool asRope) {
        journal_.add("SetText", text, asRope);
        asRope ? box_.SetText(Rope(text)) : box_.SetText(text);
        model_.SetText(text);
    }
    void replace() {
        const Range where = coin() ? Range::at(Offset(model_.caret), 0) : range();
        apply<&Box::userReplace, &Model::userReplace>("userReplace", where, text());
    }
    void move() {
        const Range from = range();
        apply<&Box::userMove, &Model::userMove>("userMove", from, Offset(somewhere()));
    }

    static std::array<std::uint32_t, 5> fields(CharFormat format) {
        return {format.color, format.bold, format.italic, format.underline, format.strikeThrough};
    }
    std::optional<std::uint32_t> asked(std::size_t field) const {
        if (field == 0) return box_.SelColor();
        const std::optional<bool> flags[] = {box_.SelBold(), box_.SelItalic(), box_.SelUnderline(),
                                             box_.SelStrikethru()};
        return flags[field - 1];
    }
    /// Asks for a format of the selection, then sets it.
    void format() {
        static constexpr void (Box::*kSetters[])(bool) = {
            &Box::SetSelBold, &Box::SetSelItalic, &Box::SetSelUnderline, &Box::SetSelStrikethru};
        const std::size_t field = random_.below(5);
        const bool on = coin();
        journal_.add("format", field, on);
        EXPECT_EQ(asked(field), model_.common([=](CharFormat f) { return fields(f)[field]; }));
        field == 0 ? box_.SetSelColor(on) : (box_.*kSetters[field - 1])(on);
        model_.change([=](CharFormat& format) {
            auto values = fields(format);
            values[field] = on;
            format = {.color = values[0] & kColorMask};
            format.bold = values[1] & 1U;
            format.italic = values[2] & 1U;
            format.underline = values[3] & 1U;
            format.strikeThrough = values[4] & 1U;
        });
    }

    void color() {
        std::vector<ColorRun> runs(random_.below(40));
        for (ColorRun& run : runs) {
            run = {static_cast<std::uint32_t>(random_.below(4)), ColorRef(random_.below(3))};
            if (random_.oneIn(3)) run.color = ColorRun::kKeep;
        }
        const Offset begin(random_.below(model_.text.size() + 1));
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
            ASSERT_TRUE(box_.formatAt(Offset(i)) == model_.formats[i]) << "format at " << i;
        const std::size_t lines = model_.breaksIn(0, model_.text.size()) + 1;
        ASSERT_EQ(box_.GetLineCount(), lines);
        std::size_t begin = 0;
        for (std::size_t line = 0; line < lines; ++line) {
            const std::size_t end = std::min(model_.text.find('\r', begin), model_.text.size());
            ASSERT_EQ(box_.GetLineIndex(static_cast<Long>(line)), begin);
            ASSERT_EQ(box_.lineContent(LineIndex(line)), Range(Offset(begin), Offset(end)));
            begin = end + 2;
        }
        EXPECT_EQ(box_.SelText(), model_.selected());
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
        for (const bool reentrant : {false, true}) {
            Pair(seed, reentrant, 60).run(3000);
            Pair(seed, reentrant, 3000).run(3000);
            ASSERT_FALSE(HasFailure()) << "re-entrant " << reentrant;
        }
    }
}

}  // namespace
}  // namespace brindlex
