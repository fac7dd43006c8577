// SPDX-License-Identifier: LicenseRef-ORVALD
// Open directories and lists stand on stacks of our own, both ways.
#include "kexdata/text_form.h"

#include "bin_form.h"
#include "kex/hex.h"
#include "kexdata/list_builder.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>

namespace KEX {
namespace {

using Kind = CKexDataItem::Kind;

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr int kDigitsOfUnit = 4, kDigitsOfReal = 16;

void appendHex(std::string& text, std::uint64_t value, int digits)
{
    for (int i = digits - 1; i >= 0; --i) text += kHexDigits[value >> (4 * i) & 15];
}

// ---- writing

class TextWriter
{
public:
    explicit TextWriter(const HandleTable& handles) : handles_(handles) {}

    std::string text(const CKexDataItem& item) &&
    {
        value(item);
        while (!open_.empty()) nextChild();
        text_ += '\n';
        return std::move(text_);
    }

private:
    static constexpr std::size_t kFullLine = 90; // a list goes on in the next line behind it
    static constexpr std::size_t kMostIndent = 40;

    struct Walk
    {
        CKexDataDir::ConstIterator at, end;
    };

    void newLine(std::size_t depth)
    {
        text_ += '\n';
        lineStart_ = text_.size();
        text_.append(2 * std::min(depth, kMostIndent), ' ');
    }

    void value(const CKexDataItem& item)
    {
        if (const CKexDataDir* dir = item.getDir()) {
            text_ += '{';
            open_.push_back({dir->begin(), dir->end()});
        } else if (item.isList()) {
            list(item);
        } else {
            atom(item);
        }
    }

    void nextChild()
    {
        Walk& walk = open_.back();
        if (walk.at == walk.end) {
            open_.pop_back();
            if (!text_.ends_with('{')) newLine(open_.size());
            text_ += '}';
            return;
        }
        const auto child = *walk.at;
        ++walk.at;
        newLine(open_.size());
        if (child.key.isText()) quoted(child.key.text());
        else text_ += std::to_string(child.key.number());
        text_ += ' ';
        value(child.item);
    }

    void list(const CKexDataItem& item)
    {
        text_ += '(';
        const CKexDataItem::Values& values = item.listValues();
        for (std::size_t i = 0; i < values.size(); ++i) {
            const Kind kind = values[i].kind();
            const Kind next = i + 1 < values.size() ? values[i + 1].kind() : Kind::nil;
            const bool last = i + 1 == values.size() && item.kind() == Kind::dottedList;
            if (kind == Kind::listEnd || kind == Kind::listEndDotted) {
                text_ += ')';
                continue;
            }
            if (!text_.ends_with('(')) {
                if (text_.size() - lineStart_ > kFullLine) newLine(open_.size() + 1);
                else text_ += ' ';
            }
            // A tail is one value: lists have joined the list that they ended.
            if (next == Kind::listEndDotted || last) text_ += ". ";
            if (kind == Kind::listBegin) text_ += '(';
            else atom(values[i]);
        }
        text_ += ')';
    }

    void atom(const CKexDataItem& item)
    {
        int whole = 0;
        double number = 0.0;
        CKexPoint3d point;
        CAdsName name;
        if (item.get(whole)) {
            text_ += std::to_string(whole);
        } else if (item.get(number)) {
            real(number);
        } else if (item.get(point)) {
            text_ += '(';
            real(point.x);
            text_ += ' ';
            real(point.y);
            if (item.kind() == Kind::point3d) {
                text_ += ' ';
                real(point.z);
            }
            text_ += ')';
        } else if (item.kind() == Kind::text) {
            quoted(item.text());
        } else if (item.get(name)) {
            text_ += '#';
            quoted(handles_.at(name));
        } else {
            text_ += item.kind() == Kind::t ? "T" : "nil";
        }
    }

    void real(double value)
    {
        if (!std::isfinite(value)) {
            text_ += '#';
            appendHex(text_, std::bit_cast<std::uint64_t>(value), kDigitsOfReal);
            return;
        }
        char digits[32];
        const std::string_view written(digits, std::to_chars(digits, std::end(digits), value).ptr);
        text_ += written;
        if (written.find_first_of(".e") == std::string_view::npos) text_ += ".0";
    }

