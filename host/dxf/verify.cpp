// SPDX-License-Identifier: LicenseRef-ORVALD
// The text must give back every record to the last bit; the first difference ends the reading.
#include "verify.h"

namespace orvald::dxf {

using namespace drawing;

namespace {

[[noreturn]] void fail(std::uint64_t line, std::string reason, Handle handle = 0)
{
    throw Fail{{{}, line, DxfError::kNoGroup, std::move(reason), handle}};
}

bool sameEntries(const Dictionary& a, const Dictionary& b)
{
    const auto x = a.fileOrder(), y = b.fileOrder();
    if (x.size() != y.size()) return false;
    for (std::size_t i = 0; i < x.size(); ++i)
        if (x[i]->key != y[i]->key || x[i]->object != y[i]->object || x[i]->hard != y[i]->hard)
            return false;
    return true;
}

bool sameRecord(const Record& a, const Record& b)
{
    if (a.typeName() != b.typeName() || a.owner != b.owner) return false;
    if (a.kind() != Kind::table && !(a.tags == b.tags)) return false; // heads count their records
    static const Extras none;
    const Extras& x = a.extras() == nullptr ? none : *a.extras();
    const Extras& y = b.extras() == nullptr ? none : *b.extras();
    return x.reactors == y.reactors && x.extensionDictionary == y.extensionDictionary &&
           x.xdata == y.xdata && x.dictionary.has_value() == y.dictionary.has_value() &&
           (!x.dictionary || sameEntries(*x.dictionary, *y.dictionary));
}

} // namespace

void Verifier::variable(std::string_view name, const TagList& value)
{
    const TagList* kept = drawing_.header.find(name);
    if (name == "$HANDSEED") return;
    if (kept == nullptr || !(*kept == value)) fail(0, "header variable " + std::string(name));
}

void Verifier::classRow(TagList&& row)
{
    if (classes_ >= drawing_.classes.size() || !(drawing_.classes[classes_] == row))
        fail(0, "class " + std::string(row.text(1)));
    ++classes_;
}

void Verifier::record(Section, Record&& record, std::uint64_t line)
{
    ++count_;
    const Index index = drawing_.byHandle(record.handle);
    if (index == kNone) fail(line, "an unknown handle", record.handle);
    Record scratch;
    if (!sameRecord(asWritten(drawing_, index, anyLeft_, scratch), record))
        fail(line, std::string(record.typeName()) + " differs", record.handle);
}

void Verifier::rawSection(std::string_view name, std::string&& text)
{
    if (sections_ >= drawing_.rawSections.size() || drawing_.rawSections[sections_].name != name ||
        drawing_.rawSections[sections_].text != text)
        fail(0, "section " + std::string(name));
    ++sections_;
}

void Verifier::warn(std::uint64_t, std::string) {} // the drawing holds what was warned about

} // namespace orvald::dxf
