// SPDX-License-Identifier: LicenseRef-ORVALD
// The vl-file and vl-filename families. Names may use either separator; those that are taken apart
// keep the one they came with. Failure is nil.
#include "builtins/tables.h"

#include "characters.h"
#include "number_text.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <vector>

namespace orvald::lisp {

namespace {

namespace fs = std::filesystem;

fs::path pathOf(World& world, std::u16string_view name)
{
#ifdef _WIN32
    return fs::path(toUtf16(world.host().filePath(name)));
#else
    return fs::path(world.host().filePath(name));
#endif
}

// Names that are no valid text are shown as well as can be.
std::u16string textOf(const fs::path& path)
{
#ifdef _WIN32
    return path.u16string();
#else
    return toUtf16(path.string());
#endif
}

fs::path pathArgument(World& world, Args args, int index)
{
    return pathOf(world, args.string(index));
}

// (vl-file-copy from to [append]): the octets copied; an existing file is never replaced
Value fileCopy(World& world, Args args)
{
    const fs::path from = pathArgument(world, args, 0);
    const fs::path to = pathArgument(world, args, 1);
    std::error_code error;
    const bool append = !args.at(2).isNil();
    if (!fs::is_regular_file(from, error) || fs::equivalent(from, to, error)) return Value::nil();
    const bool exists = fs::exists(to, error);
    if (exists && !append) return Value::nil();
    std::ifstream in(from, std::ios::binary);
    std::ofstream out(to, std::ios::binary | (append ? std::ios::app : std::ios::trunc));
    const auto size = static_cast<std::int32_t>(fs::file_size(from, error));
    if (!in || !out || error) return Value::nil();
    if (size > 0) out << in.rdbuf();
    out.close();
    return out ? Value::integer(size) : Value::nil();
}

Value fileDelete(World& world, Args args)
{
    const fs::path path = pathArgument(world, args, 0);
    std::error_code error;
    if (fs::is_directory(path, error)) return Value::nil();
    return world.boolean(fs::remove(path, error) && !error);
}

Value fileRename(World& world, Args args)
{
    const fs::path from = pathArgument(world, args, 0);
    const fs::path to = pathArgument(world, args, 1);
    std::error_code error;
    if (fs::exists(to, error)) return Value::nil();
    fs::rename(from, to, error);
    return world.boolean(!error);
}

Value fileSize(World& world, Args args)
{
    const fs::path path = pathArgument(world, args, 0);
    std::error_code error;
    if (fs::is_directory(path, error)) return Value::integer(0);
    const auto size = fs::file_size(path, error);
    if (error) return Value::nil();
    return size <= 0x7FFFFFFF ? Value::integer(static_cast<std::int32_t>(size))
                              : Value::real(static_cast<double>(size));
}

// Year, month, day of the week (Sunday 0), day, hour, minute, second, millisecond; local time
Value fileTime(World& world, Args args)
{
    namespace chrono = std::chrono;
    std::error_code error;
    const auto written = fs::last_write_time(pathArgument(world, args, 0), error);
    if (error) return Value::nil();
    const auto moment = chrono::time_point_cast<chrono::milliseconds>(
        written - fs::file_time_type::clock::now() + chrono::system_clock::now());
    const std::time_t seconds = chrono::system_clock::to_time_t(moment);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    const auto thousandths = static_cast<int>(moment.time_since_epoch().count() % 1000);
    ListBuilder list(world);
    for (const int part : {local.tm_year + 1900, local.tm_mon + 1, local.tm_wday, local.tm_mday,
                           local.tm_hour, local.tm_min, local.tm_sec, thousandths}) {
        list.add(Value::integer(part));
    }
    return list.list();
}

Value isDirectory(World& world, Args args)
{
    std::error_code error;
    return world.boolean(fs::is_directory(pathArgument(world, args, 0), error));
}

// * and ? of file names, without regard to case; "*.*" means every name.
bool matchesFileName(std::u16string_view name, std::u16string_view pattern)
{
    if (pattern == u"*.*") return true;
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::u16string_view::npos;
    std::size_t resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            star = ++p;
            resume = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == u'?' || text::upperUnit(pattern[p]) == text::upperUnit(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::u16string_view::npos) {
            p = star;
            n = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', p) == std::u16string_view::npos;
}

// (vl-directory-files [directory pattern which]): -1 directories, 0 both, 1 files; sorted
Value directoryFiles(World& world, Args args)
{
    const std::u16string_view directory = args.at(0).isNil() ? u"." : args.string(0);
    const std::u16string_view pattern = args.at(1).isNil() ? u"*" : args.string(1);
    const std::int32_t which = args.at(2).isNil() ? 0 : args.integer(2);
    std::vector<std::u16string> names;
    std::error_code error;
    fs::directory_iterator entries(pathOf(world, directory.empty() ? u"." : directory), error);
    if (error) return Value::nil();
    if (which <= 0) {
        for (const char16_t* name : {u".", u".."}) {
            if (matchesFileName(name, pattern)) names.emplace_back(name);
        }
    }
    for (const fs::directory_iterator end; entries != end && !error; entries.increment(error)) {
        std::error_code ignored;
        const bool isFolder = entries->is_directory(ignored);
        if ((isFolder && which > 0) || (!isFolder && which < 0)) continue;
        std::u16string name = textOf(entries->path().filename());
        if (matchesFileName(name, pattern)) names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    ListBuilder list(world);
    for (const std::u16string& name : names) list.add(world.makeString(name));
    return list.list();
}

Value makeDirectory(World& world, Args args)
{
    std::error_code error;
    return world.boolean(fs::create_directory(pathArgument(world, args, 0), error) && !error);
}

// Where the last part of a file name begins, and where its extension does (npos for none).
struct NameParts
{
    std::size_t base;
    std::size_t extension;
};

NameParts partsOf(std::u16string_view name)
{
    const std::size_t separator = name.find_last_of(u"\\/:");
    const std::size_t base = separator == std::u16string_view::npos ? 0 : separator + 1;
    const std::size_t dot = name.rfind(u'.');
    return {base, dot == std::u16string_view::npos || dot < base ? std::u16string_view::npos : dot};
}

Value nameBase(World& world, Args args)
{
    const std::u16string_view name = args.string(0);
    const NameParts parts = partsOf(name);
    return world.makeString(
        name.substr(parts.base, std::min(parts.extension, name.size()) - parts.base));
}

// Without the separator at its end, unless it is the root's.
Value nameDirectory(World& world, Args args)
{
    const std::u16string_view name = args.string(0);
    std::u16string_view directory = name.substr(0, partsOf(name).base);
    const bool isRoot = directory.size() <= 1 || directory[directory.size() - 2] == u':';
    if (!isRoot && directory.back() != u':') directory.remove_suffix(1);
    return world.makeString(directory);
}

Value nameExtension(World& world, Args args)
{
    const std::u16string_view name = args.string(0);
    const NameParts parts = partsOf(name);
    if (parts.extension == std::u16string_view::npos) return Value::nil();
    return world.makeString(name.substr(parts.extension));
}

// (vl-filename-mktemp [pattern directory extension]): a name that no file has
Value makeTemporaryName(World& world, Args args)
{
    std::u16string base = u"$VL~~";
    std::error_code none;
    std::u16string directory = textOf(fs::temp_directory_path(none));
    std::u16string extension;
    if (!args.at(0).isNil()) {
        const std::u16string_view pattern = args.string(0);
        const NameParts parts = partsOf(pattern);
        if (parts.base > 0) directory = pattern.substr(0, parts.base - 1);
        base = pattern.substr(parts.base, std::min(parts.extension, pattern.size()) - parts.base);
        if (parts.extension != std::u16string_view::npos) {
            extension = pattern.substr(parts.extension);
        }
    }
    if (!args.at(1).isNil()) directory = args.string(1);
    if (!args.at(2).isNil()) extension = args.string(2);
    if (!directory.empty() && directory.find_last_of(u"\\/") != directory.size() - 1) {
        directory += directory.find(u'\\') == std::u16string::npos ? u'/' : u'\\';
    }
    constexpr int kMostTries = 100000;
    for (int serial = 1; serial < kMostTries; ++serial) {
        std::u16string digits = integerText(serial);
        if (digits.size() < 3) digits.insert(0, 3 - digits.size(), u'0');
        const std::u16string name = directory + base + digits + extension;
        std::error_code error;
        if (!fs::exists(pathOf(world, name), error)) return world.makeString(name);
    }
    return Value::nil();
}

constexpr Builtin kTable[] = {
    {"vl-file-copy", fileCopy, 2, 3},
    {"vl-file-delete", fileDelete, 1, 1},
    {"vl-file-rename", fileRename, 2, 2},
    {"vl-file-size", fileSize, 1, 1},
    {"vl-file-systime", fileTime, 1, 1},
    {"vl-file-directory-p", isDirectory, 1, 1},
    {"vl-directory-files", directoryFiles, 0, 3},
    {"vl-mkdir", makeDirectory, 1, 1},
    {"vl-filename-base", nameBase, 1, 1},
    {"vl-filename-directory", nameDirectory, 1, 1},
    {"vl-filename-extension", nameExtension, 1, 1},
    {"vl-filename-mktemp", makeTemporaryName, 0, 3},
};

} // namespace

std::span<const Builtin> directoryBuiltins() { return kTable; }

} // namespace orvald::lisp
