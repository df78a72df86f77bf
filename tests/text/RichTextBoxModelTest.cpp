#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/text/RichTextBox.h"
#include "text/Random.h"

namespace brindlex {
namespace {

using test::Journal;
using test::literal;
using test::Random;

template <typename... Parts>
std::string joined(const Parts&... parts) {
    std::ostringstream out;
    (out << ... << parts);
    return out.str();
}

/// What a box tells its observer and its handlers, in the order of telling.
class Log {
  public:
    void textChanged(std::size_t begin, std::size_t end, std::size_t inserted,
                     std::size_t removedBreaks, std::size_t insertedBreaks, std::size_t line) {
        text += joined("text[", begin, ',', end, ")+", inserted, " breaks-", removedBreaks, '+',
                       insertedBreaks, " line", line, ' ');
    }
    void formatChanged(std::size_t begin, std::size_t end) {
        text += joined("format[", begin, ',', end, ") ");
    }
    void selectionChanged() { text += "selection "; }

    std::string text;
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
    void SetSelStart(Long start) {
        select(Offset(static_cast<std::size_t>(start)), Offset(static_cast<std::size_t>(start)));
    }
    void SetSelLength(Long length) {
        select(Offset(begin()), Offset(begin() + static_cast<std::size_t>(length)));
    }
    void select(Offset anchorOffset, Offset caretOffset) {
        if (moveTo(std::min(anchorOffset.value(), text.size()),
                   std::min(caretOffset.value(), text.size())))
            tellSelection();
    }
    void SetSelText(const std::string& incoming) {
        const auto [from, to] = whole(begin(), end());
        const std::string in = fitting(incoming, from, to);
        put(from, to, in, next_.value_or(inherited(from, to)), from + in.size());
    }

