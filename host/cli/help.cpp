// SPDX-License-Identifier: LicenseRef-ORVALD
#include "help.h"

#include <array>

namespace orvald::cli {
namespace {

struct Section
{
    std::string_view command, text;
};

constexpr std::string_view kTitle =
    "orvald: runs AutoLISP programs on drawings, with the construction-detailing kernel loaded\n\n";

constexpr std::array kSections = {
    Section{
        "run",
        R"(  orvald run PROGRAM.lsp [...] [ARG ...]   load LISP programs in order; (argv) gives the arguments
      -d, --drawing FILE.dxf       open this drawing first (else a new one)
      -s, --save FILE.dxf          save the drawing when the program has ended without error
      -e EXPR                      evaluate an expression after the files
      --answers FILE               answers to prompts, one a line (else standard input)
      --picture FILE.svg|.png      draw the result
      --trace                      print every call into the kernel
      --time                       totals of the kernel's functions at the end
)"},
    Section{"eval", R"(  orvald eval EXPR ...             print each value as LISP prints it
      -d, --drawing FILE.dxf       in this drawing
)"},
    Section{
        "repl",
        R"(  orvald repl [PROGRAM.lsp ...]    a console, with history and completion at a terminal (Tab, arrow
                                   keys, Ctrl-R); else forms from standard input, one after the other
      -d, --drawing FILE.dxf       in this drawing; -s and --picture when it ends
                                   --timeout is for each form; (exit), (quit), Ctrl-D end; ,help
)"},
    Section{"draw", R"(  orvald draw FILE.dxf PICTURE.svg|.png    draw a drawing
      --overlay [PROGRAM.lsp ...]  with the temporary graphics that programs and -e EXPR draw on it
      --width N, --height N, --margin N    pixels (else 1600, as what is drawn asks, and 40)
      --dark                       on a dark background, else on white
      --thin                       without line weights, else as on a sheet A3
      --layout NAME                this layout instead of the model
      --window X1,Y1,X2,Y2         this part of it; all these serve --picture too
)"},
    Section{
        "info",
        R"(  orvald info FILE.dxf [--json]    what is in a drawing: version, units, extents, counts by kind, layers,
                                   layouts, blocks, external references, kinds of other applications
)"},
    Section{
        "check",
        R"(  orvald check FILE.dxf [--json]   every problem in a drawing file with its line, handle and kind, then
                                   sums by kind; errors give the exit status 2, warnings do not
)"},
    Section{"data",
            R"(  orvald data FILE.dex             print a data file as text that can be edited
  orvald data --from-text TEXT FILE.dex    write a data file from such a text
)"},
    Section{"functions",
            R"(  orvald functions [WORD] [--json] the kernel's LISP functions in table order:
                                   name, arguments, result, built or not
)"},
};

constexpr std::string_view kCommon = R"(
Common options, before or after the command:
  --home DIR            configuration, registry and catalog (else $XDG_CONFIG_HOME/orvald)
  --set NAME=VALUE      set a system variable
  --load FILE.arx       load a further module
  --no-kernel           do not load the kernel
  --boxes ok|cancel     what boxes with OK and Cancel are answered (else cancel)
  --timeout SECONDS     stop the program after this time and show where it was (else none)
  --memory MB           stop it when the process uses more (else half of the machine's memory);
                        LISP data may take half of it (else 512 MB)
  -q, --quiet           fewer messages       -v, --verbose   more of them
  --version             -h, --help           orvald COMMAND --help: about one command
)";

constexpr std::string_view kExit = R"(
What the program prints goes to stdout, messages and alerts to stderr, all in UTF-8.
Exit: 0 well; 2 the drawing or data file could not be loaded, or has errors;
3 a LISP error reached the top; 4 output not written; 5 input wanted; 6 a fault in a module; 64 usage;
66 file missing; 70 internal; 124 time limit passed; 130 interrupted; 137 memory limit passed.
)";

} // namespace

std::string helpText(std::string_view command)
{
    std::string text;
    for (const Section& section : kSections) {
        if (command.empty() || command == section.command) text += section.text;
    }
    if (text.empty()) return text;
    if (command.empty()) text.insert(0, kTitle);
    return text.append(kCommon).append(kExit);
}

} // namespace orvald::cli
