#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/text/RichTextBox.h"
#include "text/Random.h"

namespace brindlex {
namespace {

using Box = RichTextBox;
using Chars = CharFormat;
using Lines = ParagraphFormat;

/// What a box tells its observer and its handlers, in the order of telling.
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

/// A RichTextBox of plain strings and vectors: one format a byte, one a line, everything worked out
/// anew each time.
class Model {
  public:
    explicit Model(Log& log) : log_(log) {}

    std::function<void()> onSelChange;
    std::function<void()> onChange;

    void SetText(const std::string& incoming) {
        next_.reset();
        put(0, text.size(), fitting(incoming, 0, text.size()), CharFormat{}, 0);
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
        put(from, to, in, next_.value_or(inherited(from, to)), from + in.size());
    }

    bool userReplace(Range range, const std::string& incoming) {
        const auto [from, to] = whole(cut(range.begin()), cut(range.end()));
        if (locked_ || isProtected(from, to)) return false;
        if (!incoming.empty() && fitting(incoming, from, to).empty()) return false;
        if ((caret < from || caret > to) && !caretGoesTo(from)) return false;
        const std::string in = fitting(incoming, from, to);
        CharFormat format = inherited(from, to);
        format.isProtected = false;
        if (next_ && whole(caret, caret).first == from) format = *next_;
        put(from, to, in, format, from + in.size());
        return true;
    }
    bool caretGoesTo(std::size_t place) {
        const std::string before = text;
        select(Offset(place), Offset(place));
        return text == before;
    }
    bool userMove(Range range, Offset target) {
        const auto [from, to] = whole(cut(range.begin()), cut(range.end()));
        const std::size_t place = whole(cut(target), text.size()).first;
        if (locked_ || isProtected(from, to) || isProtected(place, place)) return false;
        if (from == to || (from <= place && place <= to)) {
            select(Offset(from), Offset(to));
            return true;
        }
        if (!caretGoesTo(place)) return false;
        const std::vector<std::size_t> source(serials_.begin() + index(from),
                                              serials_.begin() + index(to));
        const std::size_t firstNew = nextSerial_;
        std::vector<CharFormat> kept(formats.begin() + index(from), formats.begin() + index(to));
        put(place, place, text.substr(from, to - from), kept, place + to - from);
        std::vector<std::size_t> copy;
        for (std::size_t i = 0; i < source.size(); ++i) copy.push_back(firstNew + i);
        if (const auto at = find(source)) put(*at, *at + source.size(), "", CharFormat{}, *at);
        if (const auto at = find(copy)) select(Offset(*at), Offset(*at + copy.size()));
        return true;
    }

    void SetLocked(bool on) { locked_ = on; }
    void SetMaxLength(Long length) { most_ = static_cast<std::size_t>(length); }

