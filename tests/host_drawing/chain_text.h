// SPDX-License-Identifier: LicenseRef-ORVALD
// Group chains as text, so that tests read like lists: "0 LINE|8 WALL|10 0 0 0|11 1 2 0".
// A name is written as the handle of its object behind a number sign: "330 #1F"; "-3" stands alone.
#pragma once

#include "drawing/drawing.h"
#include "drawing/entity_functions.h"
#include "drawing/text.h"
#include "hostapi/resbuf.h"
#include "resbuf/groups.h"

#include <charconv>
#include <memory>
#include <string>
#include <string_view>

namespace orvald::drawing {

struct FreeChain
{
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};
using Chain = std::unique_ptr<resbuf, FreeChain>;

inline std::string_view cutText(std::string_view& rest, char mark)
{
    const std::size_t end = rest.find(mark);
    const std::string_view head = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return head;
}

inline double numberOf(std::string_view text)
{
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

inline Chain makeChain(const Drawing& drawing, std::string_view text)
{
    Chain first;
    resbuf** end = nullptr;
    while (!text.empty()) {
        std::string_view value = cutText(text, '|');
        const int code = static_cast<int>(numberOf(cutText(value, ' ')));
        resbuf* node = acutNewRb(code);
        if (end == nullptr) first.reset(node);
        else *end = node;
        end = &node->rbnext;
        switch (groupKind(code)) {
        case GroupKind::text:
        case GroupKind::handle: acutNewString(utf16(value).c_str(), node->resval.rstring); break;
        case GroupKind::real: node->resval.rreal = numberOf(value); break;
        case GroupKind::point:
            for (double& c : node->resval.rpoint) c = numberOf(cutText(value, ' '));
            break;
        case GroupKind::int16: node->resval.rint = static_cast<short>(numberOf(value)); break;
        case GroupKind::int32:
            node->resval.rlong = static_cast<std::int32_t>(numberOf(value));
            break;
        case GroupKind::int64:
            node->resval.mnInt64 = static_cast<std::int64_t>(numberOf(value));
            break;
        case GroupKind::object: {
            Handle handle = 0;
            if (value.starts_with("#"))
                std::from_chars(value.data() + 1, value.data() + value.size(), handle, 16);
            toName(drawing.idOf(drawing.byHandle(handle)), node->resval.rlname);
            break;
        }
        default: break;
        }
    }
    return first;
}

inline std::string showNumber(double value)
{
    if (isPlanarMark(value)) return "-";
    char text[40];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

/// The chain in the notation of makeChain.
inline std::string showChain(const Drawing& drawing, const resbuf* chain)
{
    std::string out;
    for (; chain != nullptr; chain = chain->rbnext) {
        if (!out.empty()) out += '|';
        out += std::to_string(chain->restype);
        switch (groupKind(chain->restype)) {
        case GroupKind::text:
        case GroupKind::handle: out += ' ' + utf8(chain->resval.rstring); break;
        case GroupKind::real: out += ' ' + showNumber(chain->resval.rreal); break;
        case GroupKind::point:
            for (const double c : chain->resval.rpoint) out += ' ' + showNumber(c);
            break;
        case GroupKind::int16: out += ' ' + std::to_string(chain->resval.rint); break;
        case GroupKind::int32: out += ' ' + std::to_string(chain->resval.rlong); break;
        case GroupKind::int64: out += ' ' + std::to_string(chain->resval.mnInt64); break;
        case GroupKind::object: {
            const Index index = drawing.indexOf(fromName(chain->resval.rlname));
            char text[20];
            out += " #";
            if (index != kNone)
                out.append(text, std::to_chars(text, text + 20, drawing.at(index).handle, 16).ptr);
            break;
        }
        case GroupKind::binary:
            out += " " + std::to_string(chain->resval.rbinary.clen) + " bytes";
            break;
        default: break;
        }
    }
    return out;
}

/// A new drawing with its functions, and short forms of the calls.
struct Fixture
{
    std::unique_ptr<Drawing> drawing = Drawing::createNew();
    EntityFunctions functions{*drawing};
    ErrNo error = ErrNo::none; // of the last call

    ObjectId make(std::string_view text)
    {
        EntityFunctions::Made made;
        error = functions.entMake(makeChain(*drawing, text).get(), made);
        blockName = made.blockName;
        return made.id;
    }
    std::string get(ObjectId id, std::string_view app = {}, bool markPlanar = false)
    {
        const Chain apps(app.empty() ? nullptr : acutBuildList(RTSTR, utf16(app).c_str(), 0));
        resbuf* chain = nullptr;
        error = functions.entGet(id, apps.get(), chain, markPlanar);
        return showChain(*drawing, Chain(chain).get());
    }
    /// The groups behind the last marker.
    std::string body(ObjectId id)
    {
        const std::string all = get(id);
        const std::size_t marker = all.rfind("|100 ");
        return all.substr(all.find('|', marker + 1) + 1);
    }
    ErrNo mod(ObjectId id, std::string_view text)
    {
        const Index index = drawing->indexOf(id);
        char handle[20];
        const std::string name(
            handle,
            std::to_chars(handle, handle + 20, index == kNone ? 0 : drawing->at(index).handle, 16)
                .ptr);
        const std::string whole = "-1 #" + name + (text.empty() ? "" : "|") + std::string(text);
        return error = functions.entMod(makeChain(*drawing, whole).get());
    }
    const Record& record(ObjectId id) const { return *drawing->find(id); }
    std::string blockName;
};

} // namespace orvald::drawing
