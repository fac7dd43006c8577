// SPDX-License-Identifier: LicenseRef-ORVALD
// Data on every object of real drawings: it comes back from the file, another program's library
// reads it, and what other applications keep in the drawing stays as it was.
#include "session_support.h"

#include <map>
#include <sys/wait.h>

namespace {

using kextest::Running;
using kextest::TempFolder;

/// Runs a Python tool; 77 when the other program's library is missing.
int runPython(const std::string& command)
{
    const int status = std::system(("/usr/bin/python3 " + command + " >/dev/null").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

constexpr const char* kProgram = R"(
(defun entities (/ e l)
  (setq e (entnext))
  (while e (setq l (cons e l) e (entnext e)))
  (reverse l))
(defun data-of (e n prev)
  (list (cons "HANDLE" (cdr (assoc 5 (entget e)))) (cons "N" n) (list "P" (* n 0.1) 2.5 (/ 1.0 3.0))
        (cons "TEXT" (strcat "Größe \t caret ^ ^J \\U+1D11E 𝄞" (kex_str_rfill "" 300 "ä")))
        (list "LIST" 1 "a" (list nil (cons 2 T)) 3.5)
        (list "PARM" (cons "TYPE" (rem n 4)) (if prev (cons 7 prev) '(7)))))
(defun on-each (f / n prev)
  (setq n 0)
  (foreach e (entities) (if (f e n prev) (setq n (1+ n))) (setq prev e))
  n)
(defun attach (e n prev)
  (if prev (kex_d_hardpointer e "PREV" prev))
  (kex_xd_mod e "" (data-of e n prev)))
(defun same (e n prev)
  (and (equal (kex_xr_get e "") (data-of e n prev))
       (equal (kex_d_hardpointer_get e "PREV") (if prev (list prev)))))
)";

/// A session with the program in which a drawing is open.
struct Opened
{
    explicit Opened(const std::string& drawing)
    {
        std::string problem;
        EXPECT_TRUE(running.session.open(drawing, problem)) << problem;
        running.value(kProgram);
    }
    void save(const std::string& drawing)
    {
        std::string problem;
        EXPECT_TRUE(running.session.save(drawing, problem)) << problem;
    }
    Running running;
};

TEST(DrawingData, OfEveryEntityComesBackAndOthersReadIt)
{
    const TempFolder folder;
    const std::string script = KEX_SOURCE_DIR "/examples/facade/make_panel.py ";
    if (runPython("-c 'import ezdxf'") != 0) GTEST_SKIP() << "python3-ezdxf is missing";
    ASSERT_EQ(runPython(script + folder / "panel.dxf"), 0);
    const std::string bytes(1000, '\xA5');
    kextest::writeFile(folder / "in.bin", bytes);
    const std::string files =
        "(setq in \"" + folder / "in.bin" + "\" out \"" + folder / "out.bin" + "\")";
    std::string count;
    {
        Opened drawing(folder / "panel.dxf");
        drawing.running.value(files);
        count = drawing.running.value("(on-each attach)");
        EXPECT_EQ(drawing.running.value("(length (entities))"), count);
        EXPECT_EQ(drawing.running.value("(kex_file_to_xrec in \"FIRM\\\\FILES\" \"A\")"), "T");
        EXPECT_EQ(drawing.running.value("(kex_xr_obj (entnext))"), "nil"); // in the cache still
        drawing.save(folder / "with.dxf");
    }
    EXPECT_GT(std::stoi(count), 1000);
    Opened again(folder / "with.dxf");
    again.running.value(files);
    EXPECT_EQ(again.running.value("(on-each same)"), count);
    EXPECT_EQ(again.running.value("(length (kex_d_find \"PARM\\\\TYPE\" 2))"),
              again.running.value(
                  "(length (vl-remove-if-not '(lambda (e) (= 2 (rem (kex_d_get e \"N\") 4)))"
                  " (kex_d_find \"N\")))"));
    EXPECT_EQ(again.running.value("(kex_file_from_xrec out \"FIRM\\\\FILES\" \"A\")"), "T");
    EXPECT_EQ(kextest::readFile(folder / "out.bin"), bytes);
    EXPECT_EQ(
        runPython(KEX_SOURCE_DIR "/tests/tools/kernel_data.py " + folder / "with.dxf " + count), 0);
}

/// Group codes and values of each record by its handle, but for what the kernel puts there: the
/// link to an extension dictionary, and entries of dictionaries whose names are told.
std::map<std::string, std::string> foreignRecords(const std::string& path)
{
    std::map<std::string, std::string> records;
    std::istringstream in(kextest::readFile(path));
    std::string code, text, record, handle;
    bool skipping = false;
    int skipped = 0;
    while (std::getline(in, code) && std::getline(in, text)) {
        while (text.ends_with('\r')) text.pop_back();
        const int number = std::stoi(code);
        if (number == 0) {
            const bool header = record.starts_with("0 SECTION"); // names the next free handle
            if (!handle.empty() && !header) records[handle] = record;
            record.clear();
            handle.clear();
        }
        if ((number == 5 || number == 105) && handle.empty()) handle = text;
        if (number == 102 && text == "{ACAD_XDICTIONARY") skipping = true;
        if (number == 3 && (text == "KEX_DATA" || text == "PREV" || text == "LIST")) skipped = 2;
        if (!skipping && skipped == 0) record += std::to_string(number) + " " + text + "\n";
        if (number == 102 && text == "}") skipping = false;
        if (skipped > 0) --skipped;
    }
    return records;
}

TEST(DrawingData, ChangesNothingOfOtherApplications)
{
    const TempFolder folder;
    const std::string tools = KEX_SOURCE_DIR "/tests/tools/";
    const int made = runPython(tools + "make_dxf.py foreign R2013 " + folder / "foreign.dxf");
    if (made == 77) GTEST_SKIP() << "python3-ezdxf is missing";
    ASSERT_EQ(made, 0);
    {
        // The root dictionary is written in the order of its names once it has been changed.
        Opened drawing(folder / "foreign.dxf");
        drawing.running.value("(kex_dict_obj \"FIRM\")");
        drawing.save(folder / "plain.dxf");
        EXPECT_NE(drawing.running.value("(on-each attach)"), "0");
        EXPECT_NE(drawing.running.value("(kex_dxr_mod \"FIRM\\\\LIST\" \"A\" 1)"), "nil");
        drawing.save(folder / "with.dxf");
    }
    const auto before = foreignRecords(folder / "plain.dxf"),
               after = foreignRecords(folder / "with.dxf");
    EXPECT_GT(before.size(), 150u);
    EXPECT_GT(after.size(), before.size());
    for (const auto& [handle, record] : before) {
        const auto found = after.find(handle);
        ASSERT_NE(found, after.end()) << record;
        EXPECT_EQ(found->second, record);
    }
    // Taken away again it leaves no trace.
    Opened drawing(folder / "with.dxf");
    EXPECT_NE(drawing.running.value("(on-each '(lambda (e n prev) (kex_d_remove e T)))"), "0");
    drawing.running.value("(kex_dxr_mod \"FIRM\\\\LIST\" \"A\" nil)");
    drawing.save(folder / "without.dxf");
    const std::string files = folder / "plain.dxf" + " " + folder / "without.dxf";
    EXPECT_EQ(runPython(tools + "dxf_same.py " + files), 0);
}

} // namespace
