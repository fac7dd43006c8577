// SPDX-License-Identifier: LicenseRef-ORVALD
// Wildcards: the language by cases, and every way a * may stretch.
#include "text/encoding.h"
#include "text/wildcard.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace orvald::text;

namespace {

bool matchesByTrying(std::u16string_view text, std::u16string_view pattern)
{
    if (pattern.empty()) return text.empty();
    if (pattern.front() == u'*') {
        for (std::size_t i = 0; i <= text.size(); ++i) {
            if (matchesByTrying(text.substr(i), pattern.substr(1))) return true;
        }
        return false;
    }
    if (text.empty()) return false;
    const bool fits = pattern.front() == u'?' || pattern.front() == text.front() ||
                      (pattern.front() == u'#' && text.front() == u'1') ||
                      (pattern.front() == u'@' && text.front() == u'a');
    return fits && matchesByTrying(text.substr(1), pattern.substr(1));
}

} // namespace

TEST(Wildcards, AgreeWithTryingEveryWay)
{
    std::mt19937 random(4);
    for (int round = 0; round < 100000; ++round) {
        std::u16string text;
        std::u16string pattern;
        for (std::size_t i = random() % 8; i > 0; --i) text.push_back(u"a1-"[random() % 3]);
        for (std::size_t i = random() % 8; i > 0; --i) pattern.push_back(u"a1**?#@"[random() % 7]);
        const bool expected = matchesByTrying(text, pattern);
        ASSERT_EQ(matchesWildcard(text, pattern), expected) << utf8(text + u" ~ " + pattern);
        ASSERT_EQ(matchesWildcard(text, u"~" + pattern), !expected);
        ASSERT_EQ(matchesWildcard(text, u"zz," + pattern + u",yy"), expected);
    }
}

TEST(Wildcards, FollowTheLanguageOfPatterns)
{
    struct Row
    {
        std::u16string_view text, pattern;
        bool matches;
    };
    constexpr Row rows[] = {{u"LINE", u"LINE", true},
                            {u"line", u"LINE", true},
                            {u"LWPOLYLINE", u"*LINE,ARC", true},
                            {u"ARC", u"*LINE,ARC", true},
                            {u"A1", u"@#", true},
                            {u"11", u"@#", false},
                            {u"a-b", u"a.b", true},
                            {u"axb", u"a.b", false},
                            {u"abc", u"a?c", true},
                            {u"abc", u"~abc", false},
                            {u"abd", u"~abc", true},
                            {u"b", u"[a-c]", true},
                            {u"d", u"[~a-c]", true},
                            {u"-", u"[a-]", true},
                            {u"*", u"`*", true},
                            {u"x", u"`*", false},
                            {u"a,b", u"a`,b", true},
                            {u"[", u"[", true},
                            {u"", u"", true},
                            {u"", u"*", true},
                            {u"x", u"", false},
                            {u"a]", u"[]]]", false},
                            {u"]", u"[]]", true},
                            {u"]", u"[a`]]", true},
                            {u"~", u"[~]", true},
                            {u"a", u"[~]", false},
                            {u"a", u"[~~]", true},
                            {u",", u"x,[,]", true},
                            {u"€", u".", true},
                            {u"ß", u"@", true},
                            {u"`", u"`", true},
                            {u"ÄB", u"äb", true}};
    for (const Row& c : rows)
        EXPECT_EQ(matchesWildcard(c.text, c.pattern, Case::ignored), c.matches)
            << utf8(c.text) << " " << utf8(c.pattern);
    EXPECT_FALSE(matchesWildcard(u"line", u"LINE"));
    // Many stars cost no more than length times length.
    EXPECT_FALSE(matchesWildcard(std::u16string(5000, u'a'), u"*a*a*a*a*a*a*a*a*a*b"));
}
