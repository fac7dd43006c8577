// SPDX-License-Identifier: LicenseRef-ORVALD
// The configuration of the running module: its file, its settings, what they switch.
#include "session_support.h"

namespace {

using kextest::kMain;
using kextest::Running;

class Configuration : public testing::Test
{
protected:
    Configuration()
    {
        options_.home = home_.path();
        options_.modules = {"probe.arx"};
    }
    std::string bytes() const { return kextest::readFile(home_ / "Kex_Main.cfg"); }

    const kextest::TempFolder home_;
    orvald::SessionOptions options_;
};

TEST_F(Configuration, IsSavedSortedWithoutRunTimeKeys)
{
    {
        Running running(options_);
        std::string problem;
        ASSERT_TRUE(running.session.save(home_ / "a.dxf", problem)) << problem;
        EXPECT_TRUE(bytes().starts_with("KEXB")) << "saved with the drawing";
        running.value("(probe_cfg_set \"_RNDF\" 0.5) (probe_cfg_set \".own\" 1)");
    }
    const std::string saved = bytes();
    for (const char* absent : {"CVPORT", "CURVER", "KEX_OUTLINE", ".own"}) {
        EXPECT_EQ(saved.find(absent), std::string::npos) << absent;
    }
    std::size_t last = 0;
    for (const char* key :
         {"LEADERTYPE", "_COUNTRY", "_COUNTRY1", "_COUNTRY2", "_RNDA", "_RNDF", "_RNDL"}) {
        const std::size_t at = saved.find(key, last);
        ASSERT_NE(at, std::string::npos) << key;
        last = at;
    }
    // What was saved is what the next session starts with.
    Running running(options_);
    EXPECT_EQ(running.value("(kex_cfg_get \"_RNDF\")"), "0.5");
}

TEST_F(Configuration, DamagedIsToldKeptAsideAndReplacedByDefaults)
{
    {
        const Running running(options_);
    }
    std::string damaged = bytes();
    ASSERT_FALSE(damaged.empty());
    damaged[damaged.size() / 2] ^= 1;
    kextest::writeFile(home_ / "Kex_Main.cfg", damaged);
    testing::internal::CaptureStderr();
    {
        Running running(options_);
        EXPECT_EQ(running.value("(kex_cfg_get \"_RNDL\")"), "0.0001");
        EXPECT_EQ(running.session.alerts(), 1);
    }
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Kex_Main.cfg"), std::string::npos);
    EXPECT_EQ(kextest::readFile(home_ / "Kex_Main.cfg.bad"), damaged);
    const Running again(options_);
    EXPECT_EQ(again.session.alerts(), 0);
}

TEST_F(Configuration, TakesAMissingOrEmptyCountryFromTheRegistry)
{
    kextest::writeFile(home_ / "registry.txt", "KEXREG 1\n[KEX]\nCOUNTRY=43\n");
    {
        Running running(options_);
        EXPECT_EQ(running.value("(kex_cfg_get \"_COUNTRY\")"), "\"43\"");
        running.value("(probe_cfg_set \"_COUNTRY\" \"\")");
    }
    kextest::writeFile(home_ / "registry.txt", "KEXREG 1\n[KEX]\nCOUNTRY=41\n");
    Running running(options_);
    EXPECT_EQ(running.value("(kex_cfg_get \"_COUNTRY\")"), "\"41\"");
}

TEST_F(Configuration, TraceIsReadWithTheFirstCallAndPrintedBehindIt)
{
    Running running(options_);
    running.value("(probe_cfg_set \"DEBUG\" 1)");
    EXPECT_EQ(running.printed("(kex_cfg_get \"_RNDL\")"), "<ADS - kex_cfg_get>\n");
    EXPECT_TRUE(
        running.printed("(kex_cfg_get)").ends_with("\"_RNDL\" 1e-04\n<ADS - kex_cfg_get>\n"));
    running.value("(probe_cfg_set \"DEBUG\" 0)");
    EXPECT_EQ(running.printed("(kex_str_len \"a\")"), "<ADS - kex_str_len>\n");
    std::string reason;
    ASSERT_TRUE(running.session.unloadModule(kMain, reason)) << reason;
    ASSERT_TRUE(running.session.loadModule(kMain, reason)) << reason;
    EXPECT_EQ(running.printed("(kex_str_len \"a\")"), "");
}

TEST_F(Configuration, IsPrintedByTheCommandOneKeyALine)
{
    Running running(options_);
    const std::string all = running.printed("(command \"kex_cfg_get\")");
    EXPECT_TRUE(all.starts_with("\"*CVPORT*\" 2\n")) << all;
    EXPECT_NE(all.find("\n\"_COUNTRY\" \"49\"\n"), std::string::npos) << all;
}

} // namespace
