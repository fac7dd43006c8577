// SPDX-License-Identifier: LicenseRef-ORVALD
// Rules for one table record or object.
#include "audit/auditor.h"

#include "drawing/text.h"
#include "number_in.h"

#include <algorithm>

namespace orvald::dxf {

using namespace drawing;

void Auditor::checkTableName()
{
    const std::string text = text8(record_.text(2));
    std::string_view name = text;
    if (!record_.has(2)) error("name", "it has no name");
    const bool blanks = name.starts_with(' ') || name.ends_with(' ');
    if (name.starts_with('*')) name.remove_prefix(1);
    if (blanks || name.find_first_of("<>/\\\":;?*=`") != std::string_view::npos)
        error("name", quoted(name) + " has characters that names may not have");
}

void Auditor::checkLayer()
{
    std::string missing;
    for (const int code : {62, 6, 370, 390})
        if (!record_.has(code)) missing += " " + std::to_string(code);
    if (!missing.empty()) error("layer", "no group" + missing);
    if (version_ >= "AC1021" && !record_.has(347)) warn("layer", "no material (347)");
    const std::int64_t colour = record_.whole(62, 7);
    if (colour == 0 || colour == 256 || colour == -256)
        error("layer", "colour " + std::to_string(colour));
    index_.use(record_, TableId::ltype, record_.text(6));
}

void Auditor::checkDictionary(Index index)
{
    if (marked_ && record_.text(100) != "AcDbDictionary")
        error("no-marker", "no subclass marker AcDbDictionary");
    if (record_.is("ACDBDICTIONARYWDFLT") && !record_.has(340))
        error("dictionary-entry", "no default entry (340)");
    const bool hard = record_.whole(280) == 1;
    std::set<std::string> keys;
    std::string_view key;
    bool open = false, paired = true;
    for (std::size_t i = record_.bodyBegin(); i < record_.bodyEnd(); ++i) {
        const AuditRecord::Group group = record_[i];
        if (group.code == 3) {
            paired = paired && !open;
            key = group.value;
            open = true;
            continue;
        }
        if (group.code != 350 && group.code != 360) continue;
        paired = paired && open;
        if (!open) continue;
        open = false;
        if (!keys.insert(nameKey(key)).second)
            error("dictionary-entry", "key " + quoted(key) + " twice");
        if (hard != (group.code == 360))
            warn("dictionary-entry", "entry " + quoted(key) + " has group " +
                                         std::to_string(group.code) + (hard ? ", though" : ";") +
                                         " the dictionary owns " + (hard ? "hard" : "soft"));
        Handle object = 0;
        if (readHandle(group.value, object) != Reading::good) continue;
        if (object == 0) error("dictionary-entry", "entry " + quoted(key) + " names nothing");
        else index_.addEntry(index, key, object);
    }
    if (open || !paired) error("dictionary-entry", "keys and entries do not pair");
}

void Auditor::checkXrecord()
{
    if (!marked_) return;
    if (record_.text(100) != "AcDbXrecord" || record_[record_.bodyBegin()].code != 100)
        return error("no-marker", "no subclass marker AcDbXrecord");
    const std::size_t first = record_.bodyBegin() + 1;
    if (first >= record_.size() || record_[first].code != 280)
        warn("xrecord", "no cloning flag (280) behind the marker");
    for (std::size_t i = first; i < record_.size(); ++i) {
        const int code = record_[i].code;
        if (code == 5 || code == 100 || code == 105)
            error("xrecord", "group " + std::to_string(code) + " may not stand in it");
    }
}

void Auditor::checkLayout(Index index)
{
    const std::size_t marker = record_.marker("AcDbLayout");
    const auto behind = [&](int code) {
        const std::size_t at = record_.find(code, std::min(marker, record_.size()));
        return at < record_.bodyEnd() ? record_[at].value : std::string_view();
    };
    Handle block = 0;
    readHandle(behind(330), block);
    index_.addLayout(index, marker != record_.size(), behind(1), block);
}

} // namespace orvald::dxf