    void quoted(TextView text)
    {
        text_ += '"';
        std::size_t start = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const ACHAR unit = text[i];
            const bool pair =
                isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
            if (pair) ++i;
            const bool lone = !pair && unit >= 0xD800 && unit <= 0xDFFF;
            if (unit >= ' ' && unit != '"' && unit != '\\' && unit != 0x7F && !lone) continue;
            text_ += toUtf8(text.substr(start, i - start));
            start = i + 1;
            escaped(unit);
        }
        text_ += toUtf8(text.substr(start));
        text_ += '"';
    }

    void escaped(ACHAR unit)
    {
        text_ += '\\';
        switch (unit) {
        case '"':
        case '\\': text_ += static_cast<char>(unit); return;
        case '\n': text_ += 'n'; return;
        case '\r': text_ += 'r'; return;
        case '\t': text_ += 't'; return;
        default: text_ += 'u'; appendHex(text_, unit, kDigitsOfUnit);
        }
    }

    const HandleTable& handles_;
    std::string text_;
    std::size_t lineStart_ = 0;
    std::vector<Walk> open_;
};

// ---- reading

/// Thrown at the first thing that is wrong; the reader knows the line.
struct TextProblem
{
    const char* reason;
};

class TextReader
{
public:
    TextReader(std::string_view text, HandleTable& handles) : text_(text), handles_(handles) {}

    /// Reads one value and nothing behind it. Throws TextProblem.
    void read(CKexDataItem& item)
    {
        begin(item);
        while (!open_.empty()) {
            if (take('}')) open_.pop_back();
            else begin(newChild(*open_.back()));
        }
        if (next() != 0 || at_ < text_.size()) throw TextProblem{"more follows behind the value"};
    }
    /// Where the reading has come to, from 1.
    std::ptrdiff_t line() const
    {
        const auto end = text_.begin() + static_cast<std::ptrdiff_t>(at_);
        return 1 + std::count(text_.begin(), end, '\n');
    }

private:
    /// The next character that is no blank and no comment; 0 at the end.
    char next()
    {
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (c == ';') at_ = std::min(text_.find('\n', at_), text_.size());
            else if (c == ' ' || c == '\t' || c == '\r' || c == '\n') ++at_;
            else return c;
        }
        return 0;
    }
    bool take(char wanted)
    {
        const bool there = next() == wanted;
        if (there) ++at_;
        return there;
    }

    /// Reads an item whole, but for the children of a directory, which then stands on the stack.
    void begin(CKexDataItem& item)
    {
        if (take('{')) open_.push_back(&item.mkDir());
        else if (take('(')) item = list();
        else item = atom();
    }

    CKexDataItem& newChild(CKexDataDir& dir)
    {
        if (next() == 0) throw TextProblem{"the text ends within a directory"};
        const CKexDataItem key = atom();
        int number = 0;
        const bool isNumber = key.get(number);
        if (!isNumber && key.kind() != Kind::text)
            throw TextProblem{"a key is a text or an integer"};
        const int before = dir.length();
        CKexDataItem& child =
            dir.makeChild(isNumber ? DataKeyView(number) : DataKeyView(key.text()));
        if (dir.length() == before) throw TextProblem{"the directory has this key already"};
        return child;
    }

    /// Reads a list behind its first bracket.
    CKexDataItem list()
    {
        ListReader reader;
        check(reader.begin());
        while (reader.isOpen()) {
            if (take('(')) {
                check(reader.begin());
            } else if (take(')')) {
                check(reader.end());
            } else if (next() == '.' && word() == ".") {
                check(reader.dot());
                ++at_;
            } else {
                if (next() == 0) throw TextProblem{"the text ends within a list"};
                check(reader.value(atom()));
            }
        }
        return reader.take();
    }

    static void check(ListReader::Problem problem)
    {
        using Problem = ListReader::Problem;
        switch (problem) {
        case Problem::none: return;
        case Problem::behindTail: throw TextProblem{"one value only stands behind a dot"};
        case Problem::noTail: throw TextProblem{"no value behind the dot"};
        case Problem::dotPlace: throw TextProblem{"a dot out of place"};
        }
    }

