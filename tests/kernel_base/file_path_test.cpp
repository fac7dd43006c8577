// SPDX-License-Identifier: LicenseRef-ORVALD
// Names of files: their form, their parts, and what they lead to.
#include "files.h"
#include "variable.h"

#include "kex/files.h"
#include "kex/system.h"
#include "kexos/environment.h"
#include "kexos/paths.h"

#include <random>

namespace {

namespace fs = std::filesystem;
using kextest::TempFolder;
using kextest::Variable;

std::string dosName(const char* text)
{
    CKexString path = CKexString::fromUtf8(text);
    return KEX::dos_name(path).toUtf8();
}

TEST(DosName, GivesThePathInTheKernelsForm)
{
    struct Case
    {
        const char *given, *path;
    };
    for (const auto& [given, path] : {Case{"", ""},
                                      {" \t c:/work//Plan.DWG\n", "C:\\work\\Plan.DWG"},
                                      {"\"c:\\a b\\\"", "C:\\a b\\"},
                                      {"\" blanks \"", " blanks "},
                                      {"\"", "\""},
                                      {"//srv//share///x/", "\\\\srv\\share\\x\\"},
                                      {"\\\\\\\\srv", "\\\\srv"},
                                      {"/", "\\"},
                                      {"ä:\\x", "ä:\\x"},
                                      {"a\\.\\..\\b", "a\\.\\..\\b"}}) {
        EXPECT_EQ(dosName(given), path);
        EXPECT_EQ(dosName(path), path == std::string(" blanks ") ? "blanks" : path);
    }
}

TEST(SplitPath, PartsJoinedAreThePath)
{
    struct Case
    {
        const char *path, *drive, *folder, *name, *extension;
    };
    for (const auto& [path, drive, folder, name, extension] :
         {Case{"C:\\work\\plan.dwg", "C:", "\\work\\", "plan", ".dwg"},
          {"C:plan", "C:", "", "plan", ""},
          {"\\\\srv\\share\\a.b.c", "", "\\\\srv\\share\\", "a.b", ".c"},
          {"C:\\a.b\\c", "C:", "\\a.b\\", "c", ""},
          {".cfg", "", "", ".cfg", ""},
          {"a.", "", "", "a", "."},
          {"a\\", "", "a\\", "", ""},
          {"", "", "", "", ""}}) {
        const KEX::PathParts parts = KEX::splitPath(CKexString::fromUtf8(path));
        EXPECT_EQ(parts.drive.toUtf8(), drive);
        EXPECT_EQ(parts.folder.toUtf8(), folder) << path;
        EXPECT_EQ(parts.name.toUtf8(), name) << path;
        EXPECT_EQ(parts.extension.toUtf8(), extension) << path;
        EXPECT_EQ(KEX::file_type(CKexString::fromUtf8(path)), parts.extension);
    }
    std::mt19937 random(5);
    for (int round = 0; round < 5000; ++round) {
        CKexString path;
        for (auto i = random() % 12; i > 0; --i) path += KT("C:\\.ab\"/ ")[random() % 9];
        const auto [drive, folder, name, extension] = KEX::splitPath(KEX::dos_name(path));
        ASSERT_EQ(drive + folder + name + extension, path);
    }
}

TEST(FullPaths, StartAtADriveOrShare)
{
    const Variable table("KEX_DRIVES",
                         R"(D=/data;C=/;\\srv\share=/mnt/x;N=/mnt/x;M=/mnt/x/m;9=/;A=)");
    const TempFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    const std::string here = kexos::kernelPath(folder.path());
    struct Case
    {
        std::string path, full;
    };
    for (const auto& [path, full] :
         {Case{"", ""},
          {"a\\.\\b\\..\\c", here + "\\a\\c"},
          {"C:\\..\\..\\a\\", "C:\\a\\"},
          {"C:\\", "C:\\"},
          {"C:", here},
          {"C:x", here + "\\x"},
          {"D:x", "D:\\x"},
          {"\\a", "D:\\a"}, // the first drive of the table
          {"n:\\a", "\\\\srv\\share\\a"},
          {"M:\\a", "\\\\srv\\share\\m\\a"},
          {"\\\\srv\\share\\..\\..\\a", "\\\\srv\\share\\a"},
          {"\\\\srv", "\\\\srv"},
          {"Q:\\no\\drive", "Q:\\no\\drive"},
          {"..", kexos::kernelPath(fs::path(folder.path()).parent_path().string())}}) {
        EXPECT_EQ(KEX::fileNameUnc(CKexString::fromUtf8(path)).toUtf8(), full) << path;
    }
    EXPECT_EQ(kexos::drives(), "ACDMN");
    EXPECT_EQ(KEX::drives().length(), 5);
    EXPECT_EQ(KEX::drives()[0], KT("A:"));

    // The current folder goes where it is sent, and stays where that cannot be.
    fs::create_directory(folder / "Sub");
    EXPECT_TRUE(KEX::curDirSet(KT("sub\\")));
    EXPECT_EQ(KEX::curDir().toUtf8(), here + "\\Sub\\");
    EXPECT_FALSE(KEX::curDirSet(KT("nowhere")));
    EXPECT_FALSE(KEX::curDirSet(KT("Q:\\")));
    EXPECT_EQ(KEX::curDir().toUtf8(), here + "\\Sub\\");
    EXPECT_TRUE(KEX::curDirSet(KT("C:\\")));
    EXPECT_EQ(KEX::curDir(), KT("C:\\"));
    fs::current_path(before);
}

TEST(LookUp, TakesTheExactNameThenTheFirstInOtherLetters)
{
    const TempFolder folder;
    for (const char* name : {"Work", "WORK"}) {
        fs::create_directory(folder / name);
        kextest::writeFile(folder / name + "/Pläne.DWG", name);
    }
    kextest::writeFile(folder / "Work/pläne.dwg", "small");
    const auto read = [&](const char* path) {
        const CKexString file = CKexString::fromUtf8(kexos::kernelPath(folder.path()) + path);
        return KEX::fileRead(file).value_or("(none)");
    };
    EXPECT_EQ(read("\\Work\\pläne.dwg"), "small");
    EXPECT_EQ(read("\\Work\\Pläne.DWG"), "Work");
    EXPECT_EQ(read("\\work\\PLÄNE.dwg"), "WORK"); // first by bytes, folder and file
    EXPECT_EQ(read("\\Work\\PLÄNE.dwg"), "Work");
    EXPECT_EQ(read("\\wörk\\PLÄNE.dwg"), "(none)");
    EXPECT_EQ(read("\\work"), "(none)");
    EXPECT_FALSE(KEX::fileExists(CKexString::fromUtf8(std::string("C:\\tmp\0x", 8))));
    EXPECT_FALSE(KEX::fileExists(CKexString(KT('a'), 100000)));
    // A "/" cannot come in as the surrogate of a byte.
    EXPECT_FALSE(KEX::fileExists(CKexString(KT("\\tmp")) + ACHAR(0xDC00 + '/') + KT("..")));
}

TEST(Environment, ReferencesAreExpanded)
{
    const Variable variable("KEX_TEST", "C:\\Träger");
    const Variable empty("KEX_EMPTY", "");
    struct Case
    {
        const char *text, *expanded;
    };
    for (const auto& [text, expanded] : {Case{"", ""},
                                         {"%KEX_TEST%\\a", "C:\\Träger\\a"},
                                         {"%KEX_TEST%%KEX_TEST%", "C:\\TrägerC:\\Träger"},
                                         {"%KEX_EMPTY%", ""},
                                         {"%KEX_TEST", "%KEX_TEST"},
                                         {"50% of %KEX_TEST%", "50% of C:\\Träger"},
                                         {"%NO_SUCH%KEX_TEST%", "%NO_SUCHC:\\Träger"},
                                         {"%%KEX_TEST%%", "%C:\\Träger%"},
                                         {"%", "%"},
                                         {"%=%", "%=%"},
                                         {"$KEX_TEST ${KEX_TEST}", "$KEX_TEST ${KEX_TEST}"}}) {
        EXPECT_EQ(KEX::envExpand(CKexString::fromUtf8(text)).toUtf8(), expanded) << text;
    }
    EXPECT_EQ(KEX::envExpand(CKexString(KT('%'), 1000001)).len(), 1000001);
}

TEST(TemporaryNames, DoNotExist)
{
    const TempFolder folder;
    const Variable temp("TMP", folder.path());
    const CKexString name = KEX::tmp_nam(KT("bau"));
    EXPECT_TRUE(name.startsWith(KEX::tmp_dir() + KT("bau")));
    EXPECT_TRUE(name.endsWith(KT(".tmp")));
    EXPECT_EQ(KEX::fileNameOnly(name).len(), 3 + 8 + 4);
    EXPECT_NE(KEX::tmp_nam(KT("bau")), name);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

} // namespace
