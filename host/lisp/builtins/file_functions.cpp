// SPDX-License-Identifier: LicenseRef-ORVALD
// Open files, and loading programs. Text is written as UTF-8 and read as UTF-8 or ANSI, line by
// line; read-char alone sees single octets.
#include "builtins/tables.h"

#include "builtins/file_access.h"
#include "characters.h"
#include "evaluator.h"
#include "printer.h"
#include "text_file.h"

#include <algorithm>

namespace orvald::lisp {

File& fileOf(World& world, Value value)
{
    auto* file = isObjectOf(value, Kind::file) ? static_cast<File*>(value.asObject()) : nullptr;
    if (file == nullptr || file->stream == nullptr) world.badArgument("FILE", value);
    return *file;
}

void writeText(World& world, File& file, std::u16string_view text)
{
    bool written = file.writes;
    if (char octets[256]; text.size() <= sizeof octets && text::asciiLength(text) == text.size()) {
        std::ranges::transform(text, octets, [](char16_t unit) { return static_cast<char>(unit); });
        written = written && std::fwrite(octets, 1, text.size(), file.stream) == text.size();
    } else {
        const std::string encoded = toUtf8(text);
        written = written &&
                  std::fwrite(encoded.data(), 1, encoded.size(), file.stream) == encoded.size();
    }
    if (!written) {
        world.raise(u"cannot write to file " +
                    printedText(world.makeString(file.name), Quoting::quoted));
    }
}

void writeTo(World& world, Value file, std::u16string_view text)
{
    if (file.isNil()) {
        world.host().print(text);
    } else {
        writeText(world, fileOf(world, file), text);
    }
}

namespace {

#ifdef _WIN32
constexpr char16_t kLineEnd[] = u"\r\n";
int nextOctet(std::FILE* stream) { return std::fgetc(stream); }
#else
constexpr char16_t kLineEnd[] = u"\n";
// A world belongs to one thread, and so do its files.
int nextOctet(std::FILE* stream) { return getc_unlocked(stream); }
#endif

// Some files of a system have no end.
constexpr std::size_t kLongestLine = std::size_t{64} << 20;

// (open name mode [encoding]); the encoding is always found out or UTF-8
Value open(World& world, Args args)
{
    const std::u16string_view name = args.string(0);
    const std::u16string mode = text::upperText(args.string(1));
    const char* access = mode == u"R" ? "r" : mode == u"W" ? "w" : mode == u"A" ? "a" : nullptr;
    if (access == nullptr) world.raise(u"bad argument value: open mode " + world.prin1(args[1]));
    std::FILE* stream = openFile(world.host().filePath(name), access);
    if (stream == nullptr) return Value::nil();
    File* file = nullptr;
    try {
        file = evaluatorOf(world).heap.make<File>();
    } catch (...) {
        std::fclose(stream);
        throw;
    }
    file->stream = stream;
    file->writes = *access != 'r';
    file->name = name;
    return Value::object(file);
}

Value close(World& world, Args args)
{
    File& file = fileOf(world, args[0]);
    const bool written = std::fclose(file.stream) == 0;
    file.stream = nullptr;
    if (!written) world.raise(u"cannot write to file " + world.prin1(world.makeString(file.name)));
    return Value::nil();
}

// Without a file the lines come from the user, whom a bare world does not have.
Value readLine(World& world, Args args)
{
    if (args.at(0).isNil()) return Value::nil();
    File& file = fileOf(world, args[0]);
    if (file.writes) return Value::nil();
    int octet = nextOctet(file.stream);
    if (octet == EOF) return Value::nil();
    std::string longer; // what does not fit into the piece
    char piece[256];
    std::size_t length = 0;
    for (; octet != EOF && octet != '\n'; octet = nextOctet(file.stream)) {
        if (length == sizeof piece) {
            longer.append(piece, length);
            length = 0;
            if (longer.size() > kLongestLine) throw HeapExhausted();
        }
        piece[length++] = static_cast<char>(octet);
    }
    if (!longer.empty()) longer.append(piece, length);
    std::string_view line = longer.empty() ? std::string_view(piece, length) : longer;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (text::asciiLength(line) == line.size()) {
        return evaluatorOf(world).heap.makeAscii(line);
    }
    return world.makeString(decodeFile(line));
}

Value writeLine(World& world, Args args)
{
    const std::u16string_view line = args.string(0);
    if (args.at(1).isNil()) {
        world.host().print(std::u16string(line) + u"\n");
    } else {
        File& file = fileOf(world, args[1]);
        writeText(world, file, line);
        writeText(world, file, kLineEnd);
    }
    return args[0];
}

Value readChar(World& world, Args args)
{
    if (args.at(0).isNil()) return Value::nil();
    File& file = fileOf(world, args[0]);
    if (file.writes) return Value::nil();
    int octet = nextOctet(file.stream);
    if (octet == '\r') { // a line's end is one character, however it is written
        octet = nextOctet(file.stream);
        if (octet != '\n') {
            std::ungetc(octet, file.stream);
            octet = '\r';
        }
    }
    return octet == EOF ? Value::nil() : Value::integer(octet);
}

Value writeChar(World& world, Args args)
{
    const std::int32_t code = args.integer(0);
    if (code < 0 || code > 0xFFFF) world.badArgument("characterp", args[0]);
    const auto unit = static_cast<char16_t>(code);
    writeTo(world, args.at(1), {&unit, 1});
    return args[0];
}

Value findFile(World& world, Args args)
{
    const std::string found = world.host().findFile(world.host().filePath(args.string(0)), {});
    return found.empty() ? Value::nil() : world.makeString(toUtf16(found));
}

// (load name [on-failure]): the value of the last form. A file that is not there is an error unless
// on-failure is given: a function to call, or a value.
Value load(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    static constexpr std::string_view kSuffixes[] = {".lsp", ".LSP"};
    const std::u16string_view name = args.string(0);
    const std::string path = world.host().findFile(world.host().filePath(name), kSuffixes);
    const auto text = path.empty() ? std::nullopt : readTextFile(path);
    if (text) return evaluator.evalAll(*text, path);
    if (args.size() < 2) world.raise(u"LOAD failed: " + world.prin1(args[0]));
    const Value fallback = args[1];
    const bool callable =
        fallback.isObject() && fallback.kind() >= Kind::subr && fallback.kind() <= Kind::exrxsubr;
    return callable ? evaluator.callBack(fallback, evaluator.sp) : fallback;
}

// (autoload name commands): each command first loads the file, which defines it anew.
Value autoload(World& world, Args args)
{
    args.string(0);
    const auto symbol = [&](std::u16string_view name) { return Value::symbol(world.intern(name)); };
    for (Value rest = args.list(1); rest.isCons(); rest = rest.asCons()->cdr) {
        const Value name = rest.asCons()->car;
        if (!isString(name)) world.badArgument("stringp", name);
        const Value command = symbol(u"c:" + std::u16string(stringOf(name)));
        Root form(world, world.makeList({symbol(u"defun"), command, Value::nil(),
                                         world.makeList({symbol(u"load"), args[0]}),
                                         world.makeList({command})}));
        evaluatorOf(world).evalForm(form.value);
    }
    return Value::nil();
}

constexpr Builtin kTable[] = {
    {"open", open, 2, 3},          {"close", close, 1, 1},
    {"read-line", readLine, 0, 1}, {"write-line", writeLine, 1, 2},
    {"read-char", readChar, 0, 1}, {"write-char", writeChar, 1, 2},
    {"findfile", findFile, 1, 1},  {"load", load, 1, 2},
    {"autoload", autoload, 2, 2},
};

} // namespace

std::span<const Builtin> fileBuiltins() { return kTable; }

} // namespace orvald::lisp
