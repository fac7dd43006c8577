// SPDX-License-Identifier: LicenseRef-ORVALD
#include "options.h"

#include <array>
#include <charconv>
#include <cmath>
#include <functional>

namespace orvald::cli {
namespace {

/// An option: what it is called and what it does with its value.
struct Row
{
    std::string_view name, shortName;
    bool takesValue;
    void (*apply)(Options& options, const std::string& value);
    /// What a value must be; none: anything.
    bool (*fits)(const std::string& value) = nullptr;
    std::string_view takes = {}; // "a number of pixels"
};

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

constexpr int kMostPixels = 16384;
bool isPixels(const std::string& value)
{
    double n = 0.0;
    return readNumbers(value, &n, 1) && n >= 0.0 && n <= kMostPixels && n == std::floor(n);
}
int pixels(const std::string& value)
{
    double n = 0.0;
    readNumbers(value, &n, 1);
    return static_cast<int>(n);
}
bool isWindow(const std::string& value)
{
    double n[4];
    return readNumbers(value, n, 4) && n[0] < n[2] && n[1] < n[3];
}
bool isSetting(const std::string& value) { return value.find('=') != std::string::npos; }
bool isAnswer(const std::string& value) { return value == "ok" || value == "cancel"; }

constexpr std::array kRows = {
    Row{"--home", "", true, [](Options& o, const std::string& v) { o.session.home = v; }},
    Row{"--load", "", true, [](Options& o, const std::string& v) { o.session.modules.push_back(v); }},
    Row{"--no-kernel", "", false, [](Options& o, const std::string&) { o.session.kernel.clear(); }},
    Row{"--boxes", "", true, [](Options& o, const std::string& v) { o.session.boxesOk = v == "ok"; },
        isAnswer, "ok or cancel"},
    Row{"--quiet", "-q", false, [](Options& o, const std::string&) { o.session.quiet = true; }},
    Row{"--verbose", "-v", false, [](Options& o, const std::string&) { o.session.verbose = true; }},
    Row{"--help", "-h", false, [](Options& o, const std::string&) { o.help = true; }},
    Row{"--version", "", false, [](Options& o, const std::string&) { o.version = true; }},
    Row{"--drawing", "-d", true, [](Options& o, const std::string& v) { o.drawing = v; }},
    Row{"--save", "-s", true, [](Options& o, const std::string& v) { o.save = v; }},
    Row{"--picture", "", true, [](Options& o, const std::string& v) { o.picture = v; }},
    Row{"--answers", "", true, [](Options& o, const std::string& v) { o.answers = v; }},
    Row{"--width", "", true, [](Options& o, const std::string& v) { o.look.width = pixels(v); },
        isPixels, "pixels"},
    Row{"--height", "", true, [](Options& o, const std::string& v) { o.look.height = pixels(v); },
        isPixels, "pixels"},
    Row{"--margin", "", true, [](Options& o, const std::string& v) { o.look.margin = pixels(v); },
        isPixels, "pixels"},
    Row{"--dark", "", false, [](Options& o, const std::string&) { o.look.dark = true; }},
    Row{"--thin", "", false, [](Options& o, const std::string&) { o.look.lineWeights = false; }},
    Row{"--layout", "", true, [](Options& o, const std::string& v) { o.look.layout = v; }},
    Row{"--window", "", true,
        [](Options& o, const std::string& v) {
            readNumbers(v, o.look.window.emplace().data(), 4);
        },
        isWindow, "LEFT,BOTTOM,RIGHT,TOP"},
    Row{"--from-text", "", true, [](Options& o, const std::string& v) { o.fromText = v; }},
    Row{"--trace", "", false, [](Options& o, const std::string&) { o.session.trace = true; }},
    Row{"--time", "", false, [](Options& o, const std::string&) { o.time = true; }},
    Row{"--overlay", "", false, [](Options& o, const std::string&) { o.overlay = true; }},
    Row{"--json", "", false, [](Options& o, const std::string&) { o.json = true; }},
    Row{"", "-e", true, [](Options& o, const std::string& v) { o.expressions.push_back(v); }},
    Row{"--set", "", true,
        [](Options& o, const std::string& v) {
            const std::size_t equals = v.find('=');
            o.session.variables.emplace_back(
                v.substr(0, equals), equals == std::string::npos ? "" : v.substr(equals + 1));
        },
        isSetting, "NAME=VALUE"},
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
        if (row->fits != nullptr && !row->fits(value)) {
            (problem = row->name).append(" takes ").append(row->takes);
            return std::nullopt;
        }
        row->apply(options, value);
    }
    return options;
}

std::string_view helpText()
{
    return R"(orvald: runs AutoLISP programs on drawings, with the construction-detailing kernel loaded

  orvald run PROGRAM.lsp [...] [ARG ...]   load LISP programs in order; (argv) gives the arguments
      -d, --drawing FILE.dxf       open this drawing first (else a new one)
      -s, --save FILE.dxf          save the drawing when the program has ended without error
      -e EXPR                      evaluate an expression after the files
      --answers FILE               answers to prompts, one a line (else standard input)
      --picture FILE.svg|.png      draw the result
      --trace                      print every call into the kernel
      --time                       totals of the kernel's functions at the end
  orvald eval EXPR ...             print each value as LISP prints it
      -d, --drawing FILE.dxf       in this drawing
  orvald draw FILE.dxf PICTURE.svg|.png    draw a drawing
      --overlay [PROGRAM.lsp ...]  with the temporary graphics that programs and -e EXPR draw on it
      --width N, --height N, --margin N    pixels (else 1600, as what is drawn asks, and 40)
      --dark                       on a dark background, else on white
      --thin                       without line weights, else as on a sheet A3
      --layout NAME                this layout instead of the model
      --window X1,Y1,X2,Y2         this part of it; all these serve --picture too
  orvald info FILE.dxf [--json]    what is in a drawing: version, units, extents, counts by kind, layers,
                                   layouts, blocks, external references, kinds of other applications
  orvald check FILE.dxf [--json]   every problem in a drawing file with its line, handle and kind, then
                                   sums by kind; errors give the exit status 2, warnings do not
  orvald data FILE.dex             print a data file as text that can be edited
  orvald data --from-text TEXT FILE.dex    write a data file from such a text
  orvald functions [WORD] [--json] the kernel's LISP functions in table order:
                                   name, arguments, result, built or not

Common options, before or after the command:
  --home DIR            configuration, registry and catalog (else $XDG_CONFIG_HOME/orvald)
  --set NAME=VALUE      set a system variable
  --load FILE.arx       load a further module
  --no-kernel           do not load the kernel
  --boxes ok|cancel     what boxes with OK and Cancel are answered (else cancel)
  -q, --quiet           fewer messages       -v, --verbose   more of them
  --version             -h, --help

What the program prints goes to stdout, messages and alerts to stderr, all in UTF-8.
Exit: 0 well; 2 the drawing or data file could not be loaded, or has errors;
3 a LISP error reached the top; 4 output not written; 5 input wanted; 6 a fault in a module; 64 usage;
66 file missing; 70 internal; 130 interrupted.
)";
}

} // namespace orvald::cli
