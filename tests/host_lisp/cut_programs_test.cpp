// SPDX-License-Identifier: LicenseRef-ORVALD
// Programs that were cut short anywhere, as by a full disk or a broken line: what is whole runs,
// the rest is an error that tells where the open form begins.
#include "bare_world.h"
#include "files.h"

#include <gtest/gtest.h>

namespace {

using namespace orvald::lisp;

constexpr const char* kPrograms[] = {"remove_doubles.lsp", "find_replace.lsp", "stair_section.lsp"};

TEST(CutPrograms, EndInAValueOrInAnErrorWithItsPlaceWhereverTheyAreCut)
{
    for (const char* name : kPrograms) {
        const std::string text =
            kextest::readFile(std::string(KEX_SOURCE_DIR "/tests/lisp/programs/") + name);
        ASSERT_GT(text.size(), 1000u) << name;
        BareHost host;
        World world(host);
        int line = 1, cutOff = 0;
        for (std::size_t cut = 0; cut <= text.size(); ++cut) {
            const Outcome outcome = world.evalText(toUtf16(text.substr(0, cut)), name);
            const bool open = !outcome.ok() && outcome.error->message.starts_with(u"malformed");
            if (open) {
                ++cutOff;
                ASSERT_FALSE(outcome.error->calls.empty()) << name << " cut at " << cut;
                for (const CallPlace& place : outcome.error->calls) {
                    ASSERT_TRUE(place.line >= 1 && place.line <= line) << name << " cut at " << cut;
                }
            }
            if (cut < text.size()) line += text[cut] == '\n';
        }
        EXPECT_GT(cutOff, static_cast<int>(text.size() / 2)) << name;
        const Outcome after = world.evalText(u"(+ 1 2)");
        ASSERT_TRUE(after.ok());
        EXPECT_EQ(world.prin1(after.value), u"3");
    }
}

} // namespace