    bool userReplace(Range range, const std::string& incoming) {
        const auto [from, to] = whole(std::min(range.begin().value(), text.size()),
                                      std::min(range.end().value(), text.size()));
        if (locked || isProtected(from, to)) return false;
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
        const auto [from, to] = whole(std::min(range.begin().value(), text.size()),
                                      std::min(range.end().value(), text.size()));
        const std::size_t place = whole(std::min(target.value(), text.size()), text.size()).first;
        if (locked || isProtected(from, to) || isProtected(place, place)) return false;
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

    void SetLocked(bool on) { locked = on; }
    void SetMaxLength(Long length) { most_ = static_cast<std::size_t>(length); }

    void SetSelColor(ColorRef color) {
        format([&](CharFormat& f) { f.color = color; });
    }
    void SetSelBold(bool on) {
        format([&](CharFormat& f) { f.bold = on; });
    }
    void SetSelProtected(bool on) {
        format([&](CharFormat& f) { f.isProtected = on; });
    }
    void SetSelCharOffset(Long twips) {
        format([&](CharFormat& f) { f.charOffset = static_cast<std::int32_t>(twips); });
    }
    void SetSelIndent(Long twips) {
        formatLines([&](ParagraphFormat& f) { f.indent = static_cast<std::int32_t>(twips); });
    }
    void SetSelBullet(bool on) {
        formatLines([&](ParagraphFormat& f) { f.bullet = on; });
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
        if (first < last) log_.formatChanged(first, last);
    }

    Long Find(const std::string& incoming, std::optional<Long> start, std::optional<Long> stop,
              Long options) {
        const std::string wanted = paired(incoming);
        const auto cut = [&](Long at) {
            return std::min(static_cast<std::size_t>(at), text.size());
        };
        const std::size_t from = start ? cut(*start) : begin();
        const std::size_t to =
            stop ? cut(*stop) : (!start && begin() != end() ? end() : text.size());
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
    std::optional<Long> commonIndent() const {
        const auto [first, last] = touchedLines();
        for (std::size_t line = first; line <= last; ++line)
            if (lines[line].indent != lines[first].indent) return std::nullopt;
        return lines[first].indent;
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
    bool locked = false;

  private:
    static std::ptrdiff_t index(std::size_t at) { return static_cast<std::ptrdiff_t>(at); }
    std::size_t begin() const { return std::min(anchor, caret); }
    std::size_t end() const { return std::max(anchor, caret); }

    static std::string paired(const std::string& in) {
        std::string out;
        for (std::size_t i = 0; i < in.size(); ++i) {
            const bool isBreak = in[i] == '\r' || in[i] == '\n';
            if (in[i] == '\r' && i + 1 < in.size() && in[i + 1] == '\n') ++i;
            out += isBreak ? "\r\n" : std::string(1, in[i]);
        }
        return out;
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
            log_.textChanged(from, to, in.size(), gone, come, line);
        }
        if (moveTo(caretTo, caretTo)) tellSelection();
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
    void tellSelection() {
        log_.selectionChanged();
        if (onSelChange) onSelChange();
    }
    template <typename Change>
    void format(Change change) {
        if (begin() == end()) {
            const std::size_t at = whole(begin(), begin()).first;
            CharFormat chosen = next_.value_or(inherited(at, at));
            change(chosen);
            next_ = chosen;
            return;
        }
        for (std::size_t i = begin(); i < end(); ++i) change(formats[i]);
        log_.formatChanged(begin(), end());
    }
    template <typename Change>
    void formatLines(Change change) {
        const auto [first, last] = touchedLines();
        for (std::size_t line = first; line <= last; ++line) change(lines[line]);
        std::size_t from = begin();
        while (from > 0 && text[from - 1] != '\n') --from;
        std::size_t to = begin() == end() ? end() : end() - 1;
        while (to < text.size() && text[to] != '\n') ++to;
        log_.formatChanged(from, std::min(to + 1, text.size()));
    }

    Log& log_;
    std::optional<CharFormat> next_;
    std::size_t most_ = 0;
    std::vector<std::size_t> serials_;  // one a byte, never used again: a byte's identity
    std::size_t nextSerial_ = 0;
};

class LoggingObserver : public RichTextObserver {
  public:
    explicit LoggingObserver(Log& log) : log_(log) {}
    void textChanged(const TextEdit& edit) override {
        log_.textChanged(edit.removed.begin().value(), edit.removed.end().value(), edit.inserted,
                         edit.removedBreaks, edit.insertedBreaks, edit.line.value());
    }
    void formatChanged(Range range) override {
        log_.formatChanged(range.begin().value(), range.end().value());
    }
    void selectionChanged() override { log_.selectionChanged(); }

  private:
    Log& log_;
};

/// A box and its model, which take the same random operations.
class Pair {
  public:
    Pair(std::uint64_t seed, bool reentrant)
        : random_(seed),
          journal_(joined("RichTextBox box;  // seed ", seed, reentrant ? ", re-entrant" : "")) {
        box_.setObserver(&observer_);
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
    /// Handlers that tell of themselves, and now and then edit or select.
    template <typename Target>
    static void listen(Target& target, Log& log, bool reentrant) {
        const auto depth = std::make_shared<int>(0);
        target.onSelChange = [&target, &log, reentrant, depth] {
            log.text += joined("SelChange(", target.SelStart(), ',', target.SelLength(), ") ");
            if (!reentrant || *depth > 1) return;
            ++*depth;
            if (target.SelStart() % 7 == 3) target.SetSelLength(2);
            if (target.SelStart() % 11 == 5) target.SetSelText("\n");
            --*depth;
        };
        target.onChange = [&target, &log, reentrant, depth] {
            log.text += joined("Change(", target.SelStart(), ") ");
            if (!reentrant || *depth > 1) return;
            ++*depth;
            if (target.SelStart() % 3 == 1) target.SetSelText("x");
            if (target.SelStart() % 5 == 2) target.SetSelStart(target.SelStart() / 2);
            --*depth;
        };
    }

    template <typename Operation>
    void apply(const std::string& code, Operation operation) {
        journal_.add("box." + code + ';');
        using Result = decltype(operation(box_));
        if constexpr (std::is_void_v<Result>) {
            operation(box_);
            operation(model_);
        } else {
            EXPECT_EQ(operation(box_), operation(model_));
        }
    }

    std::string text() { return random_.text(random_.below(7), "aAb_. \r\n\xE4\xC4"); }
    std::size_t somewhere() { return random_.below(model_.text.size() + 3); }
    Long place() { return static_cast<Long>(somewhere()); }
    Range range() {
        const std::size_t one = somewhere();
        const std::size_t other = random_.oneIn(2) ? one : std::min(one + 4, somewhere());
        return {Offset(std::min(one, other)), Offset(std::max(one, other))};
    }

    void step() {
        using Step = void (Pair::*)();
        static constexpr Step kSteps[] = {
            &Pair::setText, &Pair::selStart, &Pair::selLength, &Pair::select,
            &Pair::selText, &Pair::selText,  &Pair::replace,   &Pair::replace,
            &Pair::replace, &Pair::move,     &Pair::format,    &Pair::lineFormat,
            &Pair::color,   &Pair::find,     &Pair::span,      &Pair::limits};
        (this->*kSteps[random_.below(std::size(kSteps))])();
    }
    void setText() {
        if (model_.text.size() < 60 && !random_.oneIn(8)) return;
        const std::string in = text() + text();
        apply("SetText(" + literal(in) + ")", [&](auto& target) { target.SetText(in); });
    }
    void selStart() {
        const Long at = place();
        apply(joined("SetSelStart(", at, ")"), [&](auto& target) { target.SetSelStart(at); });
    }
    void selLength() {
        const Long length = place();
        apply(joined("SetSelLength(", length, ")"),
              [&](auto& target) { target.SetSelLength(length); });
    }
    void select() {
        const Offset one(somewhere());
        const Offset other(somewhere());
        apply(joined("select(Offset(", one, "), Offset(", other, "))"),
              [&](auto& target) { target.select(one, other); });
    }
    void selText() {
        const std::string in = text();
        apply("SetSelText(" + literal(in) + ")", [&](auto& target) { target.SetSelText(in); });
    }
    void replace() {
        const Range where =
            random_.oneIn(2) ? Range{Offset(model_.caret), Offset(model_.caret)} : range();
        const std::string in = text();
        apply(joined("userReplace({Offset(", where.begin(), "), Offset(", where.end(), ")}, ",
                     literal(in), ")"),
              [&](auto& target) { return target.userReplace(where, in); });
    }
    void move() {
        const Range from = range();
        const Offset to(somewhere());
        apply(joined("userMove({Offset(", from.begin(), "), Offset(", from.end(), ")}, Offset(", to,
                     "))"),
              [&](auto& target) { return target.userMove(from, to); });
    }
    void format() {
        const bool on = random_.oneIn(2);
        const auto value = static_cast<std::uint32_t>(random_.below(4));
        switch (random_.below(4)) {
            case 0:
                return apply(joined("SetSelBold(", on, ")"),
                             [&](auto& target) { target.SetSelBold(on); });
            case 1:
                return apply(joined("SetSelProtected(", !on, ")"), [&](auto& target) {
                    target.SetSelProtected(on && target.SelLength() < 4);
                });
            case 2:
                return apply(joined("SetSelCharOffset(", value, ")"),
                             [&](auto& target) { target.SetSelCharOffset(value); });
            default:
                return apply(joined("SetSelColor(", value, ")"),
                             [&](auto& target) { target.SetSelColor(value); });
        }
    }
    void lineFormat() {
        const bool on = random_.oneIn(2);
        const Long twips = static_cast<Long>(random_.below(3));
        if (random_.oneIn(2))
            apply(joined("SetSelBullet(", on, ")"), [&](auto& target) { target.SetSelBullet(on); });
        else
            apply(joined("SetSelIndent(", twips, ")"),
                  [&](auto& target) { target.SetSelIndent(twips); });
    }
    void color() {
        const Offset from(random_.below(model_.text.size() + 1));
        std::vector<ColorRun> runs;
        std::string code;
        for (std::size_t count = random_.below(6); count > 0; --count) {
            const ColorRef color =
                random_.oneIn(4) ? ColorRun::kKeep : static_cast<ColorRef>(random_.below(3));
            runs.push_back({static_cast<std::uint32_t>(random_.below(5)), color});
            code += joined("{", runs.back().length, ", ", color, "}, ");
        }
        apply(joined("colorRuns(Offset(", from, "), std::vector<ColorRun>{", code, "})"),
              [&](auto& target) { target.colorRuns(from, runs); });
    }
    void find() {
        const std::string wanted = random_.text(random_.below(3), "aAb_\n\xE4");
        const auto bound = [&] { return random_.oneIn(2) ? std::nullopt : std::optional(place()); };
        const std::optional<Long> start = bound();
        const std::optional<Long> end = bound();
        const Long options = static_cast<Long>(random_.below(8) * 2);
        const auto code = [](std::optional<Long> at) { return at ? joined(*at) : "{}"; };
        apply(joined("Find(", literal(wanted), ", ", code(start), ", ", code(end), ", ", options,
                     ")"),
              [&](auto& target) { return target.Find(wanted, start, end, options); });
    }
    void span() {
        const std::string set = random_.text(3, "aAb_. \r\n");
        const bool forward = random_.oneIn(2);
        const bool negate = random_.oneIn(2);
        const bool upTo = random_.oneIn(2);
        apply(joined(upTo ? "UpTo(" : "Span(", literal(set), ", ", forward, ", ", negate, ")"),
              [&](auto& target) {
                  upTo ? target.UpTo(set, forward, negate) : target.Span(set, forward, negate);
              });
    }
    void limits() {
        const bool on = random_.oneIn(4);
        const Long most = on ? place() : 0;
        if (random_.oneIn(2))
            apply(joined("SetLocked(", on, ")"), [&](auto& target) { target.SetLocked(on); });
        else
            apply(joined("SetMaxLength(", most, ")"),
                  [&](auto& target) { target.SetMaxLength(most); });
    }

    void compare() {
        box_.checkInvariants();
        ASSERT_EQ(box_.Text(), model_.text);
        EXPECT_EQ(boxLog_.text, modelLog_.text);
        boxLog_.text.clear();
        modelLog_.text.clear();
        EXPECT_EQ(box_.anchor(), Offset(model_.anchor));
        EXPECT_EQ(box_.caret(), Offset(model_.caret));
        for (std::size_t i = 0; i < model_.text.size(); ++i)
            ASSERT_TRUE(box_.formatAt(Offset(i)) == model_.formats[i]) << "format at " << i;
        ASSERT_EQ(box_.GetLineCount(), static_cast<Long>(model_.lines.size()));
        for (std::size_t line = 0; line < model_.lines.size(); ++line)
            ASSERT_TRUE(box_.paragraphAt(LineIndex(line)) == model_.lines[line]) << "line " << line;
        EXPECT_EQ(box_.SelColor(), model_.common(&CharFormat::color));
        EXPECT_EQ(box_.SelBold(), model_.common(&CharFormat::bold));
        EXPECT_EQ(box_.SelIndent(), model_.commonIndent());
        const std::size_t at = random_.below(model_.text.size() + 1);
        const Long line = box_.GetLineFromChar(static_cast<Long>(at));
        EXPECT_EQ(line, static_cast<Long>(model_.breaksIn(0, at)));
        EXPECT_EQ(model_.breaksIn(0, static_cast<std::size_t>(box_.GetLineIndex(line))),
                  static_cast<std::size_t>(line));
    }

    Random random_;
    Journal journal_;
    Log boxLog_;
    Log modelLog_;
    LoggingObserver observer_{boxLog_};
    RichTextBox box_;
    Model model_{modelLog_};
};

TEST(RichTextBoxModel, AgreesAfterRandomOperations) {
    for (const std::uint64_t seed : test::seeds(6)) {
        for (const bool reentrant : {false, true}) {
            Pair(seed, reentrant).run(3000);
            ASSERT_FALSE(HasFailure());
        }
    }
}

}  // namespace
}  // namespace brindlex
