// SPDX-License-Identifier: LicenseRef-ORVALD
// Catalogs in memory. Every text is kept as its file has it, and cut into its forms when asked for.
#include "kex/message.h"

#include "kex/files.h"
#include "kex/map.h"

#include <algorithm>
#include <array>
#include <vector>

namespace KEX {
namespace {

constexpr std::string_view kFirstLine = "KEXRSX 1";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr const ACHAR* kLastCountry = KT("49");

/// Texts of one country by key.
using Texts = CKexMapTempl<CKexString, CKexString>;

struct Catalog
{
    CKexString file, prefix;
    CKexMapTempl<CKexString, Texts> countries;
};

struct State
{
    std::vector<Catalog> catalogs; // the newest last
    std::array<CKexString, 3> countries = {CKexString(kLastCountry), CKexString(), CKexString()};
    Texts overrides;
};

State& state()
{
    static State theState;
    return theState;
}

/// A text with its escapes resolved; an escape that is none of ours stays as it is.
CKexString resolved(TextView text)
{
    CKexString result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const ACHAR next = text[i] == KT('\\') && i + 1 < text.size() ? text[i + 1] : ACHAR(0);
        const TextView codes = KT("ntrs\\");
        const std::size_t code = next == 0 ? TextView::npos : codes.find(next);
        if (code == TextView::npos) {
            result += text[i];
        } else {
            result += KT("\n\t\r \\")[code];
            ++i;
        }
    }
    return result;
}

/// The part of a text between its single bars; a doubled bar is a bar of the text.
CKexString formOf(TextView text, MsgForm form)
{
    int part = 0;
    CKexString raw;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool bar = text[i] == KT('|');
        const bool doubled = bar && i + 1 < text.size() && text[i + 1] == KT('|');
        if (bar && !doubled) {
            ++part;
        } else {
            if (part == static_cast<int>(form)) raw += text[i];
            if (doubled) ++i;
        }
    }
    if (raw.isNull() && form != MsgForm::full) return formOf(text, MsgForm::full);
    return resolved(raw);
}

/// False when the line is neither blank, comment, section nor entry.
bool readLine(CKexString line, Catalog& catalog, Texts*& section)
{
    line.trim();
    if (line.isNull() || line[0] == KT(';')) return true;
    if (line[0] == KT('[')) {
        const CKexString country =
            line.endsWith(KT("]")) ? line.mid(1, line.len() - 2).trim() : CKexString();
        section = country.isNull() ? nullptr : &catalog.countries[country];
        return section != nullptr;
    }
    const int equals = line.find(KT('='));
    if (equals <= 0 || section == nullptr) return false;
    section->set(line.mid(0, equals).trim(), line.mid(equals + 1).trim());
    return true;
}

std::string_view nextLine(std::string_view& bytes)
{
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

const CKexString* findText(const Catalog& catalog, const CKexString& country, const CKexString& key)
{
    const Texts* texts = catalog.countries.find(country);
    if (texts == nullptr) return nullptr;
    const CKexString* text = texts->find(key);
    return text != nullptr || catalog.prefix.isNull() ? text : texts->find(catalog.prefix + key);
}

const CKexString* findText(const CKexString& key)
{
    const State& all = state();
    if (const CKexString* text = all.overrides.find(key)) return text;
    const auto inCountry = [&](const CKexString& country) -> const CKexString* {
        for (auto catalog = all.catalogs.rbegin(); catalog != all.catalogs.rend(); ++catalog) {
            if (const CKexString* text = findText(*catalog, country, key)) return text;
        }
        return nullptr;
    };
    for (const CKexString& country : all.countries) {
        const CKexString* text = country.isNull() ? nullptr : inCountry(country);
        if (text != nullptr) return text;
    }
    return inCountry(kLastCountry);
}

} // namespace

bool msgLoad(TextView file, TextView prefix, int* badLines)
{
    const std::optional<std::string> content = fileRead(file);
    if (!content.has_value()) return false;
    std::string_view bytes = *content;
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    if (nextLine(bytes) != kFirstLine) return false;

    Catalog catalog{file, prefix, {}};
    Texts* section = nullptr;
    int bad = 0;
    while (!bytes.empty()) {
        if (!readLine(CKexString::fromUtf8(nextLine(bytes)), catalog, section)) ++bad;
    }
    std::vector<Catalog>& catalogs = state().catalogs;
    std::erase_if(catalogs, [&](const Catalog& old) { return equalNoCase(old.file, file); });
    catalogs.push_back(std::move(catalog));
    if (badLines != nullptr) *badLines = bad;
    return true;
}

int msgUnload(TextView prefix)
{
    const auto isMeant = [&](const Catalog& catalog) {
        return equalNoCase(catalog.prefix, prefix);
    };
    return static_cast<int>(std::erase_if(state().catalogs, isMeant));
}

void msgLangSet(TextView country, TextView second, TextView third)
{
    state().countries = {CKexString(country), CKexString(second), CKexString(third)};
}

CKexString msgLang()
{
    const CKexString& first = state().countries[0];
    return first.isNull() ? CKexString(kLastCountry) : first;
}

CKexString msgGet(TextView key, TextView fallback, MsgForm form)
{
    const CKexString* text = findText(key);
    return text == nullptr ? CKexString(fallback) : formOf(*text, form);
}

void msgSet(TextView key, const std::optional<CKexString>& text)
{
    if (text.has_value()) state().overrides.set(key, *text);
    else state().overrides.remove(key);
}

} // namespace KEX