    template <typename Field, typename Value>
    void set(Field CharFormat::*field, Value value) {
        if (begin() == end()) {
            const std::size_t at = whole(begin(), begin()).first;
            if (!next_) next_ = inherited(at, at);
            (*next_).*field = static_cast<Field>(value);
            return;
        }
        for (std::size_t i = begin(); i < end(); ++i) formats[i].*field = static_cast<Field>(value);
        log_.formatChanged({Offset(begin()), Offset(end())});
    }
    template <typename Field, typename Value>
    void set(Field ParagraphFormat::*field, Value value) {
        const auto [first, last] = touchedLines();
        for (std::size_t line = first; line <= last; ++line)
            lines[line].*field = static_cast<Field>(value);
        std::size_t from = begin();
        while (from > 0 && text[from - 1] != '\n') --from;
        std::size_t to = begin() == end() ? end() : end() - 1;
        while (to < text.size() && text[to] != '\n') ++to;
        log_.formatChanged({Offset(from), Offset(std::min(to + 1, text.size()))});
    }
    void colorRuns(Offset offset, const std::vector<ColorRun>& runs) {
        const std::vector<CharFormat> before = formats;
        std::size_t at = offset.value();
        for (const ColorRun& run : runs)
            for (std::uint32_t i = 0; i < run.length; ++i, ++at)
                if (run.color != ColorRun::kKeep && at < text.size()) formats[at].color = run.color;
        std::size_t first = 0;
        std::size_t last = text.size();
        while (first < last && formats[first] == before[first]) ++first;
        while (last > first && formats[last - 1] == before[last - 1]) --last;
        if (first < last) log_.formatChanged({Offset(first), Offset(last)});
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

    template <typename Field>
    std::optional<Field> common(Field CharFormat::*field) const {
        if (begin() == end()) {
            const std::size_t at = whole(begin(), begin()).first;
            return next_.value_or(inherited(at, at)).*field;
        }
        for (std::size_t i = begin(); i < end(); ++i)
            if (formats[i].*field != formats[begin()].*field) return std::nullopt;
        return formats[begin()].*field;
    }
    template <typename Field>
    std::optional<Field> common(Field ParagraphFormat::*field) const {
        const auto [first, last] = touchedLines();
        for (std::size_t line = first; line <= last; ++line)
            if (lines[line].*field != lines[first].*field) return std::nullopt;
        return lines[first].*field;
    }

    std::size_t breaksIn(std::size_t from, std::size_t to) const {
        return static_cast<std::size_t>(
            std::count(text.begin() + index(from), text.begin() + index(to), '\n'));
    }

    std::string text;
    std::vector<CharFormat> formats;
    std::vector<ParagraphFormat> lines{1};
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
    bool isProtected(std::size_t from, std::size_t to) const {
        if (from == to)
            return from > 0 && to < text.size() && formats[from - 1].isProtected &&
                   formats[to].isProtected;
        return std::any_of(formats.begin() + index(from), formats.begin() + index(to),
                           [](const CharFormat& f) { return f.isProtected; });
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
    std::optional<std::size_t> find(const std::vector<std::size_t>& serials) const {
        const auto at =
            std::search(serials_.begin(), serials_.end(), serials.begin(), serials.end());
        if (at == serials_.end()) return std::nullopt;
        return static_cast<std::size_t>(at - serials_.begin());
    }
    std::pair<std::size_t, std::size_t> touchedLines() const {
        const std::size_t last = begin() == end() ? end() : end() - 1;
        return {breaksIn(0, begin()), breaksIn(0, last)};
    }

    void put(std::size_t from, std::size_t to, const std::string& in, const CharFormat& format,
             std::size_t caretTo) {
        put(from, to, in, std::vector<CharFormat>(in.size(), format), caretTo);
    }
    void put(std::size_t from, std::size_t to, const std::string& in,
             const std::vector<CharFormat>& inFormats, std::size_t caretTo) {
        const bool changes = from != to || !in.empty();
        if (changes) {
            const std::size_t line = breaksIn(0, from);
            const std::size_t gone = breaksIn(from, to);
            text.replace(from, to - from, in);
            replaceIn(formats, from, to, inFormats);
            std::vector<std::size_t> serials;
            for (std::size_t i = 0; i < in.size(); ++i) serials.push_back(nextSerial_++);
            replaceIn(serials_, from, to, serials);
            const std::size_t come = breaksIn(from, from + in.size());
            replaceIn(lines, line, line + gone + 1,
                      std::vector<ParagraphFormat>(come + 1, lines[line]));
            if (!in.empty()) next_.reset();
            log_.textChanged({{Offset(from), Offset(to)}, in.size(), gone, come, LineIndex(line)});
        }
        const bool moves = moveTo(caretTo, caretTo);
        if (moves) log_.selectionChanged();
        if ((moves || changes) && onSelChange) onSelChange();
        if (changes && onChange) onChange();
    }
    template <typename Value>
    static void replaceIn(std::vector<Value>& values, std::size_t from, std::size_t to,
                          const std::vector<Value>& in) {
        values.erase(values.begin() + index(from), values.begin() + index(to));
        values.insert(values.begin() + index(from), in.begin(), in.end());
    }
    bool moveTo(std::size_t newAnchor, std::size_t newCaret) {
        if (newAnchor == anchor && newCaret == caret) return false;
        anchor = newAnchor;
        caret = newCaret;
        next_.reset();
        return true;
    }

    Log& log_;
    std::optional<CharFormat> next_;
    bool locked_ = false;
    std::size_t most_ = 0;
    std::vector<std::size_t> serials_;  // one a byte, never used again: a byte's identity
    std::size_t nextSerial_ = 0;
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
            apply<&Box::SetText, &Model::SetText>("SetText", text(random_.below(size_)));
        else
            apply<&Box::SetSelText, &Model::SetSelText>("SetSelText", text());
    }
    void replace() {
        const Range where = coin() ? Range::at(Offset(model_.caret), 0) : range();
        apply<&Box::userReplace, &Model::userReplace>("userReplace", where, text());
    }
    void move() {
        const Range from = range();
        apply<&Box::userMove, &Model::userMove>("userMove", from, Offset(somewhere()));
    }

    /// Asks for a property of the selection, then sets it.
    template <auto Setter, auto Getter, auto Field>
    void set() {
        using Value = typename decltype((box_.*Getter)())::value_type;
        EXPECT_EQ((box_.*Getter)(), model_.common(Field));
        const auto value = static_cast<Value>(random_.below(3));
        (box_.*Setter)(value);
        model_.set(Field, value);
    }
    /// Few characters, so that most edits of the user go through.
    void protect() {
        const auto most = static_cast<Long>(random_.below(4));
        apply<&Box::SetSelLength, &Model::SetSelLength>("SetSelLength", most);
        set<&Box::SetSelProtected, &Box::SelProtected, &Chars::isProtected>();
    }
    void format() {
        static constexpr Step kSetters[] = {
            &Pair::protect,
            &Pair::set<&Box::SetSelColor, &Box::SelColor, &Chars::color>,
            &Pair::set<&Box::SetSelBold, &Box::SelBold, &Chars::bold>,
            &Pair::set<&Box::SetSelItalic, &Box::SelItalic, &Chars::italic>,
            &Pair::set<&Box::SetSelUnderline, &Box::SelUnderline, &Chars::underline>,
            &Pair::set<&Box::SetSelStrikethru, &Box::SelStrikethru, &Chars::strikeThrough>,
            &Pair::set<&Box::SetSelCharOffset, &Box::SelCharOffset, &Chars::charOffset>,
            &Pair::set<&Box::SetSelBullet, &Box::SelBullet, &Lines::bullet>,
            &Pair::set<&Box::SetSelAlignment, &Box::SelAlignment, &Lines::alignment>,
            &Pair::set<&Box::SetSelIndent, &Box::SelIndent, &Lines::indent>,
            &Pair::set<&Box::SetSelHangingIndent, &Box::SelHangingIndent, &Lines::hangingIndent>,
            &Pair::set<&Box::SetSelRightIndent, &Box::SelRightIndent, &Lines::rightIndent>,
        };
        const std::size_t which = random_.below(std::size(kSetters));
        journal_.add("setter", which);
        (this->*kSetters[which])();
    }

    void color() {
        std::vector<ColorRun> runs(random_.below(coin() ? 6 : size_ / 3));
        for (ColorRun& run : runs) {
            run.length = static_cast<std::uint32_t>(random_.below(5));
            run.color = random_.oneIn(4) ? ColorRun::kKeep : ColorRef(random_.below(3));
        }
        const Offset from(random_.below(model_.text.size() + 1));
        apply<&Box::colorRuns, &Model::colorRuns>("colorRuns", from, runs);
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
        const auto lines = static_cast<Long>(model_.lines.size());
        ASSERT_EQ(box_.GetLineCount(), lines);
        std::size_t begin = 0;
        for (std::size_t line = 0; line < model_.lines.size(); ++line) {
            const std::size_t end = std::min(model_.text.find('\r', begin), model_.text.size());
            ASSERT_EQ(box_.GetLineIndex(static_cast<Long>(line)), begin);
            ASSERT_EQ(box_.lineContent(LineIndex(line)), Range(Offset(begin), Offset(end)));
            ASSERT_TRUE(box_.paragraphAt(LineIndex(line)) == model_.lines[line]) << "line " << line;
            begin = end + 2;
        }
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
