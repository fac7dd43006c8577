// SPDX-License-Identifier: LicenseRef-ORVALD
// Loading, drawings, saving and unloading of the module, as a host does it.
#include "hostapi/headless.h"
#include "hostapi/rx.h"
#include "session_support.h"

#include <algorithm>
#include <dlfcn.h>

namespace {

using kextest::kMain;
using kextest::Running;

bool isMapped(const char* file)
{
    void* handle = dlopen(file, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) dlclose(handle);
    return handle != nullptr;
}

/// A function that the loaded module shows to other modules.
template <class Function>
Function exported(const char* name)
{
    void* module = dlopen(kMain, RTLD_NOW | RTLD_NOLOAD);
    if (module == nullptr) return nullptr;
    auto* function = reinterpret_cast<Function>(dlsym(module, name));
    dlclose(module);
    return function;
}

/// Resident pages of the process, in kilobytes.
long residentKilobytes()
{
    std::ifstream statm("/proc/self/statm");
    long total = 0, resident = 0;
    statm >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

TEST(Module, BringsItsSiblingsAndTakesThemAway)
{
    Running running;
    EXPECT_EQ(running.session.modules(),
              (std::vector<std::string>{"Kex_2015_18_32_Main.arx", "Kex_2015_18_32_Dbx.dbx",
                                        "Kex_2015_18_32_Bar.arx"}));
    std::string reason;
    EXPECT_TRUE(running.session.unloadModule("Kex_2015_18_32_Main", reason)) << reason;
    EXPECT_TRUE(running.session.modules().empty());
    EXPECT_EQ(running.value("kex_str_len"), "nil");
    EXPECT_EQ(running.value("(kex_str_len \"a\")"), "! no function definition: KEX_STR_LEN");
    EXPECT_FALSE(running.session.command("kex_dump"));
}

/// Alone, and beside a module that keeps the kernel's libraries in memory.
class Reloading : public testing::TestWithParam<bool>
{
};

TEST_P(Reloading, TenTimesLeavesNothingBehind)
{
    orvald::SessionOptions options;
    if (GetParam()) options.modules = {"probe.arx"};
    Running running(options);
    std::string reason;
    long after = 0;
    for (int round = 0; round < 11; ++round) {
        EXPECT_EQ(running.value("(kex_str_len \"abc\")"), "3");
        ASSERT_TRUE(running.session.unloadModule(kMain, reason)) << reason;
        EXPECT_FALSE(isMapped(kMain)) << "round " << round;
        if (round == 0) after = residentKilobytes();
        if (round == 10 && !kextest::kSanitized) {
            EXPECT_LT(residentKilobytes(), after + 1024);
        }
        ASSERT_TRUE(running.session.loadModule(kMain, reason)) << reason;
    }
}

INSTANTIATE_TEST_SUITE_P(Module, Reloading, testing::Bool(),
                         [](const auto& one) { return one.param ? "besideAnother" : "alone"; });

TEST(Module, SetsUpEverythingElseWhereItsServiceStandsAlready)
{
    orvald::SessionOptions options;
    options.kernel.clear();
    Running running(options);
    ASSERT_NE(acrxRegisterService(u"KEX_BASE_API"), nullptr);
    std::string reason;
    ASSERT_TRUE(running.session.loadModule(kMain, reason)) << reason;
    EXPECT_EQ(running.session.modules().size(), 3u);
    EXPECT_EQ(running.value("(kex_str_len \"abc\")"), "3");
    EXPECT_TRUE(running.session.command("kex_dump"));
    ASSERT_TRUE(running.session.unloadModule(kMain, reason)) << reason;
    EXPECT_FALSE(acrxServiceIsRegistered(u"KEX_BASE_API"));
}

TEST(Module, UnloadsWhatOthersPushedToIt)
{
    orvald::SessionOptions options;
    options.modules = {"probe.arx"};
    Running running(options);
    const auto push = exported<void (*)(const ACHAR*)>("kexArxPush");
    push(u"C:\\Programme\\Kex\\probe.arx");
    std::string reason;
    EXPECT_TRUE(running.session.unloadModule(kMain, reason)) << reason;
    EXPECT_TRUE(running.session.modules().empty());
}

TEST(Documents, GetAllFunctionsEachAndLoseThemAtUnload)
{
    Running running;
    std::string problem;
    ASSERT_TRUE(running.session.newDrawing(problem));
    EXPECT_EQ(running.session.documents(), 2);
    EXPECT_EQ(running.value("(type kex_seal_vl)"), "EXRXSUBR");
    EXPECT_EQ(running.value("(setq only-here 1)"), "1");
    running.session.closeCurrent();
    EXPECT_EQ(running.value("only-here"), "nil") << "each document has a LISP world of its own";
    EXPECT_EQ(running.value("(type c:convtext)"), "EXRXSUBR");
}

TEST(Functions, AllRowsAreDefinedInTableOrder)
{
    Running running;
    const std::vector<orvald::FunctionLine> functions = running.session.functions();
    ASSERT_EQ(functions.size(), 996u);
    EXPECT_EQ(functions.front().name, "c:convtext");
    EXPECT_EQ(functions.back().name, "kex_seal_vl");
    for (const orvald::FunctionLine& function : functions) {
        EXPECT_EQ(running.value("(type " + function.name + ")"), "EXRXSUBR") << function.name;
    }
    const auto built = std::ranges::count_if(functions, &orvald::FunctionLine::built);
    EXPECT_GT(built, 0);
}

TEST(Functions, EveryRowTakesAnyArgumentsWithoutFault)
{
    Running running;
    // Some of them change files and folders beneath the current one.
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(running.home.path());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (const orvald::FunctionLine& function : running.session.functions()) {
        for (const char* arguments :
             {"", "nil", "1 2 3", "\"a\" \"b\" T", "'((1 2) (3.0 4.0) (\"x\" . 5))",
              "'(((0 0) (1 0) 0.5)) T 0.1", "(ssadd) 2.5", "-70000 '(nil) (entlast)"}) {
            running.session.eval("(" + function.name + " " + arguments + ")");
        }
    }
    testing::internal::GetCapturedStderr();
    testing::internal::GetCapturedStdout();
    std::filesystem::current_path(before);
    EXPECT_FALSE(running.session.moduleFaulted());
    EXPECT_EQ(running.session.alerts(), 0);
}

TEST(Defun, TwiceLeavesEachFunctionOnce)
{
    Running running;
    running.value("(setq kex_str_len nil)");
    EXPECT_TRUE(running.session.command("kex_defun"));
    EXPECT_TRUE(running.session.command("_kex_defun"));
    EXPECT_EQ(running.value("(kex_str_len \"abc\")"), "3");
    std::string reason;
    EXPECT_TRUE(running.session.unloadModule(kMain, reason)) << reason;
    EXPECT_EQ(running.value("kex_str_len"), "nil");
}

TEST(Dump, ListsCallsInTableOrderAndStartsAnew)
{
    Running running;
    running.value("(repeat 3 (kex_str_trim \" a \")) (kex_str_len \"a\")");
    const std::string totals = running.printed("(command \"_kex_dump\")");
    EXPECT_NE(totals.find("20.0s"), std::string::npos) << totals;
    EXPECT_NE(totals.find("Aufrufe   t-ges        t Name\n"), std::string::npos) << totals;
    const std::size_t len = totals.find("kex_str_len\n"), trim = totals.find("kex_str_trim\n");
    ASSERT_NE(len, std::string::npos) << totals;
    ASSERT_NE(trim, std::string::npos) << totals;
    EXPECT_LT(len, trim);
    EXPECT_EQ(totals.substr(totals.rfind('\n', trim) + 1, 7), "      3");
    EXPECT_NE(totals.find("\nGesamt:    0.0 s\n"), std::string::npos) << totals;
    EXPECT_EQ(running.printed("(command \"kex_dump\")").find("kex_str"), std::string::npos);
}

TEST(LoadDrawing, TakesOverUnitsAndRegistersApplications)
{
    Running running;
    EXPECT_EQ(running.value("(getvar \"MEASUREMENT\")"), "1");
    EXPECT_EQ(running.value("(mapcar '(lambda (a) (if (tblsearch \"APPID\" a) a))"
                            " '(\"ORV_SEAL\" \"ORV_PANEL\" \"ORV_BAR\"))"),
              "(\"ORV_SEAL\" \"ORV_PANEL\" \"ORV_BAR\")");
    // A drawing in feet is imperial, whatever it says itself.
    std::string problem;
    running.value("(setvar \"INSUNITS\" 2)");
    ASSERT_TRUE(running.session.save(running.home / "feet.dxf", problem)) << problem;
    ASSERT_TRUE(running.session.open(running.home / "feet.dxf", problem)) << problem;
    EXPECT_EQ(running.value("(getvar \"MEASUREMENT\")"), "0");
}

TEST(LoadDrawing, ReadsMaterialsAndLayersOnceFromTheSearchPath)
{
    orvald::SessionOptions options;
    options.modules = {"probe.arx"};
    const kextest::TempFolder home;
    options.home = home.path();
    {
        Running first(options); // leaves its configuration, which has the form of a data file
    }
    const std::string data = kextest::readFile(home / "Kex_Main.cfg");
    kextest::writeFile(home / "kex_mat.dex", data);
    kextest::writeFile(home / "kex_layer.dex", data.substr(1)); // damaged
    Running running(options);
    EXPECT_EQ(running.value("(kex_cfg_get \"*KEX_MAT*\\\\_RNDL\")"), "0.0001");
    EXPECT_EQ(running.value("(kex_cfg_get \"*KEX_LAYER*\")"), "nil");
    // The next drawing finds the key and does not read again; "*MAT" belongs to one drawing.
    kextest::writeFile(home / "kex_layer.dex", data);
    running.value("(probe_cfg_set \"*KEX_MAT*\\\\_RNDL\" 5.0) (probe_cfg_set \"*MAT\" 1)");
    std::string problem;
    ASSERT_TRUE(running.session.newDrawing(problem)) << problem;
    EXPECT_EQ(running.value("(kex_cfg_get \"*KEX_MAT*\\\\_RNDL\")"), "5.0");
    EXPECT_EQ(running.value("(kex_cfg_get \"*KEX_LAYER*\\\\_RNDF\")"), "0.001");
    EXPECT_EQ(running.value("(kex_cfg_get \"*MAT\")"), "nil");
}

// What other programs do: a callback by name, called through the automation object.
int lastCode = 0;
int answerTwice(int code, const ACHAR*)
{
    lastCode = code;
    return code * 2;
}

int sendData(HostAutomationObject* object, const char16_t* name, int code)
{
    resbuf* args = acutBuildList(RTSTR, name, RTLONG, code, RTSTR, u"text", RTNONE);
    resbuf* result = acutNewRb(RTNIL);
    const bool done = object != nullptr && object->invoke(u"SendData", args, result);
    const int answer = done && result->restype == RTLONG ? result->resval.rlong : -1;
    acutRelRb(args);
    acutRelRb(result);
    return answer;
}

TEST(Reactors, AreReachedByNameInAnyCaseAndShownOnlyWhileThereIsOne)
{
    using Callback = int (*)(int, const ACHAR*);
    Running running;
    const auto add = exported<bool (*)(const ACHAR*, Callback)>("KexAddReactor");
    const auto remove = exported<bool (*)(const ACHAR*)>("KexRemoveReactor");
    ASSERT_NE(add, nullptr);
    ASSERT_NE(remove, nullptr);
    const auto object = [] { return hostGetActiveObject(u"Kex.ArxApp.15"); };
    EXPECT_EQ(object(), nullptr);
    EXPECT_FALSE(add(nullptr, answerTwice));
    EXPECT_TRUE(add(u"abc", answerTwice));
    EXPECT_TRUE(add(u"Two", answerTwice));
    EXPECT_EQ(sendData(object(), u"ABC", 21), 42);
    EXPECT_EQ(lastCode, 21);
    EXPECT_EQ(sendData(object(), u"other", 1), 2) << "an unknown name answers 2";
    resbuf* none = acutNewRb(RTNIL);
    EXPECT_FALSE(object()->invoke(u"Other", nullptr, none));
    EXPECT_FALSE(object()->invoke(u"SendData", nullptr, none));
    acutRelRb(none);
    EXPECT_TRUE(remove(u"ABC"));
    EXPECT_NE(object(), nullptr);
    EXPECT_TRUE(remove(u"two"));
    EXPECT_EQ(object(), nullptr) << "the last one revokes the object";
    EXPECT_TRUE(add(u"again", answerTwice));
    EXPECT_NE(object(), nullptr);
    std::string reason;
    EXPECT_TRUE(running.session.unloadModule(kMain, reason)) << reason;
    EXPECT_EQ(object(), nullptr) << "unloading revokes what is left";
}

} // namespace
