// SPDX-License-Identifier: LicenseRef-ORVALD
// Files, locks, folders, registry, messages, units, totals: what the kernel asks of its
// surroundings.
#include "files.h"
#include "kex_values.h"
#include "test_host.h"
#include "variable.h"

#include "kex/dialog.h"
#include "kex/files.h"
#include "kex/message.h"
#include "kex/perf.h"
#include "kex/system.h"
#include "kex/units.h"
#include "kexos/environment.h"
#include "kexos/file_status.h"
#include "kexos/files.h"
#include "kexos/paths.h"
#include "kexos/registry.h"

#include <chrono>
#include <sys/wait.h>
#include <thread>

namespace {

namespace fs = std::filesystem;
using kextest::TempFolder;
using kextest::Variable;

std::string contentOf(const std::string& path)
{
    std::string bytes;
    return kexos::readFile(path, bytes) == kexos::ReadResult::read ? bytes : "(unreadable)";
}

int filesIn(const fs::path& folder)
{
    return static_cast<int>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(Save, LeavesTheOldOrTheNewFileWhereverACallFails)
{
    const std::string old(10000, 'o'), fresh(20000, 'n');
    for (const kexos::FileFault fault :
         {kexos::FileFault::error, kexos::FileFault::shortWrite, kexos::FileFault::kill}) {
        for (int n = 1; n <= 12; ++n) {
            TempFolder folder;
            const std::string file = folder / "Kex_Main.cfg";
            ASSERT_TRUE(kexos::saveFile(file, old));
            const pid_t child = ::fork();
            if (child == 0) {
                kexos::failFileCall(n, fault);
                ::_exit(kexos::saveFile(file, fresh) ? 0 : 2);
            }
            int status = 0;
            ::waitpid(child, &status, 0);
            const std::string left = contentOf(file);
            ASSERT_TRUE(left == old || left == fresh) << "call " << n;
            ASSERT_TRUE(WEXITSTATUS(status) != 0 || left == fresh) << "call " << n;
            // What a crash left behind goes with the next save.
            ASSERT_TRUE(kexos::saveFile(file, old));
            ASSERT_EQ(filesIn(folder.path()), 1) << "call " << n;
        }
    }
}

TEST(Save, KeepsModeAndLinkAndFailsCleanly)
{
    TempFolder folder;
    const std::string file = folder / "a";
    ASSERT_TRUE(kexos::saveFile(file, "1"));
    fs::permissions(file, fs::perms(0640));
    fs::create_symlink("a", folder / "link");
    ASSERT_TRUE(kexos::saveFile(folder / "link", "2"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(contentOf(file), "2");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_FALSE(kexos::saveFile(folder / "missing/a", "3"));
    fs::create_directory(folder / "d");
    EXPECT_FALSE(kexos::saveFile(folder / "d", "3")); // a folder stands in the way
    EXPECT_EQ(filesIn(folder.path()), 3);
    fs::permissions(file, fs::perms(0440));
    EXPECT_TRUE(kexos::makeWritable(file));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
}

TEST(Save, ManyAtOnceLoseNothingButTheRace)
{
    TempFolder folder;
    const std::string file = folder / "shared";
    std::vector<pid_t> children;
    for (char letter : {'a', 'b', 'c', 'd'}) {
        const pid_t child = ::fork();
        if (child == 0) {
            bool good = true;
            for (int i = 0; i < 40; ++i) good &= kexos::saveFile(file, std::string(5000, letter));
            ::_exit(good ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const std::string left = contentOf(file);
    EXPECT_EQ(left, std::string(5000, left[0]));
    EXPECT_EQ(filesIn(folder.path()), 1);
}

TEST(Lock, HoldsBetweenProcessesAndEndsWithItsHolder)
{
    TempFolder folder;
    const CKexString file = CKexString::fromUtf8(folder / "plan");
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const KEX::CFileLock lock(file, 0);
        const char answer = lock.isLocked() ? 'y' : 'n';
        if (::write(ready[1], &answer, 1) == 1) ::pause();
        ::_exit(0);
    }
    char answer = 0;
    ASSERT_EQ(::read(ready[0], &answer, 1), 1);
    ASSERT_EQ(answer, 'y');
    using Clock = std::chrono::steady_clock;
    auto start = Clock::now();
    EXPECT_FALSE(KEX::CFileLock(file, 200).isLocked());
    const auto waited = Clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(200));
    EXPECT_LT(waited, std::chrono::milliseconds(400));
    std::thread killer([child] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        ::kill(child, SIGKILL);
    });
    start = Clock::now();
    EXPECT_TRUE(KEX::CFileLock(file, 15000).isLocked());
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(2));
    killer.join();
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(kexos::fileExists(folder / "plan")); // only the companion is made
    EXPECT_TRUE(kexos::fileExists(folder / "plan.lk"));
    EXPECT_TRUE(KEX::CFileLock(CKexString::fromUtf8(folder / "no/plan"), 15000).isImpossible());
}

TEST(Paths, GoThroughTheTableOfDrives)
{
    const Variable drives("KEX_DRIVES", R"(c=/;D=/data;E=/data/cad/;\\srv\share=/mnt/x)");
    struct Case
    {
        const char *kernel, *native;
    };
    for (const auto& [kernel, native] : {Case{R"(C:\work\plan.dwg)", "/work/plan.dwg"},
                                         {R"(D:\)", "/data/"},
                                         {R"(E:\a)", "/data/cad/a"},
                                         {R"(\\srv\share\b)", "/mnt/x/b"},
                                         {R"(C:\dataset)", "/dataset"}}) {
        EXPECT_EQ(kexos::nativePath(kernel), native);
        EXPECT_EQ(kexos::kernelPath(native), kernel);
    }
    EXPECT_EQ(kexos::nativePath(R"(d:/a\b)"), "/data/a/b");
    EXPECT_EQ(kexos::nativePath(R"(\\SRV\Share)"), "/mnt/x/");
    EXPECT_EQ(kexos::nativePath(R"(\\srv\share2\b)"), "");
    EXPECT_EQ(kexos::nativePath(R"(x:\a)"), "");
    EXPECT_EQ(kexos::nativePath(R"(a\b)"), "a/b");
    EXPECT_EQ(kexos::nativePath(R"(\a)"), "/a");
    const Variable none("KEX_DRIVES", "D=/data");
    EXPECT_EQ(kexos::kernelPath("/home/x"), "/home/x"); // no drive holds it
}

TEST(Folders, FollowTheEnvironment)
{
    TempFolder folder;
    const Variable home("KEX_HOME", folder / "home");
    const CKexString file = KEX::dataFileName(KT("Kex_Main.cfg"), true);
    EXPECT_TRUE(file.startsWith(KT("C:\\")));
    EXPECT_EQ(KEX::fileNameOnly(file), KT("Kex_Main.cfg"));
    EXPECT_TRUE(KEX::fileSave(file, "x")); // the folder was made
    EXPECT_EQ(contentOf(folder / "home/Kex_Main.cfg"), "x");
    const Variable none("KEX_HOME", "");
    const Variable settings("XDG_CONFIG_HOME", folder / "config");
    EXPECT_EQ(kexos::homeFolder(), kexos::kernelPath(folder / "config/orvald"));
    const Variable temp("TMP", folder / "t/");
    EXPECT_EQ(KEX::tmp_dir(), CKexString::fromUtf8(kexos::kernelPath(folder / "t/")));
}

TEST(Registry, KeepsKeysAndValuesOfAllProcesses)
{
    TempFolder folder;
    const Variable home("KEX_HOME", folder / "home");
    EXPECT_FALSE(KEX::regHasKey(KT("KEX")));
    EXPECT_EQ(KEX::regGet(KEX::regAppKey(), KT("COUNTRY")), KT(""));
    EXPECT_TRUE(KEX::regMakeKey(KEX::regAppKey() + KT("\\Dialogs")));
    EXPECT_TRUE(KEX::regHasKey(KT("kex\\DIALOGS")));
    EXPECT_TRUE(KEX::regHasKey(KT("KEX")));
    const CKexString odd = CKexString::fromUtf8("C:\\=[x]%41\r\nÄ");
    EXPECT_TRUE(KEX::regSet(KT("KEX"), odd, odd));
    EXPECT_TRUE(KEX::regSet(KT("KEX"), KT("Country"), KT("43")));
    EXPECT_EQ(KEX::regGet(KT("KEX"), odd), odd);
    EXPECT_EQ(KEX::regGet(KT("Kex"), KT("COUNTRY")), KT("43"));
    const pid_t child = ::fork();
    for (int i = 0; i < 30; ++i) {
        kexos::registrySetValue("KEX", (child == 0 ? "child" : "parent") + std::to_string(i), "1");
    }
    if (child == 0) ::_exit(0);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(KEX::regGet(KT("KEX"), KT("child29")), KT("1"));
    EXPECT_EQ(KEX::regGet(KT("KEX"), KT("parent0")), KT("1"));
    EXPECT_TRUE(kexos::registryRemoveKey("KEX\\Dialogs"));
    EXPECT_FALSE(KEX::regHasKey(KT("KEX\\Dialogs")));
    // A file of somebody else is neither read nor replaced.
    kextest::writeFile(folder / "home/registry.txt", "something else");
    EXPECT_FALSE(KEX::regSet(KT("KEX"), KT("a"), KT("b")));
    EXPECT_EQ(contentOf(folder / "home/registry.txt"), "something else");
}

CKexString catalogFile(const TempFolder& folder, const char* name, const std::string& text)
{
    kextest::writeFile(folder / name, text);
    return CKexString::fromUtf8(folder / name);
}

TEST(Messages, AreFoundByOverrideCountryAndCatalog)
{
    TempFolder folder;
    int bad = -1;
    ASSERT_TRUE(KEX::msgLoad(catalogFile(folder, "run.rsx",
                                         "\xEF\xBB\xBFKEXRSX 1\r\n"
                                         "LOST=before any section\r\n"
                                         "[49]\r\n; comment\r\n\r\n"
                                         "AD018=Argument|Arg.|ARG\r\n"
                                         "kex_lib_008=Bar || bar|\\sab\\s|\r\n"
                                         "ESC=a\\nb\\tc\\\\d\\q\\\r\n"
                                         "AD018=Wert|W\r\n"
                                         "no entry\r\n=no key\r\n[]\r\n[43]\r\nAD018=Österreich"),
                             KT("KEX_"), &bad));
    EXPECT_EQ(bad, 4);
    KEX::msgLangSet(KT("49"));
    EXPECT_EQ(KEX::msgGet(KT("ad018")), KT("Wert")); // the last of a repeated key
    EXPECT_EQ(KEX::msgGet(KT("AD018"), KT(""), KEX::MsgForm::abbreviated), KT("W"));
    EXPECT_EQ(KEX::msgGet(KT("AD018"), KT(""), KEX::MsgForm::keyword), KT("Wert"));
    EXPECT_EQ(KEX::msgGet(KT("LIB_008")), KT("Bar | bar")); // found with the prefix
    EXPECT_EQ(KEX::msgGet(KT("LIB_008"), KT(""), KEX::MsgForm::abbreviated), KT(" ab "));
    EXPECT_EQ(KEX::msgGet(KT("ESC")), KT("a\nb\tc\\d\\q\\"));
    EXPECT_EQ(KEX::msgGet(KT("LOST"), KT("default")), KT("default"));

    KEX::msgLangSet(KT("41"), KT("43"));
    EXPECT_EQ(KEX::msgGet(KT("AD018")), CKexString::fromUtf8("Österreich"));
    EXPECT_EQ(KEX::msgGet(KT("ESC")).len(), 10); // 49 comes last
    ASSERT_TRUE(KEX::msgLoad(catalogFile(folder, "new.rsx", "KEXRSX 1\n[49]\nESC=new\n[43]\nX=x"),
                             KT("N_")));
    EXPECT_EQ(KEX::msgGet(KT("ESC")), KT("new")); // the newest catalog first
    KEX::msgSet(KT("esc"), CKexString(KT("mine")));
    EXPECT_EQ(KEX::msgGet(KT("ESC")), KT("mine"));
    KEX::msgSet(KT("ESC"), std::nullopt);

    // Loading again replaces; what is no catalog changes nothing.
    catalogFile(folder, "new.rsx", "KEXRSX 1\n[49]\nY=y");
    ASSERT_TRUE(KEX::msgLoad(CKexString::fromUtf8(folder / "new.rsx"), KT("N_")));
    EXPECT_EQ(KEX::msgGet(KT("ESC")).len(), 10);
    EXPECT_FALSE(KEX::msgLoad(catalogFile(folder, "bad.rsx", "KEXRSX 2\n[49]\nY=z"), KT("N_")));
    EXPECT_EQ(KEX::msgGet(KT("Y")), KT("y"));
    EXPECT_EQ(KEX::msgUnload(KT("n_")), 1);
    EXPECT_EQ(KEX::msgUnload(KT("KEX_")), 1);
    EXPECT_EQ(KEX::msgGet(KT("AD018"), KT("Argument")), KT("Argument"));
    KEX::msgLangSet(KT("49"));
}

TEST(Units, ConvertByTheirFactors)
{
    EXPECT_DOUBLE_EQ(KEX::acadUnitCv(1.0, Kex::kUnitInch, Kex::kUnitMillimetre), 25.4);
    EXPECT_DOUBLE_EQ(KEX::acadUnitCv(3937.0, Kex::kUnitSurveyFoot, Kex::kUnitMetre), 1200.0);
    EXPECT_DOUBLE_EQ(KEX::acadUnitCv(1.0, Kex::kUnitLightYear, Kex::kUnitMetre),
                     9.4607304725808e15);
    for (int a = 1; a <= 24; ++a) {
        for (int b = 1; b <= 24; ++b) {
            EXPECT_NEAR(KEX::acadUnitCv(KEX::acadUnitCv(0.1, a, b), b, a), 0.1, 1e-15);
        }
        EXPECT_EQ(KEX::acadUnitCv(0.1, a, 0), 0.1);
        EXPECT_EQ(KEX::acadUnitCv(0.1, 25, a), 0.1);
    }
    testHost().integerVariables["INSUNITS"] = Kex::kUnitCentimetre;
    EXPECT_DOUBLE_EQ(KEX::acadUnitCv(5.0, Kex::kUnitMillimetre, Kex::kUnitDrawing), 0.5);
    testHost().integerVariables["INSUNITS"] = 0;
    EXPECT_EQ(KEX::acadUnitCv(5.0, Kex::kUnitMillimetre, Kex::kUnitDrawing), 5.0);
    std::string imperial;
    for (int unit = 0; unit <= 25; ++unit) imperial += KEX::acad_unit_imperial(unit) ? 'i' : '-';
    EXPECT_EQ(imperial, "-iii----iii----------iiii-");
    KEX::acad_unit_set(77);
    EXPECT_EQ(KEX::acad_unit(), Kex::kUnitNone);
}

TEST(Version, IsReadFromTheHostsText)
{
    for (const auto& [text, number] : {std::pair{KT("20.0s (LMS Tech)"), 0x1400},
                                       {KT("24.3"), 0x1803},
                                       {KT(""), 0},
                                       {KT("x"), 0}}) {
        testHost().textVariables["ACADVER"] = text;
        EXPECT_EQ(KEX::acadver(), number);
    }
    EXPECT_EQ(kexAppFileName(KT("Kex"), KT("Bar"), KT("Arx")), KT("Kex_2015_18_32_Bar.arx"));
}

TEST(Totals, AreListedInTheOrderOfCodes)
{
    KEX::perfReset();
    EXPECT_EQ(KEX::perfEntryAtIndex(0), nullptr);
    for (const int code : {900, 3, 900, -1, KEX::kPerfCodes, 0}) {
        KEX::addPerfTime(code, code == 900 ? KT("late") : KT("early"), 0.25);
    }
    ASSERT_NE(KEX::perfEntryAtIndex(2), nullptr);
    EXPECT_EQ(KEX::perfEntryAtIndex(2)->calls, 2);
    EXPECT_EQ(KEX::perfEntryAtIndex(2)->seconds, 0.5);
    EXPECT_EQ(KEX::perfEntryAtIndex(3), nullptr);
    ASSERT_NE(KEX::perfEntryAtIndex(0), nullptr);
    KEX::addPerfTime(1, KT("new"), 1.0); // in the middle of a walk
    EXPECT_EQ(CKexString(KEX::perfEntryAtIndex(1)->name), KT("new"));
    EXPECT_EQ(KEX::perfEntryAtIndex(-1), nullptr);
    KEX::perfReset();
    EXPECT_EQ(KEX::perfEntryAtIndex(0), nullptr);
}

TEST(Dialogs, StackGivesTheLastFirst)
{
    int windows[2];
    EXPECT_EQ(KEX::dlgStackPop(), nullptr);
    KEX::dlgStackPush(&windows[0]);
    KEX::dlgStackPush(&windows[1]);
    EXPECT_EQ(KEX::dlgStackPop(), &windows[1]);
    EXPECT_EQ(KEX::dlgStackPop(), &windows[0]);
    EXPECT_TRUE(KEX::dlgStackIsEmpty());
    EXPECT_FALSE(KEX::dialogActive());
    const KEX::DialogSource source = {[] { return true; }, []() -> void* { return &testHost(); }};
    KEX::dialogSourceSet(&source);
    EXPECT_TRUE(KEX::dialogActive());
    EXPECT_EQ(KEX::activeWindow(), &testHost());
    KEX::dialogSourceSet(nullptr);
}

} // namespace
