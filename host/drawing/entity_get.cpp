// SPDX-License-Identifier: LicenseRef-ORVALD
// Telling a record's groups to programs, with the defaults that files leave out.
#include "chain.h"
#include "drawing/entity_functions.h"
#include "drawing/text.h"
#include "sections.h"
#include "text/wildcard.h"

#include <algorithm>

namespace orvald::drawing {
namespace {

class Teller
{
public:
    Teller(const Drawing& drawing, Index index, ChainBuilder& out, bool markPlanar)
        : drawing_(drawing),
          index_(index),
          record_(drawing.at(index)),
          out_(out),
          markPlanar_(markPlanar)
    {
    }

    void tell()
    {
        out_.name(-1, drawing_.idOf(index_));
        out_.text(0, utf16(record_.typeName()));
        tellBraces();
        out_.name(330, drawing_.idOf(drawing_.byHandle(record_.owner)));
        out_.text(record_.kind() == Kind::dimstyle ? 105 : 5, utf16(handleText(record_.handle)));
        tellBody();
        if (record_.dictionary() != nullptr) tellEntries();
        if (record_.kind() == Kind::block) tellFirstEntity();
    }

    /// Blocks of extended data whose application matches one of the patterns.
    void tellXdata(const resbuf* apps)
    {
        const Extras* extras = record_.extras();
        if (extras == nullptr) return;
        bool begun = false, wanted = false;
        for (const Tag tag : extras->xdata) {
            if (tag.code() == 1001) wanted = matchesAny(text16(tag.text()), apps);
            if (!wanted) continue;
            if (!begun) out_.node(-3);
            begun = true;
            out_.tag(drawing_, tag);
        }
    }

private:
    static bool matchesAny(std::u16string_view app, const resbuf* apps)
    {
        for (; apps != nullptr; apps = apps->rbnext)
            if (apps->restype == RTSTR && apps->resval.rstring != nullptr &&
                text::matchesWildcard(app, apps->resval.rstring, text::Case::ignored))
                return true;
        return false;
    }

    void tellBraces()
    {
        const Extras* extras = record_.extras();
        if (extras == nullptr) return;
        const auto tellGroup = [this](std::u16string_view name, int code, const auto& handles) {
            out_.text(102, name);
            for (const Handle handle : handles)
                out_.name(code, drawing_.idOf(drawing_.byHandle(handle)));
            out_.text(102, u"}");
        };
        if (extras->extensionDictionary != 0)
            tellGroup(u"{ACAD_XDICTIONARY", 360, std::array{extras->extensionDictionary});
        if (!extras->reactors.empty()) tellGroup(u"{ACAD_REACTORS", 330, extras->reactors);
    }

    void tellBody()
    {
        const Schema* schema = schemaOf(record_.kind());
        for (const SectionRange& section : sectionsOf(record_, schema)) {
            if (section.hasMarker) out_.tag(drawing_, *section.marker);
            if (section.rule == nullptr) tellAsIs(section);
            else if (schema->form == Form::lwpolyline && section.rule != &schema->sections[0])
                tellLwpolyline(section);
            else tellByRule(section);
        }
    }
    void tellAsIs(const SectionRange& section)
    {
        for (auto it = section.begin; it != section.end; ++it) out_.tag(drawing_, *it, markPlanar_);
    }

    void tellByRule(const SectionRange& section)
    {
        const SectionRule& rule = *section.rule;
        std::size_t told = 0;
        for (auto it = section.begin; it != section.end; ++it) {
            const std::size_t at = rule.find((*it).code(), told);
            if (at != SectionRule::npos) {
                tellDefaults(section, told, at);
                told = at + 1;
            }
            out_.tag(drawing_, *it, markPlanar_);
        }
        tellDefaults(section, told, rule.groups.size());
    }
    void tellDefaults(const SectionRange& section, std::size_t from, std::size_t to)
    {
        for (std::size_t i = from; i < to; ++i) {
            const GroupRule& group = section.rule->groups[i];
            if (group.code == 410) tellLayout();
            if (group.need != Need::told && group.need != Need::always) continue;
            const auto same = [&](Tag tag) { return tag.code() == group.code; };
            if (std::any_of(section.begin, section.end, same)) continue;
            TagList value;
            group.addDefault(value);
            out_.list(drawing_, value);
        }
    }
    void tellLayout()
    {
        const Index block = drawing_.blockOf(index_);
        if (block == kNone) return;
        const std::string_view name = drawing_.layoutName(block);
        if (!name.empty()) out_.text(410, text16(name));
    }

    /// The head, then every vertex with its widths, bulge and number.
    void tellLwpolyline(const SectionRange& section)
    {
        double width = 0.0;
        auto vertices = section.begin;
        while (vertices != section.end && (*vertices).code() != 10) ++vertices;
        tellByRule({{}, section.begin, vertices, &headRule(), false});
        for (auto it = section.begin; it != vertices; ++it)
            if ((*it).code() == 43) width = (*it).real();
        TagList normal;
        for (auto it = vertices; it != section.end;) {
            if ((*it).code() != 10) { // behind the vertices
                if ((*it).code() == 210) normal.add(*it);
                else out_.tag(drawing_, *it, markPlanar_);
                ++it;
                continue;
            }
            TagList vertex;
            vertex.add(*it);
            double start = width, end = width, bulge = 0.0;
            std::int64_t number = 0;
            for (++it; it != section.end; ++it) {
                const int code = (*it).code();
                if (code == 40) start = (*it).real();
                else if (code == 41) end = (*it).real();
                else if (code == 42) bulge = (*it).real();
                else if (code == 91) number = (*it).integer();
                else break;
            }
            vertex.addReal(40, start);
            vertex.addReal(41, end);
            vertex.addReal(42, bulge);
            vertex.addInteger(91, number);
            out_.list(drawing_, vertex, markPlanar_);
        }
        if (normal.empty()) normal.addPoint(210, {0.0, 0.0, 1.0});
        out_.list(drawing_, normal);
    }
    static const SectionRule& headRule()
    {
        static constexpr GroupRule head[] = {{90, Need::always},
                                             {70, Need::always},
                                             {43, Need::always},
                                             {38, Need::told},
                                             {39, Need::told}};
        static constexpr SectionRule rule{"AcDbPolyline", head};
        return rule;
    }

    void tellEntries()
    {
        for (const Dictionary::Entry& entry : record_.dictionary()->entries()) {
            out_.text(3, text16(entry.key));
            out_.name(entry.hard ? 360 : 350, drawing_.idOf(drawing_.byHandle(entry.object)));
        }
    }
    void tellFirstEntity()
    {
        const Index block = drawing_.byHandle(record_.owner);
        const Index first = block == kNone ? kNone : drawing_.firstChild(block);
        if (first != kNone) out_.name(-2, drawing_.idOf(first));
    }

    const Drawing& drawing_;
    Index index_;
    const Record& record_;
    ChainBuilder& out_;
    bool markPlanar_;
};

} // namespace

ErrNo EntityFunctions::entGet(ObjectId id, const resbuf* apps, resbuf*& chain,
                              bool markPlanar) const
{
    chain = nullptr;
    const Index index = drawing_.indexOf(id);
    if (index == kNone) return ErrNo::badName;
    if (drawing_.isGone(index)) return ErrNo::deleted;
    ChainBuilder out;
    Teller teller(drawing_, index, out, markPlanar);
    teller.tell();
    if (apps != nullptr) teller.tellXdata(apps);
    chain = out.take();
    return ErrNo::none;
}

} // namespace orvald::drawing
