// SPDX-License-Identifier: LicenseRef-ORVALD
#include "options.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orvald::cli {
namespace {

/// An option: what it is called and what it does with its value. Gives what it takes when the value
/// is none for it, else null.
struct Row
{
    std::string_view name, shortName;
    bool takesValue;
    const char* (*apply)(Options& options, const std::string& value);
};

/// An option that is there or not.
template <auto kSet>
constexpr Row flag(std::string_view name, std::string_view shortName = {})
{
    return {name, shortName, false, [](Options& options, const std::string&) -> const char* {
                kSet(options);
                return nullptr;
            }};
}

/// An option with any text.
template <auto kSet>
constexpr Row text(std::string_view name, std::string_view shortName = {})
{
    return {name, shortName, true, [](Options& options, const std::string& value) -> const char* {
                kSet(options, value);
                return nullptr;
            }};
}

/// Reads `count` numbers with commas between them; false for anything else.
bool readNumbers(std::string_view text, double* numbers, int count)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    for (int i = 0; i < count; ++i) {
        if (i > 0 && (at == end || *at++ != ',')) return false;
        const auto read = std::from_chars(at, end, numbers[i]);
        if (read.ec != std::errc{} || !std::isfinite(numbers[i])) return false;
        at = read.ptr;
    }
    return at == end;
}

bool readWhole(std::string_view text, double least, double most, double& number)
{
    return readNumbers(text, &number, 1) && number >= least && number <= most &&
           number == std::floor(number);
}

const char* setBoxes(Options& options, const std::string& value)
{
    options.session.boxesOk = value == "ok";
    return value == "ok" || value == "cancel" ? nullptr : "ok or cancel";
}

const char* setVariable(Options& options, const std::string& value)
{
    const std::size_t equals = value.find('=');
    if (equals == std::string::npos) return "NAME=VALUE";
    options.session.variables.emplace_back(value.substr(0, equals), value.substr(equals + 1));
    return nullptr;
}

const char* setTimeLimit(Options& options, const std::string& value)
{
    double& seconds = options.limits.seconds;
    return readNumbers(value, &seconds, 1) && seconds > 0.0 ? nullptr
                                                            : "a number of seconds above 0";
}

const char* setMemoryLimit(Options& options, const std::string& value)
{
    constexpr double kMostMegabytes = 1 << 30;
    double megabytes = 0.0;
    if (!readWhole(value, 1.0, kMostMegabytes, megabytes)) return "a whole number of megabytes";
    options.limits.memory = static_cast<std::size_t>(megabytes) << 20;
    options.session.heapLimit = options.limits.memory / 2; // the rest: program, drawing
    return nullptr;
}

template <int PictureOptions::*kMember>
const char* setPixels(Options& options, const std::string& value)
{
    constexpr double kMostPixels = 16384;
    double pixels = 0.0;
    if (!readWhole(value, 0.0, kMostPixels, pixels)) return "pixels";
    options.look.*kMember = static_cast<int>(pixels);
    return nullptr;
}

const char* setWindow(Options& options, const std::string& value)
{
    auto& n = options.look.window.emplace();
    const bool fits = readNumbers(value, n.data(), 4) && n[0] < n[2] && n[1] < n[3];
    return fits ? nullptr : "LEFT,BOTTOM,RIGHT,TOP";
}

using Text = const std::string&;
constexpr std::array kRows = {
    text<[](Options& o, Text v) { o.session.home = v; }>("--home"),
    text<[](Options& o, Text v) { o.session.modules.push_back(v); }>("--load"),
    flag<[](Options& o) { o.session.kernel.clear(); }>("--no-kernel"),
    Row{"--boxes", "", true, setBoxes},
    flag<[](Options& o) { o.session.quiet = true; }>("--quiet", "-q"),
    flag<[](Options& o) { o.session.verbose = true; }>("--verbose", "-v"),
    flag<[](Options& o) { o.help = true; }>("--help", "-h"),
    flag<[](Options& o) { o.version = true; }>("--version"),
    text<[](Options& o, Text v) { o.drawing = v; }>("--drawing", "-d"),
    text<[](Options& o, Text v) { o.save = v; }>("--save", "-s"),
    text<[](Options& o, Text v) { o.picture = v; }>("--picture"),
    text<[](Options& o, Text v) { o.answers = v; }>("--answers"),
    Row{"--width", "", true, setPixels<&PictureOptions::width>},
    Row{"--height", "", true, setPixels<&PictureOptions::height>},
    Row{"--margin", "", true, setPixels<&PictureOptions::margin>},
    flag<[](Options& o) { o.look.dark = true; }>("--dark"),
    flag<[](Options& o) { o.look.lineWeights = false; }>("--thin"),
    text<[](Options& o, Text v) { o.look.layout = v; }>("--layout"),
    Row{"--window", "", true, setWindow},
    text<[](Options& o, Text v) { o.fromText = v; }>("--from-text"),
    flag<[](Options& o) { o.session.trace = true; }>("--trace"),
    flag<[](Options& o) { o.time = true; }>("--time"),
    flag<[](Options& o) { o.overlay = true; }>("--overlay"),
    flag<[](Options& o) { o.json = true; }>("--json"),
    text<[](Options& o, Text v) { o.expressions.push_back(v); }>("", "-e"),
    Row{"--set", "", true, setVariable},
    Row{"--timeout", "", true, setTimeLimit},
    Row{"--memory", "", true, setMemoryLimit},
};

const Row* findRow(std::string_view name)
{
    for (const Row& row : kRows) {
        if (!name.empty() && (name == row.name || name == row.shortName)) return &row;
    }
    return nullptr;
}

} // namespace

std::optional<Options> readOptions(const std::vector<std::string>& arguments, std::string& problem)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        if (word == "--") {
            options.program.assign(arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                   arguments.end());
            break;
        }
        // An expression may begin with a minus: only known spellings and --names are options.
        const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
        const Row* row = findRow(word.substr(0, equals));
        if (row == nullptr) {
            const bool number = word.size() > 1 && word[1] >= '0' && word[1] <= '9';
            if (word.size() > 1 && word[0] == '-' && !number) {
                problem = "unknown option " + word;
                return std::nullopt;
            }
            if (options.command.empty()) options.command = word;
            else options.words.push_back(word);
            continue;
        }
        std::string value;
        if (row->takesValue) {
            if (equals != std::string::npos) {
                value = word.substr(equals + 1);
            } else if (++i < arguments.size()) {
                value = arguments[i];
            } else {
                problem = word + " needs a value";
                return std::nullopt;
            }
        } else if (equals != std::string::npos) {
            problem = std::string(row->name) + " takes no value";
            return std::nullopt;
        }
        if (const char* wanted = row->apply(options, value)) {
            problem = std::string(row->name) + " takes " + wanted;
            return std::nullopt;
        }
    }
    return options;
}

} // namespace orvald::cli
