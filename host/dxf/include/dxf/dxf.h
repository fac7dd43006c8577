// SPDX-License-Identifier: LicenseRef-ORVALD
// Drawings as DXF: reading R10 to R2018, text and binary, writing R2013 (AC1027) as text.
// A loaded drawing is whole and in the form that is written, or it is not loaded: what other
// versions hold otherwise is brought up on loading, and what was mended stands in the warnings.
#pragma once

#include "drawing/drawing.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvald::dxf {

/// Why a drawing could not be read or written.
struct DxfError
{
    std::string file;           // as given; "" for text in memory
    std::uint64_t line = 0;     // from 1; 0: the file as a whole
    int group = kNoGroup;       // group code at that line
    std::string reason;         // one line, no full stop
    drawing::Handle handle = 0; // of the record, when it is known

    static constexpr int kNoGroup = -10000;
    /// "plan.dxf: line 120, group 40: "1,5" is no number (LINE 2F)".
    std::string message() const;
};

/// Something that was mended or left out.
struct Warning
{
    std::uint64_t line = 0; // 0: the drawing as a whole
    std::string text;
};

struct Loaded
{
    std::unique_ptr<drawing::Drawing> drawing; // null: not loaded, `error` says why
    DxfError error;
    std::vector<Warning> warnings; // at most kMostWarnings, then one that says how many more
    std::string version;           // "AC1015"
};
inline constexpr std::size_t kMostWarnings = 200;

Loaded load(const std::string& path);
/// Text in memory; it is read only during the call.
Loaded loadText(std::string_view text, std::string name = {});

/// The steps by which a file comes into being, so that tests can let each of them fail. Errors are
/// errno values, 0 is success.
class FileCalls
{
public:
    virtual ~FileCalls() = default;
    /// Makes an empty file at `path`, locked against other writers of it; what an earlier writer
    /// left there when it was killed goes. It gets the permissions of `model` when that exists.
    virtual int create(const std::string& path, const std::string& model, int& file);
    virtual int write(int file, const char* bytes, std::size_t count);
    virtual int flush(int file);
    virtual int close(int file);
    virtual int rename(const std::string& from, const std::string& to);
    virtual int flushFolder(const std::string& folder);
    virtual void remove(const std::string& path);
};
/// The file beside a target in which its new contents grow.
std::string temporaryName(const std::string& target);

struct Saved
{
    bool good = false;
    DxfError error;
    std::vector<Warning> warnings;
};

/// Writes beside the target, flushes, reads back and compares every record, renames, flushes the
/// folder: the target is the old file or the new one, whole, at every moment.
Saved save(const drawing::Drawing& drawing, const std::string& path);
Saved save(const drawing::Drawing& drawing, const std::string& path, FileCalls& calls);
/// The same text in memory.
std::string saveText(const drawing::Drawing& drawing);

} // namespace orvald::dxf