    /// What stands here up to the next blank, bracket, quote or comment.
    std::string_view word() const
    {
        const std::size_t end = text_.find_first_of(" \t\r\n(){}\";", at_);
        return text_.substr(at_, end == std::string_view::npos ? end : end - at_);
    }

    CKexDataItem atom()
    {
        const char first = next();
        if (first == '"') return CKexDataItem(quoted());
        if (first == '#') return marked();
        const std::string_view found = word();
        CKexDataItem item;
        if (found == "T") item = CKexDataItem(true);
        else if (found != "nil") item = number(found);
        at_ += found.size();
        return item;
    }

    static CKexDataItem number(std::string_view word)
    {
        constexpr const char* kNone = "a value is expected";
        if (word.find_first_of("0123456789") > 2) throw TextProblem{kNone};
        const char* const end = word.data() + word.size();
        if (word.find_first_of(".eE") == std::string_view::npos) {
            int whole = 0;
            const auto [stop, error] = std::from_chars(word.data(), end, whole);
            if (error == std::errc::result_out_of_range)
                throw TextProblem{"the integer has more than 32 bits"};
            if (error != std::errc() || stop != end) throw TextProblem{kNone};
            return CKexDataItem(whole);
        }
        double value = 0.0;
        const auto [stop, error] = std::from_chars(word.data(), end, value);
        if (error == std::errc::result_out_of_range) throw TextProblem{"no real is that large"};
        if (error != std::errc() || stop != end) throw TextProblem{kNone};
        return CKexDataItem(value);
    }

    /// A handle, or the bits of a real.
    CKexDataItem marked()
    {
        ++at_;
        if (at_ < text_.size() && text_[at_] == '"') return CKexDataItem(handles_.add(quoted()));
        if (word().size() != kDigitsOfReal)
            throw TextProblem{"# is followed by a text or 16 digits"};
        return CKexDataItem(std::bit_cast<double>(hexNumber(kDigitsOfReal)));
    }

    std::uint64_t hexNumber(int digits)
    {
        std::uint64_t value = 0;
        for (int i = 0; i < digits; ++i, ++at_) {
            const char c = at_ < text_.size() ? text_[at_] : ' ';
            const int digit = hexDigit(static_cast<ACHAR>(static_cast<unsigned char>(c)));
            if (digit < 0) throw TextProblem{"a hexadecimal digit is expected"};
            value = value << 4 | static_cast<std::uint64_t>(digit);
        }
        return value;
    }

    CKexString quoted()
    {
        CKexString text;
        ++at_;
        for (;;) {
            const std::size_t end = std::min(text_.find_first_of("\"\\", at_), text_.size());
            const auto plain = CKexString::fromUtf8Strict(text_.substr(at_, end - at_));
            if (!plain.has_value()) throw TextProblem{"the text is not UTF-8"};
            text += *plain;
            at_ = end;
            if (at_ == text_.size()) throw TextProblem{"a text has no end"};
            if (text_[at_++] == '"') return text;
            text += unescaped();
        }
    }

    ACHAR unescaped()
    {
        switch (at_ < text_.size() ? text_[at_++] : ' ') {
        case '"': return KT('"');
        case '\\': return KT('\\');
        case 'n': return KT('\n');
        case 'r': return KT('\r');
        case 't': return KT('\t');
        case 'u': return static_cast<ACHAR>(hexNumber(kDigitsOfUnit));
        default: throw TextProblem{"no such \\ in a text"};
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
    HandleTable& handles_;
    std::vector<CKexDataDir*> open_;
};

} // namespace

bool dataToText(std::string_view bytes, std::string& text, std::string& problem)
{
    HandleTable handles;
    const BinReading reading = binRead(bytes, &handles);
    const bool whole = reading.problem == nullptr;
    const bool any = whole || !reading.item.isNil();
    text = any ? TextWriter(handles).text(reading.item) : std::string();
    problem = whole ? "" : reading.problem;
    return whole;
}

bool dataFromText(std::string_view text, std::string& bytes, std::string& problem)
{
    HandleTable handles;
    TextReader reader(text, handles);
    CKexDataItem item;
    try {
        reader.read(item);
    } catch (const TextProblem& wrong) {
        problem = "line " + std::to_string(reader.line()) + ": " + wrong.reason;
        return false;
    }
    bytes = binWrite(item, handles);
    return true;
}

} // namespace KEX
