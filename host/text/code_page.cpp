// SPDX-License-Identifier: LicenseRef-ORVALD
#include "text/code_page.h"

#include "code_page_tables.h"
#include "text/encoding.h"
#include "text/letters.h"

#include <algorithm>
#include <map>
#include <string>

namespace orvald::text {
namespace {

constexpr char32_t kNothing = 0xFFFD;

const CodePage kJapanese({}, kPage932);
const CodePage kSimplifiedChinese({}, kPage936);
const CodePage kKorean({}, kPage949);
const CodePage kTraditionalChinese({}, kPage950);

const std::map<std::string, CodePage, std::less<>>& pages()
{
    static const auto made = [] {
        std::map<std::string, CodePage, std::less<>> all;
        for (std::size_t i = 0; i < kSingleBytePageCount; ++i)
            all.emplace(kSingleBytePages[i].name, CodePage(kSingleBytePages[i].upperHalf, nullptr));
        for (const char* name : {"ANSI_932", "DOS932"}) all.emplace(name, kJapanese);
        for (const char* name : {"ANSI_936", "GB2312"}) all.emplace(name, kSimplifiedChinese);
        for (const char* name : {"ANSI_949", "KSC5601"}) all.emplace(name, kKorean);
        for (const char* name : {"ANSI_950", "BIG5"}) all.emplace(name, kTraditionalChinese);
        return all;
    }();
    return made;
}

} // namespace

const CodePage* CodePage::named(std::string_view name)
{
    std::string capitals(name);
    for (char& c : capitals) c = static_cast<char>(upperUnit(static_cast<unsigned char>(c)));
    const auto found = pages().find(capitals);
    return found == pages().end() ? nullptr : &found->second;
}

const CodePage& CodePage::ansi1252()
{
    static const CodePage& page = *named("ANSI_1252");
    return page;
}

const CodePage* CodePage::ofMultiByte(int number)
{
    switch (number) {
    case 1: return &kJapanese;
    case 2: return &kTraditionalChinese;
    case 3: return &kKorean;
    case 5: return &kSimplifiedChinese;
    default: return nullptr;
    }
}

char32_t CodePage::decode(std::string_view text, std::size_t& at) const
{
    const unsigned lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80) return lead;
    if (rows_ == nullptr) return upperHalf_[lead - 0x80];
    if (rows_ == kPage932 && lead >= 0xA1 && lead <= 0xDF)
        return 0xFF61 + (lead - 0xA1); // katakana
    if (lead < kFirstLead || lead == 0xFF || at == text.size())
        return rows_ == kPage936 && lead == 0x80 ? char32_t{0x20AC} : kNothing;
    const unsigned trail = static_cast<unsigned char>(text[at]);
    const std::u16string_view row = rows_[lead - kFirstLead];
    if (trail < kFirstTrail || trail - kFirstTrail >= row.size() ||
        row[trail - kFirstTrail] == kNothing)
        return kNothing;
    ++at;
    return row[trail - kFirstTrail];
}

char16_t ansiUnit(unsigned char byte)
{
    std::size_t at = 0;
    const char character = static_cast<char>(byte);
    return static_cast<char16_t>(CodePage::ansi1252().decode({&character, 1}, at));
}

} // namespace orvald::text
