// SPDX-License-Identifier: LicenseRef-ORVALD
// Finding and filling the sections of a record.
#include "sections.h"

namespace orvald::drawing {
namespace {

/// A marker of polylines and vertices stands for whichever of theirs the record has.
bool fits(const SectionRule& rule, std::string_view marker)
{
    if (rule.marker == marker) return true;
    return (rule.marker == "AcDb2dPolyline" || rule.marker == "AcDb2dVertex") &&
           marker.starts_with("AcDb") && marker != "AcDbEntity" && marker != "AcDbVertex";
}

} // namespace

std::vector<SectionRange> sectionsOf(const Record& record, const Schema* schema)
{
    std::vector<SectionRange> sections(1);
    sections.back().begin = record.body();
    std::size_t next = 0; // rule that the next marker is expected to have
    for (auto it = record.body(); it != record.tags.end(); ++it) {
        if ((*it).code() != 100) continue;
        sections.back().end = it;
        SectionRange section;
        section.marker = it;
        section.begin = std::next(it);
        section.hasMarker = true;
        for (std::size_t i = next; schema != nullptr && i < schema->sections.size(); ++i) {
            if (!fits(schema->sections[i], (*it).text())) continue;
            section.rule = &schema->sections[i];
            next = i + 1;
            break;
        }
        sections.push_back(section);
    }
    sections.back().end = record.tags.end();
    return sections;
}

bool insertBySchema(Record& record, const Schema& schema, const TagList& group)
{
    const int code = (*group.begin()).code();
    const std::vector<SectionRange> sections = sectionsOf(record, &schema);
    for (const SectionRange& section : sections) {
        const std::size_t mine =
            section.rule == nullptr ? SectionRule::npos : section.rule->find(code);
        if (mine == SectionRule::npos) continue;
        auto place = section.begin; // in front of the first group that comes later
        for (; place != section.end; ++place) {
            const std::size_t other = section.rule->find((*place).code());
            if (other != SectionRule::npos && other > mine) break;
        }
        record.tags.insert(place, group);
        return true;
    }
    return false;
}

void markSpace(Record& entity, bool paper)
{
    constexpr int kPaperGroup = 67, kLayoutGroup = 410;
    TagList& tags = entity.tags;
    const auto marker = tags.findMarker("AcDbEntity");
    if (marker == tags.end()) return;
    for (auto it = std::next(marker); it != tags.end() && (*it).code() != 100;) {
        const int code = (*it).code();
        it = code == kPaperGroup || code == kLayoutGroup ? tags.erase(it) : std::next(it);
    }
    if (!paper) return;
    TagList mark;
    mark.addInteger(kPaperGroup, 1);
    tags.insert(std::next(tags.findMarker("AcDbEntity")), mark);
}

} // namespace orvald::drawing
