// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/label.h"

#include "kex/message.h"

#include <vector>

namespace KEX {
namespace {

constexpr ACHAR kBar = KT('|');
constexpr const ACHAR* kTwoBars = KT("||");
constexpr ACHAR kColon = KT(':');
constexpr ACHAR kKey = KT('@');

/// The main text and the variants behind it, bars still doubled.
std::vector<TextView> cut(TextView label)
{
    std::vector<TextView> pieces;
    std::size_t start = 0;
    for (std::size_t at = 0; at < label.size(); ++at) {
        if (label[at] != kBar) continue;
        if (at + 1 < label.size() && label[at + 1] == kBar) {
            ++at;
            continue;
        }
        pieces.emplace_back(label.substr(start, at - start));
        start = at + 1;
    }
    pieces.emplace_back(label.substr(start));
    return pieces;
}

bool isFor(TextView variant, TextView context)
{
    const std::size_t colon = variant.find(kColon);
    return colon != TextView::npos && colon != 0 && equalNoCase(variant.substr(0, colon), context);
}

} // namespace

CKexString label_get(TextView label, TextView context)
{
    const std::vector<TextView> pieces = cut(label);
    TextView chosen = pieces.front();
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        if (!isFor(pieces[i], context)) continue;
        chosen = pieces[i].substr(pieces[i].find(kColon) + 1);
        break;
    }
    CKexString text = chosen;
    text.replace(kTwoBars, KT("|"));
    if (text[0] != kKey) return text;
    const CKexString key = text.mid(1);
    return key[0] == kKey ? key : msgGet(key, text);
}

CKexString label_get(TextView label) { return label_get(label, msgLang()); }

bool labelIsContext(TextView context)
{
    return !context.empty() && context.find(kColon) == TextView::npos &&
           context.find(kBar) == TextView::npos;
}

CKexString label_set(TextView label, TextView context, const std::optional<CKexString>& text)
{
    CKexString fresh = text.value_or(CKexString());
    fresh.replace(KT("|"), kTwoBars);
    const std::vector<TextView> pieces = cut(label);
    CKexString result = context.empty() ? fresh : CKexString(pieces.front());
    bool toPlace = !context.empty() && text.has_value();
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const bool changes = isFor(pieces[i], context);
        if (changes && !toPlace) continue;
        result += kBar;
        if (changes) result += pieces[i].substr(0, pieces[i].find(kColon) + 1);
        result += changes ? TextView(fresh) : pieces[i];
        toPlace = toPlace && !changes;
    }
    if (toPlace) result = result + KT("|") + context + KT(":") + fresh;
    return result;
}

} // namespace KEX
